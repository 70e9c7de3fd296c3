# The Windows program in build/windows/program/, under Wine and on a virtual display, inside the
# environment, with the camera registered: it starts, a simulated phone of this machine pairs and
# streams, another program reads the camera, a second phone comes, the window is photographed by the
# program itself, and it ends; the reader goes on. The picture is out/windows.png.
set -euo pipefail

build=$PWD/build/windows
export WINEPREFIX=$build/wine
home=$build/program
work=$build/program-logs
users=$WINEPREFIX/drive_c/users/$(id -un)
log=$users/AppData/Local/Pevrix/pevrix.log
settings=$users/AppData/Roaming/Pevrix/Pevrix.ini
library=Z:${home//\//\\}\\softcam.dll
seconds_to_wait=60

fail() {
    printf 'windows: %s.\n' "$1" >&2
    cat "$log" "$work"/* 2>/dev/null >&2 || true
    exit 1
}

source tools/dev/session.sh

# What this session registers is gone when it ends, so that nobody finds it in the Wine home.
end_all() {
    end_processes
    tools/windows/wine-run regsvr32 /s /u "$library" >/dev/null 2>&1 || true
    end_wine
}
trap end_processes EXIT

rm -rf "$work" "${log%/*}" "${settings%/*}" out/windows.png
mkdir -p "$work" out

start_display 1280x800
source tools/windows/wine-home.sh
trap end_all EXIT

tools/windows/wine-run regsvr32 /s "$library" >"$work/regsvr32" 2>&1 || fail "the camera was not registered"
tools/windows/wine-run "$home/pevrix.exe" --shot 540x640 \
    --out "Z:$PWD/out/windows.png" --shot-active "Windows demo" --shot-delay 90000 \
    >"$work/program" 2>&1 &
program=$!
pids+=($program)
wait_for "$log" 'listening on port' "the program did not start to listen"
port=$(sed -n 's/.*listening on port \([0-9]*\).*/\1/p' "$log")
wait_for "$home/pairing-token.txt" . "the program left no pairing token"

# start_phone NAME
start_phone() {
    build/native/bin/phonesim --host 127.0.0.1 --port "$port" --token-file "$home/pairing-token.txt" \
        --name "$1" --size 1280x720 --fps 30 >"$work/phonesim-$1" 2>&1 &
    pids+=($!)
}

start_phone "Camera demo"
wait_for "$log" 'phone 1 connected' "the simulated phone did not pair"
wait_for "$log" 'first picture of the stream, 1280x720' "no picture of the phone's video came"

tools/windows/wine-run build/windows/tools/camreader.exe read --interval 0.25 \
    $(tools/windows/check-phone-picture --options) >"$work/reader" 2>&1 &
reader=$!
pids+=($reader)
wait_for "$work/reader" 'pictures=' "the camera could not be read"
deadline=$((SECONDS + seconds_to_wait))
until cp "$work/reader" "$work/reader-of-phone" &&
    camera=$(tools/windows/check-phone-picture "$work/reader-of-phone" 2>&1); do
    [ $SECONDS -lt $deadline ] || fail "the camera: $camera"
    sleep 1
done

start_phone "Windows demo"
status=0
wait "$program" || status=$?
[ $status = 0 ] || fail "the program ended with status $status"
[ -s out/windows.png ] || fail "the program took no picture of its window"
grep -q 'shot saved' "$log" || fail "the picture was not logged"
grep -q '^\[trusted\]' "$settings" || fail "the phone is not in the settings file"
# The reader has the library's own card now.
printed=$(wc -l <"$work/reader")
sleep 2
kill -0 "$reader" 2>/dev/null || fail "the reader of the camera ended with the program"
tail -n "+$((printed + 1))" "$work/reader" | grep -q 'pictures=[1-9]' ||
    fail "the camera showed nothing after the program's end"
gone=$(tools/windows/check-phone-picture --gone "$work/reader" 2>&1) || fail "after the program's end: $gone"
echo "the Windows program: $(grep -h 'stopped after' "$log" | sed 's/^Pevrix: //'), \
the window in out/windows.png"
echo "its camera in another program: $camera"
