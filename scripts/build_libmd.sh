#!/bin/sh
# Builds libmd, which the state file's checksum comes from, for an architecture that
# Debian has no packages of, from Debian's source package:
#
#   scripts/build_libmd.sh TRIPLET DIRECTORY    installs into DIRECTORY
#
# apt fetches and verifies the sources with lists of its own in DIRECTORY.
set -eu
scripts=$(cd "$(dirname "$0")" && pwd)
triplet=$1
mkdir -p "$2"
cd "$2"
here=$PWD
if [ -e lib/pkgconfig/libmd.pc ]; then
  exit 0
fi
site=$("$scripts/debian_site.sh")
mkdir -p apt/lists/partial apt/cache/archives/partial
echo "deb-src $site bookworm main" >apt/sources.list
apt_get() {
  apt-get -qq -o APT::Sandbox::User=root -o Dir::State="$here/apt" \
    -o Dir::State::status=/var/lib/dpkg/status -o Dir::Cache="$here/apt/cache" \
    -o Dir::Etc::sourcelist="$here/apt/sources.list" -o Dir::Etc::sourceparts=/dev/null "$@"
}
echo "==> Building libmd for $triplet in $here"
apt_get update
apt_get source --download-only libmd
mkdir -p source
tar -C source --strip-components=1 -xf libmd_*.orig.tar.xz
cd source
{
  ./configure --host="$triplet" --prefix="$here" --disable-shared --disable-dependency-tracking &&
    make -s -C src install && make -s -C include install
} >"$here/build.log" 2>&1 || { cat "$here/build.log"; exit 1; }
rm -rf "$here/apt" "$here/source" "$here"/libmd_*
