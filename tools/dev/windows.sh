# ./dev windows: the 64-bit Windows program, cross-compiled with MinGW-w64 and tested under Wine.
# With a Qt for Windows it is the whole program, without one the rooms that are free of Qt.
#
# PEVRIX_QT_WINDOWS=FOLDER  the Qt for Windows (default: qt-windows in this project's cache folder)

command_windows() {
    local action=${1:-}
    shift || true
    case $action in
        build | test) ;;
        *) fail "'windows' takes build or test" "for example: ./dev windows test" ;;
    esac
    find_windows_qt
    use_packages native windows
    ensure_environment
    build_windows
    [ "$action" = build ] || test_windows "$@"
}

# Sets windows_qt to the folder of the Qt for Windows, or to nothing where there is none.
find_windows_qt() {
    windows_qt=${PEVRIX_QT_WINDOWS:-$cache_dir/qt-windows}
    if [ -f "$windows_qt/lib/cmake/Qt6/Qt6Config.cmake" ]; then
        say "with the Qt for Windows in $windows_qt"
        export PEVRIX_QT_WINDOWS=$windows_qt
    elif [ -n "${PEVRIX_QT_WINDOWS:-}" ]; then
        fail "there is no Qt for Windows in $windows_qt" "set PEVRIX_QT_WINDOWS to the folder that has its lib/cmake"
    else
        say "without a Qt for Windows: only the rooms that are free of Qt"
        windows_qt=
    fi
}

build_windows() {
    local options=(-DPEVRIX_QT=OFF) log
    log=$(log_path configure-windows)
    if [ -n "$windows_qt" ]; then
        ensure_qrcodegen_source
        options=(-DPEVRIX_QT=ON "-DCMAKE_FIND_ROOT_PATH=$windows_qt" "-DCMAKE_PREFIX_PATH=$windows_qt"
            -DQT_HOST_PATH=/usr "-DQT_HOST_PATH_CMAKE_DIR=/usr/lib/$(uname -m)-linux-gnu/cmake"
            "-DPEVRIX_QRCODEGEN_SOURCE=$qrcodegen_source")
    fi
    # What was found with other options must not be used again.
    [ "$(cat build/windows/options 2>/dev/null)" = "${options[*]}" ] || options+=(--fresh)
    say "building (windows)"
    in_environment cmake --preset windows "${options[@]}" >"$log" 2>&1 ||
        fail_with_log "configuring 'windows' failed" "$log"
    printf '%s\n' "${options[*]/--fresh/}" | sed 's/ *$//' >build/windows/options
    in_environment cmake --build build/windows ||
        fail "building 'windows' failed" "mend the error above and run the command again"
}

# Debian has the QR library built for Linux only; its one source file is compiled for Windows.
ensure_qrcodegen_source() {
    qrcodegen_source=$cache_dir/qrcodegen
    [ ! -f "$qrcodegen_source/qrcodegen.cpp" ] || return 0
    say "fetching the source of the QR library"
    in_environment bash tools/dev/fetch-source.sh qr-code-generator "$qrcodegen_source.partial" \
        >"$(log_path qrcodegen)" 2>&1 ||
        fail_with_log "the source of the QR library could not be fetched" "$(log_path qrcodegen)"
    mv -T "$qrcodegen_source.partial/cpp" "$qrcodegen_source"
    rm -rf "$qrcodegen_source.partial"
}

test_windows() {
    say "testing under Wine (windows)"
    in_environment bash tools/dev/windows-session.sh "$@" ||
        fail "tests failed" "run one alone with: ./dev windows test -R NAME"
}
