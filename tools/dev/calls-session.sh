# The session of the calls, run inside the environment: starts a virtual display, a message bus, a
# media service, the program, and the browsers named, which open the camera in a page of
# tools/calls. Then phones come, turn, pause and leave, and in each phase the page says what it sees.
# Nothing of the user's own is read or changed: home, settings and sockets are the session's.
set -euo pipefail

bin=build/native/bin
browsers=("$@")
together=$(IFS=- && echo "$*")
work=out/calls/$together
log=$work/Pevrix/pevrix.log
seconds_to_wait=30
seconds_to_open=90
seconds_to_measure=4
seconds_to_settle=1
window=640x480 # each browser's

fail() {
    printf 'calls: %s.\n' "$1" >&2
    exit 1
}

source tools/dev/session.sh

# What does not end by itself ends with the environment, which is closed (in_closed_environment).
end_all() {
    end_processes
    local deadline=$((SECONDS + 5))
    while [ -n "$(jobs -r)" ] && [ $SECONDS -lt $deadline ]; do
        sleep 0.1
    done
    [ -z "${runtime:-}" ] || rm -rf "$runtime" || true
}
trap end_all EXIT

# wait_until WHAT CMD...: until the command succeeds.
wait_until() {
    local what=$1 deadline=$((SECONDS + seconds_to_wait))
    shift
    until "$@" >/dev/null 2>&1; do
        [ $SECONDS -lt $deadline ] || fail "$what"
        sleep 0.1
    done
}

# A short path, because sockets allow 108 characters.
make_homes() {
    runtime=$(mktemp -d)
    export XDG_RUNTIME_DIR=$runtime TMPDIR=$runtime HOME=$runtime/home XDG_CURRENT_DESKTOP=GNOME
    unset PIPEWIRE_REMOTE PIPEWIRE_RUNTIME_DIR WAYLAND_DISPLAY XDG_CONFIG_HOME XDG_DATA_HOME \
        XDG_CACHE_HOME XDG_STATE_HOME
    rm -rf "$work"
    mkdir -p "$HOME" "$work"
}

# The bus starts the portal and its permission store when somebody asks for them.
start_bus() {
    dbus-daemon --session --nofork --print-address=7 7>"$work/bus" 2>"$work/bus.log" &
    pids+=($!)
    wait_for "$work/bus" . "the message bus did not start"
    DBUS_SESSION_BUS_ADDRESS=$(cat "$work/bus")
    export DBUS_SESSION_BUS_ADDRESS
}

start_media_service() {
    pipewire 2>"$work/pipewire.log" &
    pids+=($!)
    wait_until "the media service did not start" test -S "$runtime/pipewire-0"
    wireplumber 2>"$work/wireplumber.log" &
    pids+=($!)
}

# What a person answers once when the desktop asks whether browsers may use cameras.
allow_camera() {
    local store=org.freedesktop.impl.portal.PermissionStore
    gdbus call --session --dest $store --object-path /${store//.//} \
        --method $store.SetPermission devices true camera '' "['yes']" >"$work/permission.log" 2>&1 ||
        fail "the camera could not be allowed"
}

camera_is_present() {
    gdbus call --session --dest org.freedesktop.portal.Desktop \
        --object-path /org/freedesktop/portal/desktop --method org.freedesktop.DBus.Properties.Get \
        org.freedesktop.portal.Camera IsCameraPresent | grep -q true
}

# mark_log and wait_for_log TEXT WHAT: until the program has written a line since the mark.
mark_log() {
    mark=$(stat -c %s "$log" 2>/dev/null || echo 0)
}

log_has() {
    tail -c "+$((mark + 1))" "$log" | grep -q "$1"
}

wait_for_log() {
    wait_until "$2" log_has "$1"
}

start_program() {
    rm -f "$bin/pairing-token.txt" # of an earlier run: the phones must wait for the new one
    mark_log
    LOCALAPPDATA=$PWD/$work QT_QPA_PLATFORM=offscreen "$bin/pevrix" 2>>"$work/pevrix.err" &
    program=$!
    pids+=($program)
    wait_for_log 'listening on port' "the program did not start to listen"
    port=$(sed -n 's/.*listening on port //p' "$log" | tail -n 1)
    wait_until "the desktop's portal sees no camera" camera_is_present
}

# start_phone SIZE OPTIONS...: of phonesim.
start_phone() {
    local size=$1
    shift
    mark_log
    "$bin/phonesim" --port "$port" --token-file "$bin/pairing-token.txt" --name "Phone" \
        --size "$size" "$@" >>"$work/phonesim.log" 2>&1 &
    phone=$!
    pids+=($phone)
}

end_phone() {
    [ -n "${phone:-}" ] || return 0
    mark_log
    kill "$phone"
    wait "$phone" 2>/dev/null || true
    phone=
    wait_for_log 'phone .* disconnected' "the phone did not leave"
}

# The server of the page takes orders from a pipe and answers on another (tools/calls/server.py).
start_server() {
    coproc SERVER { exec python3 tools/calls/server.py "$work" 2>"$work/server.log"; }
    pids+=($SERVER_PID)
    exec {orders}>&"${SERVER[1]}" {answers}<&"${SERVER[0]}"
    answer
    server_port=$reply
}

answer() {
    read -r -t 120 -u "$answers" reply || fail "the page's server does not answer"
}

ask() {
    printf '%s\n' "$*" >&"$orders"
    answer
}

run_chromium() {
    exec chromium --no-sandbox --no-first-run --disable-gpu --user-data-dir="$runtime/chromium" \
        --enable-features=WebRtcPipeWireCamera --use-fake-ui-for-media-stream \
        --disable-background-networking --disable-component-update \
        --window-position=0,0 --window-size="${window/x/,}" "$1"
}

# With a profile of its own each time: after a crash Firefox would bring back what it had open.
run_firefox() {
    local profile
    profile=$(mktemp -d -p "$runtime")
    cp tools/calls/firefox-user.js "$profile/user.js"
    MOZ_CRASHREPORTER_DISABLE=1 exec firefox-esr --no-remote --profile "$profile" \
        --width "${window%x*}" --height "${window#*x}" "$1"
}

declare -A process # of each browser
start_browser() {
    "run_$1" "http://127.0.0.1:$server_port/?browser=$1" >>"$work/$1.log" 2>&1 &
    process[$1]=$!
    pids+=($!)
}

# await_camera BROWSER: until its page has opened the camera. The browsers' common WebRTC code has a
# race (race_checker in their logs): they may crash while they open a camera of PipeWire. Of Chromium
# that ends a process that it starts again, of Firefox all.
await_camera() {
    local deadline=$((SECONDS + seconds_to_open))
    until ask await "$1" && [ "$reply" != silent ]; do
        [ $SECONDS -lt $deadline ] || fail "$1 did not open the camera"
        if ! kill -0 "${process[$1]}" 2>/dev/null; then
            say "$1" "crashed while it opened the camera, and is started again"
            start_browser "$1"
        fi
    done
    [[ $reply == 'opened Pevrix '* ]] || fail "$1 did not open the camera: $reply"
    [[ $reply == *' 1' ]] ||
        say "$1" "opened the camera at try ${reply##* } (the browser failed before)"
    # Side by side: a browser that is covered paints nothing.
    [[ "$together $1" != 'chromium-firefox firefox' ]] ||
        xdotool search --onlyvisible --class firefox windowmove "${window%x*}" 0
}

start_browsers() {
    local browser
    for browser in "${browsers[@]}"; do
        start_browser "$browser"
        await_camera "$browser"
    done
}

photograph() {
    ffmpeg -loglevel error -y -f x11grab -draw_mouse 0 -video_size "$screen" -i "$DISPLAY" \
        -frames:v 1 "$1" 2>"$work/photograph.log" || fail "the browsers could not be photographed"
}

say() {
    printf '%-9s %s\n' "$1" "$2"
}

# phase NAME KIND SIZE PREPARATION...: makes the phase with a command, and one second later measures
# what every browser sees. Once more where the machine may be what held a page up.
phase() {
    local name=$1 verdict
    shift
    measure_phase "$@"
    if [ $verdict = slow ]; then
        say '' "$name: once more, the machine is busy (load $(cut -d' ' -f1 /proc/loadavg))"
        measure_phase "$@"
    fi
    [ $verdict != slow ] || fail "phase '$name' failed, or the machine is too busy to tell"
    [ $verdict = right ] || fail "phase '$name' failed"
}

# Sets the verdict to the worst one of the browsers.
measure_phase() {
    local kind=$1 size=$2 browser
    shift 2
    "$@"
    sleep "$seconds_to_settle"
    verdict=right
    printf '%s\n' "measure $seconds_to_measure $kind $size ${name// /-} ${browsers[*]}" >&"$orders"
    for browser in "${browsers[@]}"; do
        answer
        say "$browser" "$name: ${reply#* }$([[ $reply == right* ]] || echo " -> ${reply%% *}")"
        [[ $reply == right* || $verdict == wrong ]] || verdict=${reply%% *}
    done
}

phone_streams() {
    end_phone
    start_phone "$1"
    wait_for_log "first picture of the stream, $1" "no picture of the phone's video came"
}

phone_turns() {
    end_phone
    start_phone 1280x720 --resize-after 2 --resize-to 720x1280
    wait_for_log 'first picture of the stream, 720x1280' "the phone did not turn"
}

phone_pauses() {
    end_phone
    start_phone 1920x1080 --stall-after 2
    wait_for_log 'stall -> paused card' "the phone did not pause"
}

# As when somebody joins the call again.
reload_pages() {
    local browser
    for browser in "${browsers[@]}"; do
        ask reload "$browser"
        await_camera "$browser"
    done
}

# The camera goes and comes. Browsers give up one that goes, which is told and no failure; a page that
# is loaded anew has to find it.
restart_program() {
    local browser noticed
    for browser in "${browsers[@]}"; do
        ask events "$browser" # of the time before
    done
    kill -TERM "$program"
    wait "$program" || fail "the program ended with status $?"
    sleep 2
    start_program
    sleep 2
    for browser in "${browsers[@]}"; do
        ask events "$browser"
        noticed=$reply
        ask measure 2 idle 1280x720 page-as-it-was "$browser"
        say "$browser" "$name: the page noticed $noticed, and as it was sees ${reply#* }"
    done
    reload_pages
}

make_homes
screen=$((${window%x*} * ${#browsers[@]}))x${window#*x}
start_display "$screen"
start_bus
start_media_service
allow_camera
start_program
start_server
start_browsers

phase 'no phone yet' idle 1280x720 true
phase '1280 x 720' phone 1280x720 phone_streams 1280x720
phase 'turned' phone 720x1280 phone_turns
photograph "out/calls-$together.png"
phase '1920 x 1080' phone 1920x1080 phone_streams 1920x1080
phase 'paused' paused 1920x1080 phone_pauses
phase 'left' idle 1920x1080 end_phone
phase '640 x 480' phone 640x480 phone_streams 640x480
phase 'page loaded anew' phone 640x480 reload_pages
end_phone
phase 'program restarted' idle 1280x720 restart_program
