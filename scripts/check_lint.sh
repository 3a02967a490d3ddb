#!/bin/sh
# Runs clang-tidy over every source of the library, the host, the tests and the
# benchmark. The checks are in .clang-tidy; a finding is an error.
#
# In the tests the static analyzer is told not to follow every call: their paths are
# really run, under sanitizers, and following them through the test framework takes
# five times as long as everything else together.
set -eu
cd "$(dirname "$0")/.."
scripts/install_packages.sh build
scripts/install_packages.sh check
scripts/install_packages.sh bench
build=build-lint
CC=clang CXX=clang++ cmake -S . -B $build -G Ninja -DONU_ABILITY_BUILD_BENCH=ON -DONU_ABILITY_BUILD_FOOTPRINT=ON \
  -DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON \
  >$build.log 2>&1 || { cat $build.log; exit 1; }
cmake --build $build --target onu_type_help >>$build.log 2>&1 || { cat $build.log; exit 1; }

# lint PATTERNS... [-- OPTIONS...]: one source a time, so that a slow one holds up no other.
lint() {
  patterns=""
  while [ $# -gt 0 ] && [ "$1" != "--" ]; do patterns="$patterns $1"; shift; done
  [ $# -eq 0 ] || shift
  # shellcheck disable=SC2086  # a list of patterns
  git ls-files -z $patterns |
    xargs -0 -n 1 -P "$(nproc)" clang-tidy -p $build --quiet "$@" 2>$build.errors ||
    { cat $build.errors; exit 1; }
}
set -f
lint 'src/*.cpp' 'bench/*.cpp'
lint 'tests/*.cpp' -- --extra-arg=-Xclang --extra-arg=-analyzer-config \
  --extra-arg=-Xclang --extra-arg=mode=shallow
echo "lint: $(git ls-files 'src/*.cpp' 'tests/*.cpp' 'bench/*.cpp' | wc -l) sources are clean"
