#!/bin/sh
# Unpacks the libraries that the host needs on 32-bit ARM into DIRECTORY:
#
#   scripts/unpack_board_packages.sh DIRECTORY
#
# They are Debian's own packages for that architecture, fetched by apt with lists and
# settings of its own in DIRECTORY: this system's packages, and the architectures that
# it knows, stay as they are, and nobody has to be root once apt has lists.
set -eu
scripts=$(cd "$(dirname "$0")" && pwd)
packages="libyaml-cpp-dev libyaml-cpp0.7 libspdlog-dev libspdlog1.10 libfmt-dev libfmt9
  libedit-dev libedit2 libbsd0 libmd-dev libmd0 libtinfo6 libtelnet-dev libtelnet2 zlib1g
  libcrypt-dev libcrypt1 libgtest-dev"
mkdir -p "$1"
cd "$1"
here=$PWD
if [ -e packages.list ] && [ "$(cat packages.list)" = "$packages" ]; then
  exit 0
fi
rm -rf packages.list apt debs usr lib
site=$("$scripts/debian_site.sh")
mkdir -p apt/lists/partial apt/cache/archives/partial debs
echo "deb $site bookworm main" >apt/sources.list
: >apt/status
apt_get() {
  apt-get -qq -o APT::Architecture=armhf -o APT::Architectures=armhf -o APT::Sandbox::User=root \
    -o Dir::State="$here/apt" -o Dir::State::status="$here/apt/status" \
    -o Dir::Cache="$here/apt/cache" -o Dir::Etc::sourcelist="$here/apt/sources.list" \
    -o Dir::Etc::sourceparts=/dev/null "$@"
}
echo "==> Unpacking Debian's packages for armhf in $here"
apt_get update
# shellcheck disable=SC2086  # a list of names
(cd debs && apt_get download $packages)
for deb in debs/*.deb; do dpkg-deb -x "$deb" .; done
# Links that start at the root would lead to this system's libraries, or nowhere.
find . -type l -lname '/*' | while read -r link; do
  ln -sfn "$here$(readlink "$link")" "$link"
done
rm -rf apt debs
echo "$packages" >packages.list
