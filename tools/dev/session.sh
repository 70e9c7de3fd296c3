# Sourced by the sessions that run the program on a display of their own. They set `work`, the folder
# of their logs, and `seconds_to_wait`, and have a function `fail`.

pids=()
end_processes() {
    for pid in "${pids[@]}"; do
        kill "$pid" 2>/dev/null || true
    done
}

# wait_for FILE TEXT WHAT: until the text stands in the file.
wait_for() {
    local deadline=$((SECONDS + seconds_to_wait))
    until grep -q "$2" "$1" 2>/dev/null; do
        [ $SECONDS -lt $deadline ] || fail "$3"
        sleep 0.1
    done
}

# start_display WIDTHxHEIGHT
start_display() {
    Xvfb -displayfd 7 -screen 0 "$1x24" -nolisten tcp 7>"$work/display" 2>"$work/xvfb.log" &
    pids+=($!)
    wait_for "$work/display" . "the virtual display did not start"
    export DISPLAY=:$(cat "$work/display")
}
