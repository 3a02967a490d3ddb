#!/bin/sh
# Runs every test of the library under valgrind's memcheck, each in a process of its own:
# an invalid access, a decision on memory that nobody set, or a leak fails its test.
# tests/support/valgrind.supp names the leak that is meant. The host's programs stay with
# the sanitizers: they start programs of their own, which takes far longer than all this,
# seven minutes on two cores.
set -eu
cd "$(dirname "$0")/.."
scripts/install_packages.sh build memcheck
make -s configure BUILD=build
cmake --build build --target onu_ability_common_test
log=build/memcheck.log
valgrind -q --error-exitcode=99 --leak-check=full --show-leak-kinds=definite \
  --errors-for-leak-kinds=definite --suppressions=tests/support/valgrind.supp --num-callers=20 \
  build/tests/onu_ability_common_test --separate-processes --jobs "$(nproc)" --timeout 600 \
  >$log 2>&1 || { cat $log; exit 1; }
echo "memcheck: $(tail -n 1 $log)"
