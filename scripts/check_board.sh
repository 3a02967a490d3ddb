#!/bin/sh
# Builds everything for 32-bit ARM, as the boards have it, warnings as errors, and runs the
# whole suite and the host's main job under an emulator, and measures what each operation
# takes there. Twenty minutes on two cores.
#
# Left out are the tests of the documents and of the reference (tests/documents,
# tests/reference): they hold texts against the build of the machine that one works on.
# Fewer, since an emulator takes ten times as long (tests/CMakeLists.txt and below it):
# random sequences of tests/model and tests/short_ways, 25 a test instead of 250; requests
# for memory that fail in tests/faults, each seventh; ONUs of the large agreement of
# explanations, an eighth; random networks of tests/olt_host/recognition, a quarter; connections
# of the storm of clients, 1,000 instead of 10,000, and the host's memory is not measured there.
set -eu
cd "$(dirname "$0")/.."
scripts/install_packages.sh build board
build=build-board
emulator="qemu-arm -L /usr/arm-linux-gnueabihf"
scripts/unpack_board_packages.sh $build/packages
scripts/configure.sh $build --toolchain cmake/toolchains/arm-linux-gnueabihf.cmake \
  -DBOARD_PACKAGES="$PWD/$build/packages" -DCMAKE_BUILD_TYPE=Release \
  -DCMAKE_CXX_FLAGS_RELEASE=-O1
cmake --build $build

host=$build/src/olt_host/olt_host
# shellcheck disable=SC2086  # a command and its arguments
$emulator $host confirm data/catalogue.yaml data/reports.yaml --csv >$build/confirmed.csv
diff tests/olt_host/fixtures/shipped_confirmation.csv $build/confirmed.csv
onus=$(($(wc -l <$build/confirmed.csv) - 1))
# shellcheck disable=SC2086
scripts/run_test_programs.py $build $emulator >$build/tests.txt || { cat $build/tests.txt; exit 1; }
cat $build/tests.txt
scripts/measure_footprint.sh >$build/footprint.txt || { cat $build/footprint.txt; exit 1; }
tail -n 1 $build/footprint.txt
echo "board: on 32-bit ARM $onus ONUs were confirmed as they are kept and" \
  "$(tail -n 1 $build/tests.txt)"
