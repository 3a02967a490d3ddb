#!/bin/sh
# Runs the whole suite under the address, leak and undefined-behaviour
# sanitizers.
set -eu
cd "$(dirname "$0")/.."
scripts/install_packages.sh build
build=build-sanitizers
cmake -S . -B $build -G Ninja -DCMAKE_BUILD_TYPE=Debug -DONU_ABILITY_SANITIZE=address,undefined \
  >$build.log 2>&1 || { cat $build.log; exit 1; }
cmake --build $build
ctest --test-dir $build --output-on-failure -j "$(nproc)" --progress
