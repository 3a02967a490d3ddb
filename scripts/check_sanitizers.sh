#!/bin/sh
# Builds everything with the second compiler, warnings as errors, under the address,
# leak and undefined-behaviour sanitizers, and runs the whole suite with what it built.
# `make test` has run it with the first compiler, without them. Optimised a little: the
# random sequences, which are most of the time, run in a third of it.
set -eu
cd "$(dirname "$0")/.."
scripts/install_packages.sh build
scripts/install_packages.sh check
build=build-sanitizers
CC=clang CXX=clang++ cmake -S . -B $build -G Ninja -DCMAKE_BUILD_TYPE=Debug \
  -DCMAKE_CXX_FLAGS_DEBUG="-O1 -gline-tables-only" -DCMAKE_C_FLAGS_DEBUG="-O1 -gline-tables-only" \
  -DONU_ABILITY_SANITIZE=address,undefined >$build.log 2>&1 || { cat $build.log; exit 1; }
cmake --build $build
ctest --test-dir $build --output-on-failure -j "$(nproc)" --progress
