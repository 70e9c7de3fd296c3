# Installs the Debian package given, checks what desktops read of it, starts the program as its menu
# entry does, and removes it. Runs as root of a system that is thrown away afterwards.
set -euo pipefail

package=$1
id=example.pevrix.Pevrix
entry=/usr/share/applications/$id.desktop
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

fail() {
    printf 'package: %s.\n' "$1" >&2
    cat "$work"/*.log "$work"/Pevrix/pevrix.log 2>/dev/null >&2 || true
    exit 1
}

dpkg -i "$package" >"$work/install.log" 2>&1 || fail "it cannot be installed"
dpkg -L pevrix | while read -r file; do
    [ -d "$file" ] || echo "$file"
done >"$work/files"
desktop-file-validate "$entry" || fail "the menu entry is not valid"
appstreamcli validate --no-net --explain "/usr/share/metainfo/$id.metainfo.xml" >"$work/appstream.log" 2>&1 ||
    fail "the description for software centres is not valid"
ls /usr/share/icons/hicolor/*/apps/$id.* >/dev/null || fail "the menu entry has no icon"

! ldd /usr/lib/pevrix/lib*.so | grep 'not found' >&2 || fail "what a library needs is not there"

command=$(sed -n 's/^Exec=//p' "$entry")
# Away from the build folder, so that nothing is found there by chance.
cd /
export LOCALAPPDATA=$work HOME=$work XDG_RUNTIME_DIR=$work
timeout 120 xvfb-run -a sh -c "$command --shot 540x640 --out $work/window.png" >"$work/run.log" 2>&1 ||
    fail "the program ended with status $?"
grep -q 'listening on port' "$work/Pevrix/pevrix.log" || fail "the program did not listen"
[ -s "$work/window.png" ] || fail "the program did not show its window"

dpkg -r pevrix >"$work/remove.log" 2>&1 || fail "it cannot be removed"
while read -r file; do
    [ ! -e "$file" ] || fail "$file is left behind"
done <"$work/files"
echo "installed, shown as its menu entry shows it, removed without a trace"
