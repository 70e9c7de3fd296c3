# The Windows camera library for 32-bit programs, and the trial of both libraries under Wine. Sourced
# by windows.sh.

# Builds what 32-bit programs load, and lays the library beside its 64-bit sibling.
build_windows_x86() {
    local log
    log=$(log_path configure-windows-x86)
    say "building (windows-x86)"
    in_environment cmake --preset windows-x86 "-DPEVRIX_LIBYUV_SOURCE=$libyuv_source" >"$log" 2>&1 ||
        fail_with_log "configuring 'windows-x86' failed" "$log"
    in_environment cmake --build build/windows-x86 ||
        fail "building 'windows-x86' failed" "mend the error above and run the command again"
    mkdir -p build/windows/bin/x86
    cp -u build/windows-x86/bin/softcam.dll build/windows/bin/x86/
}

# Lets the environment's Wine run 32-bit programs: exports PEVRIX_WINE32, the folder of what that needs.
# Without it (no archive has it) whatever is of 32 bits is skipped, and says so.
ensure_wine32() {
    local folder partial log
    folder=$cache_dir/wine32-$(in_environment dpkg-query -W -f '${Version}' libwine)
    if [ ! -d "$folder" ]; then
        log=$(log_path wine32)
        partial=$folder.$$.partial
        say "fetching what Wine needs for 32-bit programs"
        if ! in_environment bash tools/windows/fetch-wine32.sh "$partial" >"$log" 2>&1; then
            rm -rf "$partial"
            say "no archive has it ($log): what is of 32 bits is skipped"
            return
        fi
        mv -T "$partial" "$folder" 2>/dev/null || rm -rf "$partial" # another ./dev was faster
    fi
    export PEVRIX_WINE32=$folder
}

# The camera library alone, with a sender and readers of ours.
try_windows_camera() {
    say "the camera library, with readers of 64 and 32 bits"
    in_environment bash tools/windows/camera-session.sh ||
        fail "the camera library failed" "see the messages above"
}
