#!/bin/sh
# Builds for 32-bit ARM, as the boards have it, warnings as errors, and runs under an
# emulator: the library, its own tests, those of the exchange and those of its faults, and
# the host's main job.
#
#   scripts/check_board.sh           these
#   scripts/check_board.sh --whole   the tests of the host, too, and all other programs: twice
#                                    the time
#
# Left out even then are the tests of the documents and of the reference (tests/documents,
# tests/reference): they hold texts against the build of the machine that one works on.
# Fewer, since an emulator takes ten times as long (tests/CMakeLists.txt and below it):
# random sequences of tests/model and tests/short_ways, 25 a test instead of 250; requests
# for memory that fail in tests/faults, each seventh; ONUs of the large agreement of
# explanations, a quarter; connections of the storm of clients, 1,000 instead of 10,000, and
# the host's memory is not measured there.
set -eu
cd "$(dirname "$0")/.."
scripts/install_packages.sh build board
build=build-board
emulator="qemu-arm -L /usr/arm-linux-gnueabihf"
scripts/unpack_board_packages.sh $build/packages
scripts/configure.sh $build --toolchain cmake/toolchains/arm-linux-gnueabihf.cmake \
  -DBOARD_PACKAGES="$PWD/$build/packages" -DCMAKE_BUILD_TYPE=Release \
  -DCMAKE_CXX_FLAGS_RELEASE=-O1
only=""
case "${1:-}" in
  --whole) cmake --build $build ;;
  "")
    programs="onu_ability_common_test exchange_test faults_test"
    # shellcheck disable=SC2086  # a list of names
    cmake --build $build --target olt_host write_exchanged_files $programs
    only="--only $(echo "$programs" | tr ' ' ,)"
    ;;
  *) echo "usage: $0 [--whole]" >&2; exit 2 ;;
esac

host=$build/src/olt_host/olt_host
# shellcheck disable=SC2086  # a command and its arguments
$emulator $host confirm data/catalogue.yaml data/reports.yaml --csv >$build/confirmed.csv
diff tests/olt_host/fixtures/shipped_confirmation.csv $build/confirmed.csv
onus=$(($(wc -l <$build/confirmed.csv) - 1))
# shellcheck disable=SC2086
scripts/run_test_programs.py $only $build $emulator >$build/tests.txt || { cat $build/tests.txt; exit 1; }
cat $build/tests.txt
echo "board: on 32-bit ARM $onus ONUs were confirmed as they are kept and" \
  "$(tail -n 1 $build/tests.txt)${only:+; the other programs: --whole}"
