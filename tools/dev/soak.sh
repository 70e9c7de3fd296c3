# ./dev soak [MINUTES]: the program for long, under load, in the release build and in that with
# sanitizers, on a display, a media service and a network of their own.

soak_usage() {
    cat <<'TEXT'
Usage: ./dev soak [MINUTES [storms|endings]]

Runs the program for about MINUTES (20 when left out, at least 1; 3 are enough to see whether
something is broken) under everything at once: 1080p video, phones and cables that come and go in
good order and in bad, strangers in thousands, readers of the camera, recordings; then programs that
are ended or killed at any moment, full disks, few descriptors. Prints what was demanded and what was
seen, row by row as docs/reliability.md numbers them, and fails where one does not hold. Counts are
those of a run of 20 minutes; a shorter one does its share. The builds come on top of the time.
"storms" and "endings" run the first or the second half alone.
TEXT
}

command_soak() {
    local minutes=${1:-20} part=${2:-}
    case $minutes in
        -h | --help | help) soak_usage && return ;;
        '' | *[!0-9]* | 0*) fail "'$minutes' is no number of minutes" "./dev soak --help tells more" ;;
    esac
    case $part in
        '' | storms | endings) ;;
        *) fail "'$part' is no part of it" "./dev soak --help tells more" ;;
    esac
    ensure_environment
    build_preset native --target pevrix softcam pevrix-ffmpeg pevrix_soak pevrix-shortage
    build_preset asan --target pevrix softcam pevrix-ffmpeg
    rm -rf out/soak
    mkdir -p out/soak
    LSAN_OPTIONS=suppressions=$project/tests/support/leaks.supp:print_suppressions=0 \
        in_closed_environment xvfb-run -a -s '-screen 0 540x640x24' \
        build/native/bin/pevrix_soak --release build/native/bin --sanitized build/asan/bin \
        --out "$project/out/soak" --minutes "$minutes" --part "$part" ||
        fail "not every row held" "the table above says which"
}
