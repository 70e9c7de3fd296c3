# The Windows program in build/windows/program/, under Wine and on a virtual display, inside the
# environment: it starts, a simulated phone of this machine pairs and streams, the pictures
# reach the camera library, the window is photographed by the program itself, and it ends.
# The picture is out/windows.png.
set -euo pipefail

build=$PWD/build/windows
export WINEPREFIX=$build/wine
home=$build/program
work=$build/program-logs
users=$WINEPREFIX/drive_c/users/$(id -un)
log=$users/AppData/Local/Pevrix/pevrix.log
settings=$users/AppData/Roaming/Pevrix/Pevrix.ini
seconds_to_wait=60

fail() {
    printf 'windows: %s.\n' "$1" >&2
    cat "$log" "$work"/* 2>/dev/null >&2 || true
    exit 1
}

source tools/dev/session.sh

end_all() {
    end_processes
    end_wine
}
trap end_processes EXIT

rm -rf "$work" "${log%/*}" "${settings%/*}" out/windows.png
mkdir -p "$work" out

start_display 1280x800
source tools/dev/wine-home.sh
trap end_all EXIT

TESTCAM_LOG="Z:$work/camera" tools/dev/wine-run "$home/pevrix.exe" --shot 540x640 \
    --out "Z:$PWD/out/windows.png" --shot-active "Windows demo" --shot-delay 90000 \
    >"$work/program" 2>&1 &
program=$!
pids+=($program)
wait_for "$log" 'listening on port' "the program did not start to listen"
port=$(sed -n 's/.*listening on port \([0-9]*\).*/\1/p' "$log")
wait_for "$home/pairing-token.txt" . "the program left no pairing token"

build/native/bin/phonesim --host 127.0.0.1 --port "$port" --token-file "$home/pairing-token.txt" \
    --name "Windows demo" --size 1280x720 --fps 30 >"$work/phonesim" 2>&1 &
pids+=($!)
wait_for "$log" 'phone 1 connected' "the simulated phone did not pair"
wait_for "$log" 'first picture of the stream, 1280x720' "no picture of the phone's video came"

status=0
wait "$program" || status=$?
[ $status = 0 ] || fail "the program ended with status $status"
[ -s out/windows.png ] || fail "the program took no picture of its window"
grep -q 'shot saved' "$log" || fail "the picture was not logged"
grep -q '^\[trusted\]' "$settings" || fail "the phone is not in the settings file"
# A record of the camera library's log has 32 bytes.
sent=$(($(stat -c %s "$work/camera") / 32))
[ "$sent" -gt 30 ] || fail "the camera library saw $sent calls only"
echo "the Windows program: $(grep -h 'stopped after' "$log" | sed 's/^Pevrix: //'), \
$sent calls of the camera library, the window in out/windows.png"
