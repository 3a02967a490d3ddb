#!/bin/sh
# Builds the library, its tests and what the host keeps in files for a 32-bit machine that
# has the most significant byte first, warnings as errors, and runs them under an emulator:
# no byte order is assumed, and what one machine writes another reads (tests/exchange).
#
# Debian has no packages for it: the test framework and the one library that a state file
# needs are built from their sources, the host's other libraries are not, and so the host
# itself is left out. Left out as well are programs in which a byte order shows nothing
# that it does not show in those that run: shortages of memory (tests/faults), threads
# (tests/threads), and random sequences that compare the library with itself
# (tests/short_ways, tests/fuzz). Random sequences against the model are 25 a test
# instead of 250, an emulator being slow.
set -eu
cd "$(dirname "$0")/.."
scripts/install_packages.sh build big_endian
build=build-big-endian
emulator="qemu-ppc -L /usr/powerpc-linux-gnu"
scripts/build_libmd.sh powerpc-linux-gnu $build/libmd
PKG_CONFIG_LIBDIR=$PWD/$build/libmd/lib/pkgconfig scripts/configure.sh $build \
  --toolchain cmake/toolchains/powerpc-linux-gnu.cmake -DONU_ABILITY_BUILD_HOST=OFF \
  -DONU_ABILITY_GTEST_SOURCES=/usr/src/googletest/googletest -DCMAKE_BUILD_TYPE=Release \
  -DCMAKE_CXX_FLAGS_RELEASE=-O1
programs="onu_ability_common_test exchange_test model_test"
# shellcheck disable=SC2086  # a list of names
cmake --build $build --target onu_ability_common write_exchanged_files $programs

# What this machine writes is what is kept, and so what the others read.
mkdir -p $build/written
$emulator $build/tests/exchange/write_exchanged_files $build/written
diff -r tests/exchange/fixtures $build/written
# shellcheck disable=SC2086  # a command and its arguments
scripts/run_test_programs.py --only "$(echo $programs | tr ' ' ,)" $build $emulator \
  >$build/tests.txt || { cat $build/tests.txt; exit 1; }
cat $build/tests.txt
echo "big-endian: with 32 bits $(tail -n 1 $build/tests.txt); files written to the byte as they" \
  "are kept; without the host, tests/faults, tests/threads, tests/short_ways and tests/fuzz"
