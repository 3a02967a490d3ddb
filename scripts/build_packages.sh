#!/bin/sh
# Builds the Debian packages of the library and of olt_host into build-packages/. The tools
# work in a copy of what they need of the tree, so that nothing of theirs is left in it.
set -eu
cd "$(dirname "$0")/.."
scripts/install_packages.sh build packages
build="build-packages"
version=$(sed -n 's/^project(.* VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
if [ "$(dpkg-parsechangelog -S Version)" != "$version" ]; then
  echo "$0: debian/changelog does not begin with version $version of the project" >&2
  exit 1
fi
rm -rf $build
mkdir -p $build/source
cp -R CMakeLists.txt cmake data debian docs examples src $build/source
(cd $build/source && DEB_BUILD_OPTIONS="nocheck parallel=$(nproc)" \
  dpkg-buildpackage --build=binary --unsigned-source --unsigned-changes) \
  >$build/build.log 2>&1 || { cat $build/build.log; exit 1; }
ls $build/*.deb
