#!/bin/sh
# fetch-nginx.sh DIR: unpacks the nginx that the tests start into DIR (DIR/usr/sbin/nginx), without installing it, which
# would start a service. Does nothing when it is there already, and needs the network only when it is not.
set -eu
dir=${1:?usage: fetch-nginx.sh DIR}
nginx=$dir/usr/sbin/nginx
libraries=$dir/usr/lib/$(uname -m)-linux-gnu

works() { [ -x "$nginx" ] && LD_LIBRARY_PATH=$libraries "$nginx" -v >/dev/null 2>&1; }

if works; then
    echo "nginx is there: $nginx"
    exit 0
fi
mkdir -p "$dir"
downloads=$(mktemp -d "$dir/download.XXXXXX")
trap 'rm -rf "$downloads"' EXIT

fetch() { # package
    echo "unpacking $1 into $dir"
    (cd "$downloads" && apt-get -q -o APT::Sandbox::User="$(id -un)" download "$1") || {
        echo "cannot download $1: run 'apt-get update' as root, then this script again" >&2
        exit 1
    }
    dpkg-deb -x "$downloads/$1"_*.deb "$dir"
}

fetch nginx
works || fetch libpcre2-8-0
works || { echo "$nginx does not start:" >&2; ldd "$nginx" >&2; exit 1; }
echo "nginx is ready: $nginx"
