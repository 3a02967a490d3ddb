#!/bin/sh
# Builds everything with the second compiler, warnings as errors, and runs the
# tests with what it built.
set -eu
cd "$(dirname "$0")/.."
scripts/install_packages.sh build
scripts/install_packages.sh check
build=build-clang
CC=clang CXX=clang++ cmake -S . -B $build -G Ninja >$build.log 2>&1 || { cat $build.log; exit 1; }
cmake --build $build
ctest --test-dir $build --output-on-failure -j "$(nproc)" --progress
