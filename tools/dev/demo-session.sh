# The demo's session, run inside the environment: starts a virtual display, a media service of its
# own, the program and a simulated phone, waits for decoded pictures, photographs the window twice,
# reads the virtual camera as another program does, records, and ends all of them.
# With --usb the phone is on a cable, behind a simulated usbmux daemon where the program looks for
# the real one.
# Settings and log live in out/demo, so that the user's own are neither read nor changed.
set -euo pipefail

bin=build/native/bin
work=out/demo
log=$work/Pevrix/pevrix.log
seconds_to_wait=20
daemon_port=27015
transport=${1:-}

fail() {
    printf 'demo: %s; the logs are in %s.\n' "$1" "$work" >&2
    exit 1
}

source tools/dev/session.sh

end_all() {
    end_processes
    wait 2>/dev/null || true
    [ -z "${runtime:-}" ] || rm -rf "$runtime"
}
trap end_all EXIT

# The window without the transparent margin around its card, which nothing blends here.
photograph() {
    ffmpeg -loglevel error -y -f x11grab -draw_mouse 0 -video_size 508x608 \
        -i "$DISPLAY+16,16" -frames:v 1 "$1" 2>"$work/photograph.log" || fail "the window could not be photographed"
}

# PipeWire, in which the virtual camera appears. It lies in a short path: sockets allow 108 characters.
start_media_service() {
    runtime=$(mktemp -d)
    export XDG_RUNTIME_DIR=$runtime
    unset PIPEWIRE_REMOTE PIPEWIRE_RUNTIME_DIR DBUS_SESSION_BUS_ADDRESS
    pipewire 2>"$work/pipewire.log" &
    pids+=($!)
    local deadline=$((SECONDS + seconds_to_wait))
    until [ -S "$runtime/pipewire-0" ]; do
        [ $SECONDS -lt $deadline ] || fail "the media service did not start"
        sleep 0.1
    done
    wireplumber -p video-only 2>"$work/wireplumber.log" &
    pids+=($!)
}

start_program() {
    rm -f "$bin/pairing-token.txt" # of an earlier run: the phone must wait for the new one
    mkdir -p "$work/config"
    printf 'XDG_VIDEOS_DIR="%s"\n' "$PWD/$work/videos" >"$work/config/user-dirs.dirs"
    LOCALAPPDATA=$PWD/$work XDG_CONFIG_HOME=$PWD/$work/config QT_QPA_PLATFORM=xcb \
        "$bin/pevrix" 2>"$work/pevrix.err" &
    program=$!
    pids+=($program)
    wait_for "$log" 'listening on port' "the program did not start to listen"
    port=$(sed -n 's/.*listening on port //p' "$log")
}

# start_phone HOW...: HOW it and the program come together.
start_phone() {
    "$bin/phonesim" "$@" --name "Demo phone" --size 1280x720 --fps 30 \
        >"$work/phonesim.log" 2>&1 &
    phone=$!
    pids+=($phone)
}

start_program_and_phone() {
    if [ "$transport" != --usb ]; then
        start_program
        start_phone --host 127.0.0.1 --port "$port" --token-file "$bin/pairing-token.txt"
        return
    fi
    start_phone --usbmux --usbmux-port "$daemon_port"
    wait_for "$work/phonesim.log" 'usbmux daemon on port\|cannot play' \
        "the simulated phone did not start"
    if grep -q 'cannot play' "$work/phonesim.log"; then
        fail "port $daemon_port is taken: end the usbmux daemon of this machine first"
    fi
    start_program
}

await_video() {
    wait_for "$log" 'phone .* connected' "the simulated phone did not pair"
    wait_for "$log" 'first picture of the stream' "no picture of the phone's video came"
}

# Reads five seconds of the virtual camera and computes the rate from the times of the pictures.
measure_camera() {
    timeout $((5 + seconds_to_wait)) gst-launch-1.0 -v pipewiresrc target-object=pevrix-camera \
        num-buffers=150 ! video/x-raw,format=YUY2,width=1280,height=720 ! \
        fakesink silent=false sync=false >"$work/camera.log" 2>&1 ||
        fail "the virtual camera could not be read"
    camera=$(sed -n 's/.*chain .* pts: \([0-9]*\):\([0-9]*\):\([0-9.]*\),.*/\1 \2 \3/p' "$work/camera.log" |
        awk '{t = $1 * 3600 + $2 * 60 + $3; if (NR == 1) first = t; last = t}
            END {if (NR < 2 || last <= first) exit 1
                printf "%.2f pictures a second over %.1f s", (NR - 1) / (last - first), last - first}') ||
        fail "the virtual camera gave no pictures with times"
}

# The Record button is at the right, above the strip of phones.
press_record() {
    xdotool mousemove 460 459 click 1
}

# Records three seconds as a person would do it and prints what the file is.
record() {
    press_record
    sleep 3
    photograph out/demo-recording.png
    press_record
    local deadline=$((SECONDS + seconds_to_wait)) file
    until file=$(ls "$work"/videos/Pevrix/Pevrix_*.mp4 2>/dev/null) &&
        recording=$(ffprobe -v error -select_streams v -of default=nokey=1:noprint_wrappers=1 \
            -show_entries stream=codec_name,profile,width,height,nb_frames,duration "$file" \
            2>"$work/ffprobe.log" | xargs); do
        [ $SECONDS -lt $deadline ] || fail "no recording that plays was found"
        sleep 0.1
    done
    recording="${file##*/}: $recording"
}

end_gently() {
    kill -TERM "$1"
    local status=0
    wait "$1" || status=$?
    [ "$status" = 0 ] || fail "$2 ended with status $status"
}

start_display 540x640
start_media_service
start_program_and_phone
await_video
sleep 2
photograph out/demo.png
sleep 0.5
photograph "$work/later.png"
cmp -s out/demo.png "$work/later.png" && fail "the picture in the window does not move"
measure_camera
record
end_gently "$phone" "the simulated phone"
end_gently "$program" "the program"

grep -hE 'phone .* connected|first picture|stopped after' "$log"
tail -n 1 "$work/phonesim.log"
echo "camera as another program sees it: $camera"
echo "recording $recording"
echo "demo: the window with the live picture is in out/demo.png"
