#!/bin/sh
# Fuzzes the targets of tests/fuzz with libFuzzer, each from its kept corpus, under the
# address and undefined-behaviour sanitizers.
#
#   scripts/check_fuzz.sh [SECONDS]    so many for each target, two targets at a time;
#                                      with --seed 0 along other ways than the gate's
#   scripts/check_fuzz.sh --coverage   what the kept corpora alone reach, source by source
#
# An input that fails is kept in build-fuzz/failing/, what was found on the way in
# build-fuzz/found/, where the next run goes on from. tests/fuzz/README.md tells more.
set -eu
cd "$(dirname "$0")/.."
scripts/install_packages.sh build
scripts/install_packages.sh fuzz
build=build-fuzz
CC=clang CXX=clang++ cmake -S . -B $build -G Ninja -DCMAKE_BUILD_TYPE=Debug \
  -DCMAKE_CXX_FLAGS_DEBUG="-O1 -gline-tables-only" -DONU_ABILITY_SANITIZE=address,undefined \
  -DONU_ABILITY_FUZZ=ON >$build.log 2>&1 || { cat $build.log; exit 1; }
cmake --build $build --target fuzz_targets >>$build.log 2>&1 || { tail -n 60 $build.log; exit 1; }
exec python3 scripts/fuzz_targets.py $build "$@"
