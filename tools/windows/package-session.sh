# Runs the installer given under Wine, in a Wine home of its own: silently, once more over itself, starts
# the installed program, installs and uninstalls while other programs read the camera, and looks for
# what is left.
set -euo pipefail

installer=$1
build=$PWD/build/windows
wine_home=$build/installed-wine
rm -rf "$wine_home"
source tools/windows/wine-home.sh

drive=$WINEPREFIX/drive_c
program="$drive/Program Files/Pevrix"
user=$drive/users/$(id -un)
windows_key='HKLM\Software\Microsoft\Windows\CurrentVersion'
camera_class='HKLM\Software\Classes\CLSID\{276143AA-B755-440E-834A-93CDEBCA334B}'
readers=() # folders of camreader, for each kind of programs that Wine runs
if [ -n "${PEVRIX_SOFTCAM:-}" ]; then
    echo "skipped: readers of the camera: its library is another one (PEVRIX_SOFTCAM)"
else
    readers+=(build/windows/tools)
    [ -z "${PEVRIX_WINE32:-}" ] || readers+=(build/windows-x86/tools)
    [ -n "${PEVRIX_WINE32:-}" ] || echo "skipped: 32-bit readers: Wine's half for them is not here"
fi
logs=$build/package-logs
rm -rf "$logs"
mkdir -p "$logs"

wine_run() { tools/windows/wine-run "$@" </dev/null; }

fail() {
    printf 'installer: %s.\n' "$1" >&2
    exit 1
}

has_key() { wine_run reg query "$@" >/dev/null 2>&1; }
registered() { has_key "$windows_key\Uninstall\Pevrix"; }
starts_with_windows() { has_key "$windows_key\Run" /v Pevrix; }

# listened TIMES
listened() { [ "$(grep -c 'listening on port' "$user/AppData/Local/Pevrix/pevrix.log")" = "$1" ]; }
uninstalled() { [ ! -e "$program/uninstall.exe" ] && ! registered; }

# wait_until WHAT COMMAND...
wait_until() {
    local what=$1 deadline=$((SECONDS + 60))
    shift
    until "$@"; do
        [ $SECONDS -lt $deadline ] || fail "$what"
        sleep 0.5
    done
}

# seen CAMERAS: how many cameras of ours a program of each kind lists.
seen() {
    local folder count
    for folder in "${readers[@]}"; do
        count=$(wine_run "$folder/camreader.exe" list | grep -c 'name="Pevrix"' || true)
        [ "$count" = "$1" ] || return 1
    done
}

# start_readers: one of each kind, whose lines go to $logs/reader0 and so on.
reader_pids=()
start_readers() {
    local folder log
    for folder in "${readers[@]}"; do
        log=$logs/reader${#reader_pids[@]}
        : >"$log"
        tools/windows/wine-run "$folder/camreader.exe" read >"$log" 2>&1 </dev/null &
        reader_pids+=($!)
        wait_until "a program could not read the camera" grep -q 'pictures=[1-9]' "$log"
    done
}

# readers_go_on WHEN: every reader that was started gets pictures.
readers_go_on() {
    local number before
    for number in "${!reader_pids[@]}"; do
        before=$(wc -l <"$logs/reader$number")
        sleep 1.2
        kill -0 "${reader_pids[$number]}" 2>/dev/null || fail "$1 a reader of the camera has ended"
        tail -n "+$((before + 1))" "$logs/reader$number" | grep -q 'pictures=[1-9]' ||
            fail "$1 a reader of the camera gets nothing"
    done
}

# live_everywhere: a sender with the installed library, whose pictures every reader gets.
live_everywhere() {
    local log
    [ ${#readers[@]} -gt 0 ] || return 0
    wine_run build/windows/tools/camsender.exe --library 'C:\Program Files\Pevrix\softcam.dll' 640x480@3 \
        >"$logs/sender" 2>&1 || fail "the installed camera library takes no pictures: $(cat "$logs/sender")"
    for log in "$logs"/reader*; do
        grep -q 'live=[1-9]' "$log" || fail "a reader of the camera (${log##*/}) has not got the new one's pictures"
    done
}

set_aside() { find "$program" -name 'softcam.dll.old*' | wc -l; }

option=/AUTOSTART
for round in first second; do
    wine_run "$installer" /S $option || fail "the $round installation ended with status $?"
    [ -f "$program/pevrix.exe" ] && [ -f "$program/pevrix-camsetup.exe" ] ||
        fail "the $round installation left no program"
    [ -f "$drive/ProgramData/Microsoft/Windows/Start Menu/Programs/Pevrix.lnk" ] ||
        fail "the $round installation left no start menu entry"
    registered || fail "the $round installation is not in the list of programs"
    starts_with_windows || fail "after the $round installation it does not start with Windows"
    option= # which an installation over another one keeps
    touch "$program/of-another-program.txt" # which nobody but its owner may delete
done

seen 1 || fail "programs do not list the camera after two installations"
timeout 120 tools/windows/wine-run "$program/pevrix.exe" --shot 540x640 --out "Z:$PWD/out/windows-installed.png" \
    </dev/null >/dev/null 2>&1 || fail "the installed program ended with status $?"
[ -s out/windows-installed.png ] || fail "the installed program did not show its window"
listened 1 || fail "the installed program did not listen"
mkdir -p "$user/AppData/Roaming/Pevrix"
touch "$user/AppData/Roaming/Pevrix/Pevrix.ini"

tools/windows/wine-run "$program/pevrix.exe" </dev/null >/dev/null 2>&1 &
wait_until "the installed program did not start a second time" listened 2
wine_run "$installer" /S && status=0 || status=$?
[ $status = 3 ] || fail "installing over the running program ended with status $status"
[ -f "$program/uninstall.exe" ] || fail "installing over the running program removed it"
wine_run taskkill /f /im pevrix.exe >/dev/null

start_readers
wine_run "$installer" /S || fail "installing over a camera that is read ended with status $?"
readers_go_on "after an installation over it,"
cmp -s "$program/softcam.dll" build/windows/package/Pevrix/softcam.dll &&
    [ "$(set_aside)" = ${#readers[@]} ] || fail "the camera library that is read was not set aside"
seen 1 || fail "programs do not list the camera after an installation over it"
start_readers # with the new libraries, beside those with the old ones
live_everywhere

wine_run "$program/uninstall.exe" /S
# It goes on in a copy of itself.
wait_until "it was not uninstalled" uninstalled
readers_go_on "after uninstalling,"
seen 0 || fail "uninstalling left the camera in the list"
! has_key "$camera_class" /reg:64 && ! has_key "$camera_class" /reg:32 ||
    fail "uninstalling left the camera registered"
[ "$(set_aside)" -ge ${#readers[@]} ] || fail "uninstalling did not set the libraries aside that are read"
kill "${reader_pids[@]}"
end_wine # as Windows that starts anew
wineserver -p >/dev/null 2>&1
boot_wine
[ "$(ls -A "$program")" = of-another-program.txt ] ||
    fail "uninstalling and starting Windows anew left: $(cd "$program" && find . -mindepth 1 | xargs)"
! starts_with_windows || fail "uninstalling left the start with Windows"
[ ! -e "$user/AppData/Local/Pevrix" ] || fail "uninstalling left the log"
[ ! -e "$drive/ProgramData/Microsoft/Windows/Start Menu/Programs/Pevrix.lnk" ] ||
    fail "uninstalling left the start menu entry"
[ -f "$user/AppData/Roaming/Pevrix/Pevrix.ini" ] || fail "uninstalling silently removed the settings"
echo "installed twice, started, refused while running, installed over a camera that ${#readers[@]} programs read,
which went on, uninstalled while they read; after a new start the settings alone are left"
