#!/bin/sh
# Builds the library and its tests with the second compiler on the second standard
# library, warnings as errors, and runs them. The test framework is built from its
# sources, since the packaged one is for the first. tests/installation is left out: its
# list of exported names is the first library's. Random sequences of operations are 50 a test
# instead of 250.
set -eu
cd "$(dirname "$0")/.."
scripts/install_packages.sh build libcxx
build=build-libcxx
CC=clang CXX=clang++ scripts/configure.sh $build -DCMAKE_BUILD_TYPE=Release \
  -DCMAKE_CXX_FLAGS=-stdlib=libc++ -DCMAKE_CXX_FLAGS_RELEASE=-O1 -DONU_ABILITY_BUILD_HOST=OFF \
  -DONU_ABILITY_GTEST_SOURCES=/usr/src/googletest/googletest
cmake --build $build
scripts/run_test_programs.py $build >$build/tests.txt || { cat $build/tests.txt; exit 1; }
cat $build/tests.txt
echo "libc++: $(tail -n 1 $build/tests.txt); tests/installation was left out"
