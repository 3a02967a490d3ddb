#!/bin/sh
# Fails when the derived files under data/ differ from what the facts give.
set -eu
cd "$(dirname "$0")/.."
scripts/install_packages.sh build
exec python3 scripts/derive_data.py --check
