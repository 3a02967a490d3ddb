#!/bin/sh
# Builds everything with the second compiler, warnings as errors, under the address,
# leak and undefined-behaviour sanitizers, and runs the whole suite with what it built.
# `make test` has run it with the first compiler, without them. Random sequences of
# operations are 50 a test instead of 250, ONUs of the large agreement of explanations an
# eighth, random networks of tests/olt_host/recognition a quarter (tests/CMakeLists.txt and below
# it); the tests of the documents and of the reference (tests/documents, tests/reference) are left
# out.
#
# What was run is counted on the way: every line and every branch of the library has to
# be, but for those that scripts/coverage_exclusions.txt names, with the reason for each.
set -eu
cd "$(dirname "$0")/.."
build=build-sanitizers
scripts/build_sanitizers.sh
rm -rf $build/profiles
LLVM_PROFILE_FILE=$PWD/$build/profiles/%4m.profraw scripts/run_test_programs.py $build \
  >$build/tests.txt 2>&1 || { cat $build/tests.txt; exit 1; }
echo "sanitizers: $(tail -n 1 $build/tests.txt)"
exec python3 scripts/coverage.py $build scripts/coverage_exclusions.txt
