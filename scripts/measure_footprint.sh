#!/usr/bin/env bash
# Prints what each exported operation takes on 32-bit ARM: its stack, and what it asks
# the heap for; then the largest frames of the library as its compiler states them.
#
# The program is started by an emulator, which changes neither. Builds in
# build-footprint/.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install_packages.sh build board
build=build-footprint
scripts/configure.sh $build --toolchain cmake/toolchains/arm-linux-gnueabihf.cmake \
  -DCMAKE_BUILD_TYPE=Release "-DCMAKE_CXX_FLAGS=-fstack-usage -Wno-psabi" -DONU_ABILITY_BUILD_HOST=OFF \
  -DONU_ABILITY_BUILD_TESTS=OFF -DONU_ABILITY_BUILD_FOOTPRINT=ON
cmake --build $build --target onu_ability_footprint >>$build.log 2>&1 || { cat $build.log; exit 1; }
qemu-arm -L /usr/arm-linux-gnueabihf $build/bench/footprint/onu_ability_footprint

echo
echo "The library's largest frames, by the compiler"
find $build/src -name '*.su' -exec cat {} + | awk -F'\t' '{ print $2 "\t" $3 "\t" $1 }' |
  sort -rn | head -n 10 | sed "s|$PWD/||"
