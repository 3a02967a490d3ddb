#!/bin/sh
# Runs clang-tidy over every source of the library, the host, the tests and the
# benchmark, and shellcheck over every script. The checks are in .clang-tidy; a finding is
# an error.
#
# In the tests the static analyzer is told not to follow every call: their paths are
# really run, under sanitizers, and following them through the test framework takes
# five times as long as everything else together. scripts/lint.py takes several sources in
# one go.
set -eu
cd "$(dirname "$0")/.."
scripts/install_packages.sh build lint bench
build=build-lint
CC=clang CXX=clang++ scripts/configure.sh $build -DONU_ABILITY_BUILD_BENCH=ON \
  -DONU_ABILITY_BUILD_FOOTPRINT=ON -DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON \
  -DONU_ABILITY_TOGETHER=OFF
cmake --build $build --target onu_type_help >>$build.log 2>&1 || { cat $build.log; exit 1; }

# shellcheck disable=SC2046  # lists of files without blanks
# SC2100 takes the name of a build folder for a sum.
shellcheck --exclude=SC2100 .ci/run $(git ls-files '*.sh')
# shellcheck disable=SC2046
scripts/lint.py $build $(git ls-files 'src/*.cpp' 'bench/*.cpp')
# shellcheck disable=SC2046
scripts/lint.py $build $(git ls-files 'tests/*.cpp') -- --extra-arg=-Xclang \
  --extra-arg=-analyzer-config --extra-arg=-Xclang --extra-arg=mode=shallow
echo "lint: $(git ls-files 'src/*.cpp' 'tests/*.cpp' 'bench/*.cpp' | wc -l) sources and $(git ls-files '*.sh' | wc -l) scripts are clean"
