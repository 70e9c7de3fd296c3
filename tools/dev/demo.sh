# ./dev demo [--usb]: the program and a simulated phone, in the network or on a USB cable, on a
# virtual display of their own.

command_demo() {
    case $* in
        '' | --usb) ;;
        *) fail "the demo does not know '$*'" "use ./dev demo or ./dev demo --usb" ;;
    esac
    build_preset native --target pevrix phonesim softcam
    rm -rf out/demo
    mkdir -p out/demo
    in_environment bash tools/dev/demo-session.sh "$@"
}
