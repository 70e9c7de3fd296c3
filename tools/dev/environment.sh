# The build environment: the machine's own packages where they include Qt 6.8 or later, else a
# private Debian 13 root below the user's cache folder, entered with bubblewrap. Nothing of the
# machine changes in the second case, apart from the two small packages in `host_tools`.
#
# PEVRIX_ENVIRONMENT=host   use what is installed, check and install nothing
# PEVRIX_ENVIRONMENT=root   use the private root even where the machine's packages would do
# PEVRIX_DEBIAN_MIRROR=URL  the archive to take Debian 13 from (default: the machine's own)

qt_minimum=6.8
debian_release=trixie
host_tools=(mmdebstrap bubblewrap)
root_megabytes=4000 # what making the root needs at its peak, with a margin

# package_names LIST...: the names in lists of tools/packages, without their comments.
package_names() {
    local list
    for list in "$@"; do
        sed 's/#.*//' "tools/packages/$list.txt"
    done | xargs -n1
}

# use_packages LIST...: which lists the environment holds. The native one alone is the default; the
# Windows commands add theirs, so that nobody else downloads Wine.
use_packages() {
    environment_packages=$(package_names "$@")
    environment_root=$cache_dir/root-$(printf '%s\n' "$debian_release" $environment_packages |
        sha256sum | cut -c1-12)
}
use_packages native

ensure_environment() {
    [ -z "${PEVRIX_INSIDE:-}" ] || return 0
    find_environment_kind
    if [ "$environment_kind" = host ]; then
        [ "${PEVRIX_ENVIRONMENT:-}" = host ] || ensure_host_packages
    else
        ensure_root
    fi
}

# Sets environment_kind to "host" or "root". Fast, because every command asks.
find_environment_kind() {
    if [ -n "${PEVRIX_ENVIRONMENT:-}" ]; then
        environment_kind=$PEVRIX_ENVIRONMENT
    elif [ ! -d "$environment_root" ] && host_has_qt; then
        environment_kind=host
    else
        environment_kind=root
    fi
}

host_has_qt() {
    command -v apt-cache dpkg >/dev/null || return 1
    local candidate
    candidate=$(apt-cache policy qt6-base-dev 2>/dev/null | sed -n 's/^ *Candidate: //p')
    case $candidate in
        '') apt_update_once && candidate=$(apt-cache policy qt6-base-dev | sed -n 's/^ *Candidate: //p') ;;
    esac
    case $candidate in
        '' | '(none)') return 1 ;;
    esac
    dpkg --compare-versions "$candidate" ge "$qt_minimum"
}

# as_root CMD...: never asks for a password.
as_root() {
    if [ "$(id -u)" = 0 ]; then
        "$@"
    elif command -v sudo >/dev/null && sudo -n true 2>/dev/null; then
        sudo -n "$@"
    else
        return 1
    fi
}

apt_updated=
apt_update_once() {
    [ -z "$apt_updated" ] || return 0
    apt_updated=yes
    say "refreshing the package lists"
    as_root apt-get update >"$(log_path apt-update)" 2>&1 ||
        say "that failed (no network, or no root rights?); see $(log_path apt-update)"
}

# install_packages NAME...: with the machine's own package manager.
install_packages() {
    command -v apt-get >/dev/null ||
        fail "'$1' is missing and this machine has no apt-get" "install these yourself: $*"
    as_root true ||
        fail "installing packages needs root rights" "run as root: apt-get install $*"
    apt_update_once
    say "installing: $*"
    as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends "$@" \
        >"$(log_path apt-install)" 2>&1 ||
        fail_with_log "installing packages failed (no network, or the disk is full?)" \
            "$(log_path apt-install)"
}

ensure_host_packages() {
    local missing=() name
    for name in $environment_packages; do
        dpkg-query -W -f='${db:Status-Status}' "$name" 2>/dev/null | grep -q '^installed' ||
            missing+=("$name")
    done
    [ ${#missing[@]} = 0 ] || install_packages "${missing[@]}"
}

ensure_root() {
    command -v bwrap >/dev/null && [ -d "$environment_root" ] && return 0
    local missing=()
    command -v mmdebstrap >/dev/null || missing+=(mmdebstrap)
    command -v bwrap >/dev/null || missing+=(bubblewrap)
    [ ${#missing[@]} = 0 ] || install_packages "${missing[@]}"
    mkdir -p "$cache_dir" 2>/dev/null && [ -w "$cache_dir" ] ||
        fail "cannot write to $cache_dir" "set XDG_CACHE_HOME to a folder that you may write to"
    exec {lock}>"$cache_dir/root.lock"
    flock -n "$lock" || { say "another ./dev makes the environment; waiting" && flock "$lock"; }
    [ -d "$environment_root" ] || make_root
    exec {lock}>&-
}

# Makes the root beside its final name and renames it when it is whole: what lies under the final
# name can be trusted. The lock is held, so that any partial folder is a leftover.
make_root() {
    rm -rf "$cache_dir"/root-*.partial
    local free
    free=$(df -Pm "$cache_dir" | awk 'NR==2 {print $4}')
    [ "$free" -ge "$root_megabytes" ] ||
        fail "the environment needs $root_megabytes MB in $cache_dir, where $free MB are free" \
            "free some space, or set XDG_CACHE_HOME to a folder on a larger disk"
    local mirror partial=$environment_root.partial log
    log=$(log_path make-root)
    mirror=$(debian_mirror)
    [ -n "$mirror" ] ||
        fail "no Debian archive is known on this machine" \
            "set PEVRIX_DEBIAN_MIRROR to the address of one"
    say "making the build environment once, about two minutes: $environment_root"
    trap 'rm -rf "$partial"' EXIT
    trap 'exit 130' INT TERM
    write_apt_options >"$partial.apt"
    if ! unpack_root "$mirror" "$partial" "$log"; then
        rm -f "$partial.apt"
        fail_with_log "making the build environment failed (no network, or the disk is full?); \
mend that and run the command again" "$log"
    fi
    rm -f "$partial.apt"
    mv -T "$partial" "$environment_root"
    trap - EXIT INT TERM
}

# unpack_root MIRROR FOLDER LOG
unpack_root() {
    local options=(--variant=apt --include="$(echo $environment_packages | tr ' ' ,)"
        --aptopt="$2.apt" --dpkgopt=force-unsafe-io
        --dpkgopt='path-exclude=/usr/share/man/*' --dpkgopt='path-exclude=/usr/share/doc/*')
    if [ "$(id -u)" = 0 ]; then
        mmdebstrap "${options[@]}" "$debian_release" "$2" "$1" 2>&1
    else
        # Without root rights the files would belong to mapped users, which we could not remove.
        mkdir -p "$2" &&
            mmdebstrap --mode=unshare --format=tar "${options[@]}" "$debian_release" - "$1" |
            tar -x -C "$2" --exclude='./dev/*' --no-same-owner
    fi 2>&1 | tee "$3" | { grep --line-buffered '^I: ' || true; } >&2 || return 1
    # A mount point for the machine's own file, which bubblewrap cannot make in a read-only tree.
    touch "$2/etc/resolv.conf"
}

debian_mirror() {
    if [ -n "${PEVRIX_DEBIAN_MIRROR:-}" ]; then
        echo "$PEVRIX_DEBIAN_MIRROR"
        return
    fi
    local query=(apt-get indextargets --format '$(REPO_URI)|$(LABEL)' 'Created-By: Packages')
    command -v apt-get >/dev/null || return 0
    "${query[@]}" 2>/dev/null | grep -q '|Debian$' || apt_update_once
    "${query[@]}" 2>/dev/null | awk -F'|' '$2 == "Debian" {print $1; exit}'
}

# The machine's own way to its archive: proxy, certificates, checks.
write_apt_options() {
    apt-config dump 2>/dev/null | grep -E '^Acquire::(http|https|Check-[A-Za-z-]+|ForceIPv[46])\b' || true
    echo 'Acquire::Retries "3";'
    echo 'APT::Install-Recommends "false";'
}

# in_environment CMD...: the project, /tmp and the cache folder have the same paths inside; the
# network and the environment variables are the caller's.
in_environment() {
    if [ -n "${PEVRIX_INSIDE:-}" ]; then
        "$@"
        return
    fi
    export PEVRIX_INSIDE=1
    export CCACHE_DIR=${CCACHE_DIR:-$cache_dir/ccache} CCACHE_BASEDIR=$project
    export CCACHE_NOHASHDIR=1 CMAKE_CXX_COMPILER_LAUNCHER=ccache CMAKE_C_COMPILER_LAUNCHER=ccache
    local status=0
    if [ "$environment_kind" = host ]; then
        "$@" || status=$?
    else
        enter_root "$@" || status=$?
    fi
    unset PEVRIX_INSIDE
    return $status
}

# in_closed_environment CMD...: the same without a network, so that nothing calls home, and with
# processes that all end with the command. Needs bubblewrap in the environment where that is the machine.
in_closed_environment() {
    local bwrap_options=(--unshare-net --unshare-pid)
    if [ -n "${PEVRIX_INSIDE:-}" ] || [ "$environment_kind" = host ]; then
        in_environment bwrap --dev-bind / / --proc /proc "${bwrap_options[@]}" --die-with-parent -- "$@"
    else
        in_environment "$@"
    fi
}

bwrap_options=()
enter_root() {
    local root=$environment_root mounts=() entry
    for entry in bin sbin lib lib32 lib64; do
        [ -L "$root/$entry" ] && mounts+=(--symlink "usr/$entry" "/$entry")
    done
    mkdir -p "$cache_home"
    # A desktop to show windows on, where the machine has one.
    for entry in /tmp "$cache_home" "$project" "${PEVRIX_QT_WINDOWS:-}" "${XDG_RUNTIME_DIR:-}" \
        "${XAUTHORITY:-}"; do
        [ -n "$entry" ] && [ -e "$entry" ] && mounts+=(--bind "$entry" "$entry")
    done
    for entry in /etc/resolv.conf /etc/passwd /etc/group /etc/hosts; do
        [ -e "$entry" ] && [ -e "$root$entry" ] && mounts+=(--ro-bind "$entry" "$entry")
    done
    bwrap --tmpfs / --ro-bind "$root/usr" /usr --ro-bind "$root/etc" /etc \
        --ro-bind "$root/var" /var --tmpfs /var/tmp --tmpfs /run --dir "$HOME" \
        --dev-bind /dev /dev --proc /proc --ro-bind /sys /sys "${mounts[@]}" "${bwrap_options[@]}" \
        --setenv PATH "$PATH:/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin" \
        --unsetenv LIBRARY_PATH --unsetenv LD_LIBRARY_PATH \
        --chdir "$PWD" --die-with-parent -- "$@"
}
