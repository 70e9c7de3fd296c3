# ./dev windows package: the Windows program as a ZIP and as an installer, which is then run under
# Wine: installed, installed over itself, started and uninstalled, with programs that read the camera.
#
# PEVRIX_SIGN=COMMAND  signs a file, its last argument, in place: the program, its libraries and the
#                      helper before they are packed, the installer and the uninstaller as they are made

package_windows() {
    local stage=build/windows/package/Pevrix version
    version=$(sed -n 's/^project(Pevrix VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
    rm -rf build/windows/package out/Pevrix-*
    mkdir -p "$stage" out
    cp build/windows/bin/{pevrix,pevrix-camsetup}.exe packaging/windows/NOTICES.txt "$stage/"
    cp assets/icons/app-icon.ico build/windows/package/
    # NSIS reads no other kind of picture; twice its place, for screens of a finer scale.
    in_environment rsvg-convert --width 328 --output build/windows/package/side.png \
        assets/icons/installer-side.svg
    in_environment ffmpeg -loglevel error -i build/windows/package/side.png -pix_fmt bgr24 \
        build/windows/package/side.bmp
    stage_camera "$stage"
    deploy_windows "$stage"
    in_environment tools/dev/check-hardening "$stage"/{pevrix,pevrix-camsetup}.exe \
        build/windows/bin/softcam.dll build/windows/bin/x86/softcam.dll ||
        fail "the Windows program is not hardened" "see the message above"
    sign_ours "$stage"
    mkdir "$stage/licences"
    in_environment cp /usr/share/common-licenses/{GPL-3,LGPL-3} "$stage/licences/"

    say "packing"
    (cd build/windows/package && in_environment cmake -E tar cf "$project/out/Pevrix-$version.zip" \
        --format=zip Pevrix)
    make_installer "$version" "$stage" "out/Pevrix-$version-setup.exe"

    say "trying the installer under Wine"
    in_environment xvfb-run -a bash tools/windows/package-session.sh \
        "out/Pevrix-$version-setup.exe" ||
        fail "the installer does not work" "see the messages above"
    du -k out/Pevrix-* | awk '{print $2 ": " $1 " kB"}'
}

# sign_ours STAGE: what is built here; the libraries of others are as their makers left them.
sign_ours() {
    [ -n "${PEVRIX_SIGN:-}" ] || return 0
    local file
    for file in "$1"/{pevrix,pevrix-camsetup}.exe "$1/softcam.dll" "$1/x86/softcam.dll"; do
        [ ! -f "$file" ] || in_environment bash -c "$PEVRIX_SIGN \"\$1\"" sign "$file" ||
            fail "$file could not be signed" "PEVRIX_SIGN is: $PEVRIX_SIGN"
    done
}

# make_installer VERSION STAGE FILE
make_installer() {
    local sign=()
    [ -z "${PEVRIX_SIGN:-}" ] || sign=("-DSIGN=$PEVRIX_SIGN")
    list_for_uninstaller "$2" "$2-lists"
    in_environment makensis -V2 "-DVERSION=$1" "-DSTAGE=$project/$2" "-DLISTS=$project/$2-lists" \
        "-DART=$project/build/windows/package" "-DOUTFILE=$project/$3" \
        ${sign[@]+"${sign[@]}"} \
        packaging/windows/pevrix.nsi >"$(log_path installer)" 2>&1 ||
        fail_with_log "making the installer failed" "$(log_path installer)"
}

# list_for_uninstaller STAGE FOLDER: what the installer puts on a machine, as NSIS commands.
list_for_uninstaller() {
    mkdir -p "$2"
    (cd "$1" && find . -type f -printf 'Delete "$INSTDIR\\%P"\n') | tr / '\\' >"$2/delete-files.nsh"
    (cd "$1" && find . -depth -mindepth 1 -type d -printf 'RMDir "$INSTDIR\\%P"\n') |
        tr / '\\' >"$2/remove-folders.nsh"
}
