# Shared by ./dev and its parts: messages and the places of logs and caches.

cache_home=${XDG_CACHE_HOME:-$HOME/.cache}
cache_dir=$cache_home/pevrix

say() { printf 'dev: %s\n' "$*" >&2; }

# fail WHAT REMEDY: one line that says what failed and what to do next.
fail() {
    printf 'dev: %s; %s.\n' "$1" "$2" >&2
    exit 1
}

# fail_with_log WHAT FILE: the end of the log, then the one line.
fail_with_log() {
    tail -n 25 "$2" >&2 || true
    fail "$1" "the whole output is in $2"
}

log_path() {
    mkdir -p "$project/build/logs"
    printf '%s/build/logs/%s.log' "$project" "$1"
}
