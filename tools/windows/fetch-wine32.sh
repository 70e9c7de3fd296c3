# fetch-wine32.sh FOLDER: makes FOLDER/i386-windows, the libraries with which the environment's 64-bit
# Wine runs 32-bit programs. They come from Debian's package for 32-bit PCs, of the environment's release
# or else of the unstable one, as long as it is the same version of Wine. Runs inside the build
# environment; ends with status 1 when no archive has them.
set -euo pipefail

folder=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
wanted=$(dpkg-query -W -f '${Version}' libwine)
# Up to Debian's own revision: what Wine's two halves have to share.
upstream=${wanted%-*}

# fetch_from RELEASE: the package, into the working folder. An empty release is the environment's own.
fetch_from() {
    local architecture=i386 own version
    rm -rf "$work"/{lists,archives}
    mkdir -p "$work"/{lists,archives}/partial
    {
        sed -n '/^deb /p' /etc/apt/sources.list 2>/dev/null || true
        apt-get indextargets --format 'deb $(REPO_URI) $(RELEASE) $(COMPONENT)' \
            'Created-By: Packages' 2>/dev/null || true
    } | awk -v release="$1" '{ if (release != "") $3 = release; print }' | sort -u >"$work/sources.list"
    own=(-o "Dir::Etc::sourcelist=$work/sources.list" -o Dir::Etc::sourceparts=-
        -o "Dir::State::lists=$work/lists" -o "Dir::Cache=$work" -o "Dir::State::status=$work/none"
        -o "APT::Architecture=$architecture" -o "APT::Architectures::=$architecture"
        -o APT::Sandbox::User=)
    : >"$work/none"
    apt-get "${own[@]}" update || return 1
    version=$(apt-cache "${own[@]}" madison libwine | awk -F' *[|] *' -v start="$upstream-" \
        'index($2, start) == 1 {print $2; exit}')
    [ -n "$version" ] || return 1
    (cd "$work" && apt-get "${own[@]}" download "libwine=$version")
}

fetch_from '' || fetch_from unstable
rm -rf "$folder"
mkdir -p "$folder"
dpkg-deb --fsys-tarfile "$work"/libwine_*.deb |
    tar -x -C "$folder" --strip-components=5 --wildcards './usr/lib/*/wine/i386-windows'
# Four fifths are debugging information, which every Wine home would get a copy of.
find "$folder/i386-windows" -type f -print0 |
    xargs -0 i686-w64-mingw32-strip --strip-debug 2>/dev/null || true
