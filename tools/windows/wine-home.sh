# Sourced by the sessions that run Windows programs: a Wine home of this build's own, made when it is
# missing, with its server running until the session ends. Wine draws on the display that it was
# started with, or nowhere when there was none.

build=$PWD/build/windows
export WINEPREFIX=${wine_home:-$build/wine}
unset WAYLAND_DISPLAY
# Some of Wine's libraries complain when there is none.
export XDG_RUNTIME_DIR=${XDG_RUNTIME_DIR:-$build}

end_wine() {
    wineserver -k 2>/dev/null || true
    wineserver -w 2>/dev/null || true
}
trap end_wine EXIT

boot_wine() {
    if ! tools/windows/wine-run wineboot --init >"$build/wine.log" 2>&1 </dev/null; then
        cat "$build/wine.log"
        echo "Wine did not start"
        exit 1
    fi
}

# One that was made without the half for 32-bit programs never gets it.
if [ -n "${PEVRIX_WINE32:-}" ] && [ ! -f "$WINEPREFIX/drive_c/windows/syswow64/quartz.dll" ]; then
    rm -rf "$WINEPREFIX"
fi

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

# Wine's server and services start here, for all programs, and away from our output: a service holds
# on to the output of whoever starts it, and ctest waits until nobody does.
wineserver -p >/dev/null 2>&1
boot_wine
