#!/bin/sh
# Runs the commands of the documents that a test of a document cannot run, because they
# build, or measure for minutes: those that tests/documents/run_elsewhere.txt has for this
# script. As they stand in the documents where that is possible; the others on less work.
set -eu
cd "$(dirname "$0")/.."
scripts/install_packages.sh build bench clang
build=build-written-commands
log=$build.log
quietly() {
  "$@" >$log 2>&1 </dev/null || { tail -n 60 $log; echo "failed: $*"; exit 1; }
}

# A list of types of one's own: the help has them.
mkdir -p $build
echo "64999 WRITTEN-TYPE" >$build/types.txt
quietly make build BUILD=$build CMAKE_FLAGS="-DONU_ABILITY_ONU_TYPES=$PWD/$build/types.txt \
  -DONU_ABILITY_BUILD_BENCH=ON -DONU_ABILITY_BUILD_HOST=OFF -DONU_ABILITY_BUILD_TESTS=OFF"
grep -q WRITTEN-TYPE $build/src/onu_ability_common/libonu_ability_common.so ||
  { echo "the library does not name the types of its installation"; exit 1; }

# Some rows of the benchmark, the plot, and the table of two runs.
quietly make bench BENCH_BUILD=$build BENCH_PLOT=$build/plot.svg \
  BENCH_FILTER='^number_by_key/.*/2000|^number/floor/10/'
quietly bench/report.py $build/results.json --before $build/results.json

# The programs that fuzz are those that the fuzz gate has left.
[ -d build-sanitizers/found/catalogue ] || quietly scripts/check_fuzz.sh 1

# A fuzz target counts lines, and leaves the counts where it stands unless told otherwise.
export LLVM_PROFILE_FILE=/dev/null
tests/documents/run_elsewhere.py scripts/check_written_commands.sh >$log || { cat $log; exit 1; }
cat $log
echo "written commands: $(tail -n 1 $log), beside three on less work"
