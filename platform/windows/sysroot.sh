#!/bin/sh
# sysroot.sh DEST: unpacks the C++ and Windows headers that the ARM build compiles against into DEST.
#
# They come from two Debian packages that are only unpacked, never installed: libc++-19-dev conflicts
# with what a developer's machine has. A finished DEST is left alone.
set -eu

readonly packages='libc++-19-dev mingw-w64-common'

if [ $# -ne 1 ]; then
  echo "usage: $0 DEST" >&2
  exit 2
fi
mkdir -p "$1"
dest=$(cd "$1" && pwd)
stamp="$dest/.complete"

if [ -f "$stamp" ] && [ "$(cat "$stamp")" = "$packages" ]; then
  exit 0
fi

fail() {
  echo "sysroot.sh: $1" >&2
  exit 1
}

command -v apt-get >/dev/null || fail 'apt-get is needed to download the header packages'
command -v dpkg-deb >/dev/null || fail 'dpkg-deb is needed to unpack the header packages'

# Download into a folder of our own: a failed attempt must not leave half a package in DEST.
scratch=$(mktemp -d "$dest/.download.XXXXXX")
trap 'rm -rf "$scratch"' EXIT
# apt-get drops privileges when it downloads as root and must be able to write here.
chmod 755 "$scratch"

for package in $packages; do
  if ! (cd "$scratch" && apt-get -o APT::Sandbox::User=root download "$package" >apt.log 2>&1); then
    cat "$scratch/apt.log" >&2
    fail "cannot download the Debian package $package (has 'apt-get update' been run?)"
  fi
done
for archive in "$scratch"/*.deb; do
  dpkg-deb --extract "$archive" "$dest" || fail "cannot unpack $(basename "$archive")"
done

[ -f "$dest/usr/lib/llvm-19/include/c++/v1/type_traits" ] || fail 'libc++ headers are missing'
[ -f "$dest/usr/share/mingw-w64/include/windows.h" ] || fail 'Windows headers are missing'
echo "$packages" >"$stamp"
