# ./dev calls [chromium|firefox]: the virtual camera in a call page of real browsers, while phones
# come, turn, pause and leave. Without an argument each browser alone, then both at once.

command_calls() {
    local run runs=(chromium firefox 'chromium firefox')
    case $* in
        '') ;;
        chromium | firefox) runs=("$1") ;;
        *) fail "the calls do not know '$*'" "use ./dev calls, ./dev calls chromium or ./dev calls firefox" ;;
    esac
    build_preset native --target pevrix phonesim softcam
    rm -rf out/calls out/calls-*.png
    for run in "${runs[@]}"; do
        say "a call in ${run/ / and }"
        in_closed_environment bash tools/dev/calls-session.sh $run ||
            fail "the call in ${run/ / and } failed" \
                "the logs and every phase's last picture are in out/calls/${run/ /-}"
    done
}
