#!/usr/bin/env bash
# Prints what each exported operation takes on 32-bit ARM: its stack, and what it asks
# the heap for; then the largest frames of the library as its compiler states them. Fails
# when an operation takes a kilobyte of stack or more, as docs/footprint.md promises.
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
rows=$build/operations.txt
qemu-arm -L /usr/arm-linux-gnueabihf $build/bench/footprint/onu_ability_footprint >$rows
cat $rows
echo
echo "The library's largest frames, by the compiler"
find $build/src -name '*.su' -exec cat {} + | awk -F'\t' '{ print $2 "\t" $3 "\t" $1 }' |
  sort -rn | sed -n "s|$PWD/||; 1,10p"

# The stack is the fifth column from the end.
awk 'NR > 1 && $(NF - 4) >= 1024 { large = large "\n" $0 }
     NR > 1 && $(NF - 4) > most { most = $(NF - 4) }
     END { if (NR < 2) { print "nothing was measured"; exit 1 }
           if (large) { print "a kilobyte of stack or more:" large; exit 1 }
           print "\nfootprint: " NR - 1 " operations, none takes more than " most " bytes of stack" }' $rows
