# ./dev gallery: a picture of every view of the interface, dark and light, into docs/gallery/.

command_gallery() {
    [ $# = 0 ] || fail "the gallery takes no arguments" \
        "build/native/bin/pevrix_gallery --help tells what the program itself can do"
    build_preset native --target pevrix_gallery
    local theme
    for theme in dark light; do
        say "photographing the $theme theme"
        photograph --theme "$theme"
        photograph --theme "$theme" --scale 2 --suffix -200 --views pairing,live,settings-camera
    done
}

photograph() {
    in_environment xvfb-run -a -s '-screen 0 1280x1400x24' \
        build/native/bin/pevrix_gallery --out docs/gallery "$@" ||
        fail "not every picture was taken ($*)" "mend the error above"
}
