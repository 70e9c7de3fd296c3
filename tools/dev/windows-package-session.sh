# Runs the installer given under Wine, in a Wine home of its own: silently, once more over itself,
# starts the installed program, uninstalls it, and looks for what is left.
set -euo pipefail

installer=$1
build=$PWD/build/windows
wine_home=$build/installed-wine
rm -rf "$wine_home"
source tools/dev/wine-home.sh

drive=$WINEPREFIX/drive_c
program="$drive/Program Files/Pevrix"
user=$drive/users/$(id -un)
uninstall_key='HKLM\Software\Microsoft\Windows\CurrentVersion\Uninstall\Pevrix'

wine_run() { tools/dev/wine-run "$@" </dev/null; }

fail() {
    printf 'installer: %s.\n' "$1" >&2
    exit 1
}

registered() { wine_run reg query "$uninstall_key" >/dev/null 2>&1; }

for round in first second; do
    wine_run "$installer" /S || fail "the $round installation ended with status $?"
    [ -f "$program/pevrix.exe" ] && [ -f "$program/pevrix-camsetup.exe" ] ||
        fail "the $round installation left no program"
    [ -f "$drive/ProgramData/Microsoft/Windows/Start Menu/Programs/Pevrix.lnk" ] ||
        fail "the $round installation left no start menu entry"
    registered || fail "the $round installation is not in the list of programs"
    touch "$program/of-another-program.txt" # which nobody but its owner may delete
done

# The camera library is not ours to ship; without one the program takes no phones.
[ -f "$program/softcam.dll" ] || cp "$build/bin/testcam.dll" "$program/softcam.dll"
timeout 120 tools/dev/wine-run "$program/pevrix.exe" --shot 540x640 --out "Z:$PWD/out/windows-installed.png" \
    </dev/null >/dev/null 2>&1 || fail "the installed program ended with status $?"
[ -s out/windows-installed.png ] || fail "the installed program did not show its window"
grep -q 'listening on port' "$user/AppData/Local/Pevrix/pevrix.log" ||
    fail "the installed program did not listen"
mkdir -p "$user/AppData/Roaming/Pevrix"
touch "$user/AppData/Roaming/Pevrix/Pevrix.ini"

cmp -s "$build/bin/testcam.dll" "$program/softcam.dll" && rm "$program/softcam.dll"
wine_run "$program/uninstall.exe" /S
# It goes on in a copy of itself.
deadline=$((SECONDS + 60))
while [ -e "$program/uninstall.exe" ] || registered; do
    [ $SECONDS -lt $deadline ] || fail "it was not uninstalled"
    sleep 0.5
done
[ "$(ls -A "$program")" = of-another-program.txt ] ||
    fail "uninstalling left: $(cd "$program" && find . -type f | xargs)"
[ ! -e "$user/AppData/Local/Pevrix" ] || fail "uninstalling left the log"
[ ! -e "$drive/ProgramData/Microsoft/Windows/Start Menu/Programs/Pevrix.lnk" ] ||
    fail "uninstalling left the start menu entry"
[ -f "$user/AppData/Roaming/Pevrix/Pevrix.ini" ] || fail "uninstalling silently removed the settings"
echo "installed twice, started, uninstalled; the settings alone are left"
