#!/bin/sh
# Has CMake configure a build tree: configure.sh BUILD [OPTION...]. What it says is in
# BUILD.log, and shown when it fails.
set -eu
cd "$(dirname "$0")/.."
build=$1
shift
cmake -S . -B "$build" -G Ninja "$@" >"$build.log" 2>&1 || { cat "$build.log"; exit 1; }
