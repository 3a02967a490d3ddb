#!/bin/sh
# Fuzzes the targets of tests/fuzz with libFuzzer, each from its kept corpus, under the
# address and undefined-behaviour sanitizers.
#
#   scripts/check_fuzz.sh [SECONDS]    so many for each target, two targets at a time;
#                                      with --seed 0 along other ways than the gate's
#   scripts/check_fuzz.sh --coverage   what the kept corpora alone reach, source by source
#
# An input that fails is kept in build-sanitizers/failing/, what was found on the way in
# build-sanitizers/found/, where the next run goes on from. tests/fuzz/README.md tells more.
set -eu
cd "$(dirname "$0")/.."
scripts/build_sanitizers.sh fuzz_targets
exec python3 scripts/fuzz_targets.py build-sanitizers "$@"
