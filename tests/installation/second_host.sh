#!/bin/sh
# second_host.sh CMAKE BUILD CC CXX FLAG [EMULATOR...]: installs the library of BUILD,
# builds a host against the installed headers alone, with FLAG unless it is empty, and
# runs it.
set -eu
cmake=$1
build=$2
cc=$3
cxx=$4
flag=$5
shift 5
here=$(cd "$(dirname "$0")" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

"$cmake" --install "$build" --prefix "$work/prefix" >/dev/null
include=$work/prefix/include/onu_ability_common
library=$(find "$work/prefix" -name libonu_ability_common.so)

# Every installed header stands on its own.
for header in $(cd "$include" && find . -name '*.h' | sed 's|^\./||'); do
  printf '#include "%s"\n' "$header" >"$work/alone.cpp"
  "$cxx" -std=c++17 -Wall -Wextra -Wpedantic -Werror -fsyntax-only -I "$include" "$work/alone.cpp"
done

# shellcheck disable=SC2086  # the flag may be absent
"$cc" -std=c11 -Wall -Wextra -Wpedantic -Werror $flag -I "$include" -c "$here/second_host_module.c" \
  -o "$work/module.o"
# shellcheck disable=SC2086
"$cxx" -std=c++17 -fvisibility=hidden -Wall -Wextra -Wpedantic -Werror $flag -I "$include" "$here/second_host.cpp" \
  "$work/module.o" "$library" -Wl,-rpath,"$(dirname "$library")" -pthread -o "$work/second_host"
"$@" "$work/second_host"
