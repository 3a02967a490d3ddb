#!/usr/bin/env bash
# Prints the size of the stripped release library for x86-64 and 32-bit ARM, and
# with a commit as argument how much it grew since:
#
#   scripts/measure_library_size.sh [COMMIT]
#
# Builds in build-size/. Needs and installs the cross compiler for ARM.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install_packages.sh build cross
work=build-size

# Bytes of the stripped library of the tree $1 built by the compilers with the
# prefix $2, in a directory named $3.
stripped_size() {
  local build="$work/$3"
  if ! cmake -S "$1" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DCMAKE_SYSTEM_NAME=Linux \
    -DCMAKE_C_COMPILER="$2gcc" -DCMAKE_CXX_COMPILER="$2g++" \
    -DONU_ABILITY_BUILD_HOST=OFF -DONU_ABILITY_BUILD_TESTS=OFF >"$build.log" 2>&1 ||
    ! cmake --build "$build" --target onu_ability_common >>"$build.log" 2>&1; then
    cat "$build.log" >&2
    exit 1
  fi
  "$2strip" -o "$build/stripped.so" "$build/src/onu_ability_common/libonu_ability_common.so"
  stat -c %s "$build/stripped.so"
}

mkdir -p "$work"
before=${1:-}
if [ -n "$before" ]; then
  rm -rf "$work/before"
  git clone -q . "$work/before"
  git -C "$work/before" checkout -q "$before"
fi
printf '%-14s %10s %10s %10s\n' "stripped" "bytes" "before" "growth"
for target in "x86-64:x86_64-linux-gnu-" "32-bit ARM:arm-linux-gnueabihf-"; do
  name=${target%%:*}
  prefix=${target##*:}
  now=$(stripped_size . "$prefix" "now-$prefix")
  if [ -n "$before" ]; then
    then=$(stripped_size "$work/before" "$prefix" "then-$prefix")
    printf '%-14s %10d %10d %9.1f%%\n' "$name" "$now" "$then" \
      "$(awk -v a="$now" -v b="$then" 'BEGIN { print (a - b) * 100 / b }')"
  else
    printf '%-14s %10d\n' "$name" "$now"
  fi
done
