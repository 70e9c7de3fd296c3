# ./dev windows: the 64-bit Windows program, cross-compiled with MinGW-w64 and tested under Wine.
# Its Qt is the one in PEVRIX_QT_WINDOWS, else qt-windows in this project's cache folder, else one
# that is built from source. 'windows test' goes without: the rooms that are free of Qt need minutes.
#
# PEVRIX_QT_WINDOWS=FOLDER  the Qt for Windows
# PEVRIX_SOFTCAM=FILE       another camera library for the program that is run or packaged
source tools/windows/camera.sh

command_windows() {
    local action=${1:-}
    shift || true
    case $action in
        build | test | run | package) ;;
        *) fail "'windows' takes build, test, run or package" "for example: ./dev windows test" ;;
    esac
    find_windows_qt
    use_packages native windows
    ensure_environment
    [ -n "$windows_qt" ] || [ "$action" = test ] || build_windows_qt
    build_windows
    [ "$action" = build ] || ensure_wine32
    case $action in
        test) test_windows "$@" ;;
        run) run_windows "$@" ;;
        package) source tools/windows/package.sh && package_windows ;;
    esac
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
        windows_qt=
    fi
}

build_windows_qt() {
    windows_qt=$cache_dir/qt-windows
    say "there is no Qt for Windows; building it takes about 50 minutes on two cores, once \
(interrupted, it goes on where it stopped; PEVRIX_QT_WINDOWS names one that you have)"
    in_environment tools/windows/build-qt "$windows_qt" ||
        fail "Qt for Windows could not be built" "see the message above"
    export PEVRIX_QT_WINDOWS=$windows_qt
}

build_windows() {
    local options=(-DPEVRIX_QT=OFF) log
    ensure_libyuv_source
    [ -n "$windows_qt" ] || say "without a Qt for Windows: only the rooms that are free of Qt"
    log=$(log_path configure-windows)
    if [ -n "$windows_qt" ]; then
        ensure_qrcodegen_source
        options=(-DPEVRIX_QT=ON "-DCMAKE_FIND_ROOT_PATH=$windows_qt" "-DCMAKE_PREFIX_PATH=$windows_qt"
            -DQT_HOST_PATH=/usr "-DQT_HOST_PATH_CMAKE_DIR=/usr/lib/$(uname -m)-linux-gnu/cmake"
            "-DPEVRIX_QRCODEGEN_SOURCE=$qrcodegen_source")
    fi
    options+=("-DPEVRIX_LIBYUV_SOURCE=$libyuv_source")
    # What was found with other options must not be used again.
    [ "$(cat build/windows/options 2>/dev/null)" = "${options[*]}" ] || options+=(--fresh)
    say "building (windows)"
    in_environment cmake --preset windows "${options[@]}" >"$log" 2>&1 ||
        fail_with_log "configuring 'windows' failed" "$log"
    printf '%s\n' "${options[*]/--fresh/}" | sed 's/ *$//' >build/windows/options
    in_environment cmake --build build/windows ||
        fail "building 'windows' failed" "mend the error above and run the command again"
    build_windows_x86
    [ -z "$windows_qt" ] || deploy_windows build/windows/bin --qml tests/qml
}

# deploy_windows FOLDER [OPTION...]: puts beside the programs in the folder what they need to start.
deploy_windows() {
    in_environment tools/windows/deploy --qt "$windows_qt" --qml qml "${@:2}" "$1" ||
        fail "the Windows programs in $1 lack something" "see the message above"
}

# Debian has these libraries built for Linux only; they are compiled for Windows with the program.
ensure_qrcodegen_source() {
    qrcodegen_source=$cache_dir/qrcodegen
    ensure_source qr-code-generator "$qrcodegen_source" cpp
}
ensure_libyuv_source() {
    libyuv_source=$cache_dir/libyuv
    ensure_source libyuv "$libyuv_source"
}

# ensure_source PACKAGE FOLDER [PART]: a Debian package's source, or a folder of it, made once.
# Not every archive keeps the sources of each release; the release before it serves as well.
ensure_source() {
    local log partial=$2.partial
    [ ! -d "$2" ] || return 0
    log=$(log_path "source-$1")
    say "fetching the source of $1"
    in_environment bash tools/dev/fetch-source.sh "$1" "$partial" >"$log" 2>&1 ||
        in_environment bash tools/dev/fetch-source.sh "$1" "$partial" bookworm >>"$log" 2>&1 ||
        fail_with_log "the source of $1 could not be fetched" "$log"
    mv -T "$partial${3:+/$3}" "$2"
    rm -rf "$partial"
}

# stage_camera FOLDER: the camera library, and the one for 32-bit programs below it; or the one that
# PEVRIX_SOFTCAM names, which comes alone.
stage_camera() {
    if [ -n "${PEVRIX_SOFTCAM:-}" ]; then
        cp "$PEVRIX_SOFTCAM" "$1/softcam.dll"
        return
    fi
    mkdir -p "$1/x86"
    cp build/windows/bin/softcam.dll "$1/"
    cp build/windows/bin/x86/softcam.dll "$1/x86/"
}

# stage_windows_program: build/windows/program/, the program as a person has it.
stage_windows_program() {
    local bin=build/windows/bin program=build/windows/program
    rm -rf "$program"
    mkdir -p "$program"
    cp -l "$bin"/{pevrix.exe,pevrix-camsetup.exe,*.dll,qt.conf} "$program/"
    cp -rl "$bin"/{plugins,qml} "$program/"
    rm -f "$program"/{testcam*,softcam}.dll
    stage_camera "$program"
}

test_windows() {
    say "testing under Wine (windows)"
    in_environment xvfb-run -a bash tools/windows/session.sh "$@" ||
        fail "tests failed" "run one alone with: ./dev windows test -R NAME"
    [ $# = 0 ] || return 0
    try_windows_camera
    if [ -n "$windows_qt" ]; then
        build_preset native --target phonesim
        PEVRIX_SOFTCAM= stage_windows_program
        say "the program, with a simulated phone"
        in_environment bash tools/windows/program-session.sh ||
            fail "the Windows program failed" "see the messages above"
    fi
}

run_windows() {
    local display=()
    if [ -z "${DISPLAY:-}" ]; then
        say "there is no display: the window is on a virtual one, of which --shot takes a picture"
        display=(xvfb-run -a)
    fi
    stage_windows_program
    in_environment "${display[@]}" tools/windows/wine-run build/windows/program/pevrix.exe "$@"
}
