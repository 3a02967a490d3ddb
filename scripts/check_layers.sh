#!/bin/sh
# Fails when an include runs against the direction of dependencies.
set -eu
cd "$(dirname "$0")/.."
scripts/install_packages.sh build
exec python3 scripts/layers.py
