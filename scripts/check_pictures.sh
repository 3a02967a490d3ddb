#!/bin/sh
# Fails when a picture of the documents is not that of its text, or the layers in it are
# not those that scripts/layers.py lets include each other. `make pictures` draws them.
set -eu
cd "$(dirname "$0")/.."
scripts/install_packages.sh build docs
exec python3 scripts/pictures.py check
