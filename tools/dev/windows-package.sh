# ./dev windows package: the Windows program as a ZIP and as an installer, which is then run under
# Wine: installed, installed over itself, started and uninstalled, with programs that read the camera.

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
    mkdir "$stage/licences"
    in_environment cp /usr/share/common-licenses/{GPL-3,LGPL-3} "$stage/licences/"

    say "packing"
    (cd build/windows/package && in_environment cmake -E tar cf "$project/out/Pevrix-$version.zip" \
        --format=zip Pevrix)
    make_installer "$version" "$stage" "out/Pevrix-$version-setup.exe"

    say "trying the installer under Wine"
    in_environment xvfb-run -a bash tools/dev/windows-package-session.sh \
        "out/Pevrix-$version-setup.exe" ||
        fail "the installer does not work" "see the messages above"
    du -k out/Pevrix-* | awk '{print $2 ": " $1 " kB"}'
}

# make_installer VERSION STAGE FILE
make_installer() {
    list_for_uninstaller "$2" "$2-lists"
    in_environment makensis -V2 "-DVERSION=$1" "-DSTAGE=$project/$2" "-DLISTS=$project/$2-lists" \
        "-DART=$project/build/windows/package" "-DOUTFILE=$project/$3" \
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
