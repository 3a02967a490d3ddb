#!/bin/sh
# Storms the library with many threads: under clang's thread sanitizer, for 12 seconds or
# as many as the first argument says, and three times as long without it, when more
# happens at once. clang's thread-safety analysis of what guards what is part of every
# build with clang, so of this one.
set -eu
cd "$(dirname "$0")/.."
seconds=${1:-12}
scripts/install_packages.sh build clang
build=build-threads
CC=clang CXX=clang++ scripts/configure.sh $build -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DONU_ABILITY_SANITIZE=thread -DONU_ABILITY_BUILD_HOST=OFF
cmake --build $build --target threads_test
# A deadlock ends, too.
TSAN_OPTIONS=halt_on_error=1:second_deadlock_stack=1 \
  timeout --verbose $((seconds + 300)) $build/tests/threads/threads_test --seconds "$seconds"
echo "threads: no race in $seconds s; now without the sanitizer"
make -s configure BUILD=build
cmake --build build --target threads_test
timeout --verbose $((seconds * 3 + 300)) build/tests/threads/threads_test --seconds $((seconds * 3))
