#!/bin/sh
# Builds targets, or everything, with the second compiler, warnings as errors, under the
# address, leak and undefined-behaviour sanitizers, instrumented for the fuzzer and for
# counting what was run:
#
#   scripts/build_sanitizers.sh [TARGET...]
#
# One build for the gates that need any of it: check_fuzz.sh and check_sanitizers.sh.
# Optimised a little: the random sequences, which are most of the time, run in a third of
# it.
set -eu
cd "$(dirname "$0")/.."
scripts/install_packages.sh build clang
build=build-sanitizers
CC=clang CXX=clang++ scripts/configure.sh $build -DCMAKE_BUILD_TYPE=Debug \
  -DCMAKE_CXX_FLAGS_DEBUG="-O1 -gline-tables-only" -DCMAKE_C_FLAGS_DEBUG="-O1 -gline-tables-only" \
  -DONU_ABILITY_SANITIZE=address,undefined -DONU_ABILITY_FUZZ=ON
# shellcheck disable=SC2048,SC2086  # names of targets
cmake --build $build ${*:+--target $*} >>$build.log 2>&1 || { tail -n 60 $build.log; exit 1; }
