# fetch-source.sh PACKAGE FOLDER [RELEASE]: unpacks the original source of a Debian package into FOLDER,
# of the environment's own release when none is named. Runs inside the build environment and keeps its
# own package lists, for those there are read-only.
set -euo pipefail

package=$1
folder=$2
release=${3:-}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

mkdir -p "$work"/{lists,archives}/partial
{
    sed -n 's/^deb /deb-src /p' /etc/apt/sources.list 2>/dev/null || true
    apt-get indextargets --format 'deb-src $(REPO_URI) $(RELEASE) $(COMPONENT)' \
        'Created-By: Packages' 2>/dev/null || true
} | sort -u | awk -v release="$release" '{ if (release != "") $3 = release; print }' >"$work/sources.list"
own_lists=(-o "Dir::Etc::sourcelist=$work/sources.list" -o Dir::Etc::sourceparts=-
    -o "Dir::State::lists=$work/lists" -o "Dir::Cache=$work" -o APT::Sandbox::User=)

cd "$work"
apt-get "${own_lists[@]}" update
apt-get "${own_lists[@]}" source --download-only --tar-only "$package"
rm -rf "$folder"
mkdir -p "$folder"
tar -xf "$work/${package}"_*.orig.tar.* -C "$folder" --strip-components=1
