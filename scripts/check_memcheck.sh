#!/bin/sh
# Runs the tests of the library and of what the host is made of under valgrind's memcheck,
# each in a process of its own: an invalid access, a decision on memory that nobody set, or
# a leak fails its test. tests/support/valgrind.supp names the leak that is meant. Nine
# minutes on two cores.
#
# Left to the sanitizers are the tests that start programs of the host, or hundreds of
# processes each, which takes far longer than all this: its sessions and transports, its
# command line, networks and populations, shortages, threads and random sequences.
set -eu
cd "$(dirname "$0")/.."
scripts/install_packages.sh build memcheck
make -s configure BUILD=build
programs="onu_ability_common_test exchange_test"
for part in text platform catalogue confirmation state; do
  programs="$programs olt_host_${part}_test"
done
# shellcheck disable=SC2086  # names of targets
cmake --build build --target $programs
# shellcheck disable=SC2086
scripts/run_test_programs.py --only "$(echo $programs | tr ' ' ,)" build valgrind -q \
  --error-exitcode=99 --leak-check=full --show-leak-kinds=definite \
  --errors-for-leak-kinds=definite --suppressions="$PWD/tests/support/valgrind.supp" \
  --num-callers=20 >build/memcheck.log || { cat build/memcheck.log; exit 1; }
sed 's/^/memcheck: /' build/memcheck.log
