#!/bin/sh
# Runs clang-tidy over every source of the library, the host, the tests and the
# benchmark. The checks are in .clang-tidy; a finding is an error.
set -eu
cd "$(dirname "$0")/.."
scripts/install_packages.sh build
scripts/install_packages.sh check
scripts/install_packages.sh bench
build=build-lint
CC=clang CXX=clang++ cmake -S . -B $build -G Ninja -DONU_ABILITY_BUILD_BENCH=ON \
  >$build.log 2>&1 || { cat $build.log; exit 1; }
cmake --build $build --target onu_type_help >>$build.log 2>&1 || { cat $build.log; exit 1; }
git ls-files -z 'src/*.cpp' 'tests/*.cpp' 'bench/*.cpp' |
  xargs -0 -n 4 -P "$(nproc)" clang-tidy -p $build --quiet 2>$build.errors || { cat $build.errors; exit 1; }
echo "lint: $(git ls-files 'src/*.cpp' 'tests/*.cpp' 'bench/*.cpp' | wc -l) sources are clean"
