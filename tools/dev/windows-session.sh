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

# Made beside its final name: a folder that is there is whole.
if [ ! -d "$WINEPREFIX" ]; then
    echo "making a Wine home, about half a minute"
    final=$WINEPREFIX
    export WINEPREFIX=$final.partial
    rm -rf "$WINEPREFIX"
    tools/dev/wine-run wineboot --init
    end_wine
    mv -T "$WINEPREFIX" "$final"
    export WINEPREFIX=$final
fi

# One server for all tests: it starts once.
wineserver -p

if [ -z "${PEVRIX_QT_WINDOWS:-}" ]; then
    ctest --preset windows "$@"
else
    compiler=x86_64-w64-mingw32ucrt-g++
    libraries="Z:$PEVRIX_QT_WINDOWS/bin"
    for library in libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll; do
        libraries+=";Z:$(dirname "$(realpath "$($compiler -print-file-name=$library)")")"
    done
    WINEPATH=$libraries xvfb-run -a ctest --preset windows "$@"
fi
