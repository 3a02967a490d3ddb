#!/bin/sh
# examples.sh CMAKE BUILD CC CXX FLAG [EMULATOR...]: installs the library of BUILD, builds
# the examples against the installed headers alone, with FLAG unless it is empty, runs them
# and compares what they print with what is kept beside them.
set -eu
cmake=$1
build=$2
cc=$3
cxx=$4
flag=$5
shift 5
here=$(cd "$(dirname "$0")" && pwd)
examples=$here/../../examples
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
# The tables are left to the end of the process.
export LSAN_OPTIONS="suppressions=$here/../olt_host/leaks.supp:print_suppressions=0"

for component in runtime development; do
  "$cmake" --install "$build" --prefix "$work/prefix" --component $component >/dev/null
done
include=$work/prefix/include/onu_ability_common
library=$(find "$work/prefix" -name libonu_ability_common.so)
archive=${library%.so}.a

# Every installed header stands on its own.
for header in $(cd "$include" && find . -name '*.h' | sed 's|^\./||'); do
  printf '#include "%s"\n' "$header" >"$work/alone.cpp"
  "$cxx" -std=c++17 -Wall -Wextra -Wpedantic -Werror -fsyntax-only -I "$include" "$work/alone.cpp"
done

# object NAME SOURCE: as a host would compile it that hides what it does not export.
object() {
  compiler="$cxx -std=c++17 -fvisibility=hidden"
  case $2 in *.c) compiler="$cc -std=c11" ;; esac
  # The template's arguments are there for who fills it in.
  # shellcheck disable=SC2086  # words
  $compiler $flag -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror -Wno-unused-parameter \
    -I "$include" -I "$examples/minimal_host" -I "$examples/port_template" -c "$2" -o "$work/$1.o"
}
# link PROGRAM LIBRARY OBJECT...
link() {
  program=$1
  linked=$2
  shift 2
  # shellcheck disable=SC2086,SC2046
  "$cxx" $flag $(printf "$work/%s.o " "$@") "$linked" -Wl,-rpath,"$(dirname "$library")" -pthread \
    -o "$work/$program"
}
for name in host_services start_up main; do object $name "$examples/minimal_host/$name.cpp"; done
for name in port_check platform_port hooks_port; do
  object $name "$examples/port_template/$name.cpp"
done
object query "$examples/query_from_c/query.c"
# The minimal host as a port that is filled in: the template's check has nothing against it.
cat >"$work/minimal_host_port.cpp" <<'END'
#include "minimal_host.h"
#include "port.h"
struct vty* PortTerminal() { return &host_terminal; }
void RegisterHooks() { start_host(); }
END
object minimal_host_port "$work/minimal_host_port.cpp"

link minimal_host "$library" main start_up host_services
link minimal_host_static "$archive" main start_up host_services
link query "$library" query start_up host_services
link port_to_do "$library" port_check platform_port hooks_port
link port_done "$library" port_check minimal_host_port start_up host_services

for program in minimal_host minimal_host_static; do
  "$@" "$work/$program" >"$work/output" 2>"$work/log"
  diff "$examples/minimal_host/expected_output.txt" "$work/output"
  grep -q '^module 77 level ' "$work/log"  # lines carry the module id that was set
done
"$@" "$work/query" >"$work/output" 2>"$work/log"
diff "$examples/query_from_c/expected_output.txt" "$work/output"
tail -n 1 "$work/log" | grep -qx silence  # and none is written once the mask is clear

"$@" "$work/port_done" >"$work/verdicts" 2>/dev/null || {
  cat "$work/verdicts"
  exit 1
}
if "$@" "$work/port_to_do" >"$work/verdicts"; then
  echo "an empty port is taken for one that is filled in" >&2
  exit 1
fi
diff "$examples/port_template/expected_output.txt" "$work/verdicts"
