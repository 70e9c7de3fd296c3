# Runs the installers given, without and with a camera library, under Wine, in a Wine home of its own:
# silently, once more over itself, starts the installed program, then the one with a camera over it;
# uninstalls, and looks for what is left.
set -euo pipefail

installer=$1
with_camera=$2
build=$PWD/build/windows
wine_home=$build/installed-wine
rm -rf "$wine_home"
source tools/dev/wine-home.sh

drive=$WINEPREFIX/drive_c
program="$drive/Program Files/Pevrix"
user=$drive/users/$(id -un)
windows_key='HKLM\Software\Microsoft\Windows\CurrentVersion'
# Where the camera library of the tests registers itself.
camera_key='HKCU\Software\Pevrix registration test\CLSID'

wine_run() { tools/dev/wine-run "$@" </dev/null; }

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

# The camera library is not ours to ship; without one the program takes no phones.
[ -f "$program/softcam.dll" ] || cp "$build/bin/testcam.dll" "$program/softcam.dll"
timeout 120 tools/dev/wine-run "$program/pevrix.exe" --shot 540x640 --out "Z:$PWD/out/windows-installed.png" \
    </dev/null >/dev/null 2>&1 || fail "the installed program ended with status $?"
[ -s out/windows-installed.png ] || fail "the installed program did not show its window"
listened 1 || fail "the installed program did not listen"
mkdir -p "$user/AppData/Roaming/Pevrix"
touch "$user/AppData/Roaming/Pevrix/Pevrix.ini"

tools/dev/wine-run "$program/pevrix.exe" </dev/null >/dev/null 2>&1 &
wait_until "the installed program did not start a second time" listened 2
wine_run "$with_camera" /S && status=0 || status=$?
[ $status = 3 ] || fail "installing over the running program ended with status $status"
[ -f "$program/uninstall.exe" ] || fail "installing over the running program removed it"
wine_run taskkill /f /im pevrix.exe >/dev/null

! cmp -s "$build/bin/testcam.dll" "$program/softcam.dll" || rm "$program/softcam.dll"
wine_run "$with_camera" /S || fail "the installation with a camera ended with status $?"
has_key "$camera_key" || fail "the installer did not register the camera"

wine_run "$program/uninstall.exe" /S
# It goes on in a copy of itself.
wait_until "it was not uninstalled" uninstalled
[ "$(ls -A "$program")" = of-another-program.txt ] ||
    fail "uninstalling left: $(cd "$program" && find . -type f | xargs)"
! has_key "$camera_key" || fail "uninstalling left the camera registered"
! starts_with_windows || fail "uninstalling left the start with Windows"
[ ! -e "$user/AppData/Local/Pevrix" ] || fail "uninstalling left the log"
[ ! -e "$drive/ProgramData/Microsoft/Windows/Start Menu/Programs/Pevrix.lnk" ] ||
    fail "uninstalling left the start menu entry"
[ -f "$user/AppData/Roaming/Pevrix/Pevrix.ini" ] || fail "uninstalling silently removed the settings"
echo "installed twice, started, refused while running, installed with a camera, uninstalled; the settings alone are left"
