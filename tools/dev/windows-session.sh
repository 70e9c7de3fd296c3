# The tests of the Windows build under Wine, inside the environment; arguments go to ctest. With a
# Qt for Windows (PEVRIX_QT_WINDOWS) on a virtual display, otherwise without any.
set -euo pipefail

build=$PWD/build/windows
export WINEPREFIX=$build/wine
unset DISPLAY WAYLAND_DISPLAY
# Some of Wine's libraries complain when there is none.
export XDG_RUNTIME_DIR=${XDG_RUNTIME_DIR:-$build}

end_wine() {
    wineserver -k 2>/dev/null || true
    wineserver -w 2>/dev/null || true
}
trap end_wine EXIT

boot_wine() {
    if ! tools/dev/wine-run wineboot --init >"$build/wine.log" 2>&1 </dev/null; then
        cat "$build/wine.log"
        echo "Wine did not start"
        exit 1
    fi
}

# Made beside its final name: a folder that is there is whole.
if [ ! -d "$WINEPREFIX" ]; then
    echo "making a Wine home, about half a minute"
    final=$WINEPREFIX
    export WINEPREFIX=$final.partial
    rm -rf "$WINEPREFIX"
    boot_wine
    end_wine
    mv -T "$WINEPREFIX" "$final"
    export WINEPREFIX=$final
fi

# Wine's server and services start here, for all tests, and away from our output: a service holds
# on to the output of whoever starts it, and ctest waits until nobody does.
wineserver -p >/dev/null 2>&1
boot_wine

# Every program is one test to ctest, which does not see what a program skips.
list_skipped() {
    sed -n '/: Skipped$/{n;s/\r//;h}
        /^\[  SKIPPED \] .* ms)/{s/^\[  SKIPPED \] \(.*\) (.*/skipped: \1: /;G;s/\n//;s/\r//;p}' \
        "$build/Testing/Temporary/LastTest.log"
}

status=0
if [ -z "${PEVRIX_QT_WINDOWS:-}" ]; then
    ctest --preset windows "$@" || status=$?
else
    compiler=x86_64-w64-mingw32ucrt-g++
    libraries="Z:$PEVRIX_QT_WINDOWS/bin"
    for library in libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll; do
        libraries+=";Z:$(dirname "$(realpath "$($compiler -print-file-name=$library)")")"
    done
    WINEPATH=$libraries xvfb-run -a ctest --preset windows "$@" || status=$?
fi
list_skipped
exit $status
