#!/bin/sh
# Fails when a source is not formatted as .clang-format says.
set -eu
cd "$(dirname "$0")/.."
scripts/install_packages.sh lint
git ls-files -z '*.h' '*.cpp' '*.c' | xargs -0 clang-format --dry-run --Werror
echo "format: $(git ls-files '*.h' '*.cpp' '*.c' | wc -l) files are formatted"
