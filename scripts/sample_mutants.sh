#!/bin/sh
# Changes the library's sources in small ways and fails when its tests do not notice: a
# sample, as large as two minutes allow, of which one in ten may pass unnoticed: so few
# vary. By hand, more and others, of which one in twenty may:
#
#   scripts/sample_mutants.sh --seed 7 --count 400 --seconds 7200
set -eu
cd "$(dirname "$0")/.."
scripts/install_packages.sh build
scripts/install_packages.sh mutants
make -s configure BUILD=build
cmake --build build --target onu_ability_common_test
[ $# -gt 0 ] || set -- --seed 1 --count 100 --seconds 90 --least 90
exec python3 scripts/mutate.py --build build "$@"
