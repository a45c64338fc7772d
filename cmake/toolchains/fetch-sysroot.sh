#!/usr/bin/env bash
# Unpacks the arm64 libraries that the build links into a folder: fetch-sysroot.sh FOLDER PACKAGE...
# Takes the machine's package sources, but keeps lists, state and archives of its own below FOLDER.apt: neither the
# machine's architectures nor its packages change, and nobody need be root.
set -euo pipefail
export LC_ALL=C.UTF-8

mkdir -p "$1"
sysroot=$(cd "$1" && pwd)
shift
own=$sysroot.apt
mkdir -p "$own"/lists/partial "$own"/archives/partial
: >"$own/status" # nothing is installed there: the whole closure is resolved

apt() {
    apt-get -q -o APT::Architecture=arm64 -o APT::Architectures::=arm64 -o APT::Sandbox::User="$(id -un)" \
        -o Debug::NoLocking=1 -o Dir::State::Lists="$own/lists" -o Dir::State::status="$own/status" \
        -o Dir::Cache::archives="$own/archives" -o Dir::Cache::pkgcache= -o Dir::Cache::srcpkgcache= "$@"
}

# An absolute link would lead out of the folder.
make_links_relative() {
    local link target
    while IFS= read -r -d '' link; do
        target=$(readlink "$link")
        [[ $target != /* ]] || ln -sfn "$(realpath -m -s --relative-to="$(dirname "$link")" "$sysroot$target")" "$link"
    done < <(find "$sysroot" -type l -print0)
}

rm -f "$own"/archives/*.deb
apt update
apt install --yes --download-only --no-install-recommends "$@"
for archive in "$own"/archives/*.deb; do dpkg-deb -x "$archive" "$sysroot"; done
make_links_relative
echo "$*" >"$sysroot/complete"
