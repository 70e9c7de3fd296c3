# ./dev package: the Debian package of the program, installed, started and removed again on a
# throw-away copy of the environment.

command_package() {
    local package
    build_preset native --target pevrix softcam
    in_environment tools/dev/check-hardening build/native/bin/{pevrix,libsoftcam.so,libpevrix-ffmpeg.so} ||
        fail "the program is not hardened" "see the message above"
    rm -f out/*.deb
    mkdir -p out
    say "packaging"
    in_environment cpack --config build/native/CPackConfig.cmake -B "$project/build/package" \
        >"$(log_path package)" 2>&1 ||
        fail_with_log "packaging failed" "$(log_path package)"
    package=$(ls build/package/pevrix_*.deb)
    cp "$package" out/
    package=out/${package##*/}
    say "trying it: install, menu entry, start, remove"
    in_throwaway_root bash tools/dev/package-session.sh "$package" ||
        fail "the package does not work" "see the messages above"
    echo "$package: $(du -k "$package" | cut -f1) kB"
}

# in_throwaway_root CMD...: in the environment, with a writable layer over it that vanishes
# afterwards. As root there, whoever calls.
in_throwaway_root() {
    local lower=/ layer status=0 namespaces=(-m)
    [ "$environment_kind" = host ] || lower=$environment_root
    [ "$(id -u)" = 0 ] || namespaces=(-rm)
    mkdir -p "$cache_dir"
    layer=$(mktemp -d -p "$cache_dir")
    mkdir "$layer"/{upper,work,merged}
    unshare "${namespaces[@]}" bash -ec '
        layer=$1 lower=$2
        shift 2
        mount -t overlay overlay \
            -o "lowerdir=$lower,upperdir=$layer/upper,workdir=$layer/work" "$layer/merged"
        bwrap --bind "$layer/merged" / --dev-bind /dev /dev --proc /proc --tmpfs /run \
            --bind /tmp /tmp --bind "$PWD" "$PWD" --chdir "$PWD" --unshare-pid --die-with-parent \
            --setenv PATH /usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin -- "$@"
    ' - "$layer" "$lower" "$@" || status=$?
    rm -rf "$layer"
    return $status
}
