#!/bin/sh
# onu_type_help.sh CMAKE SCRIPT: holds how the build reads a list of ONU types.
set -eu
cmake=$1
script=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

run() { "$cmake" -DINPUT="$work/types.txt" -DOUTPUT="$work/help.h" -P "$script" 2>&1; }

# refuses TEXT MESSAGE: a list with TEXT in it stops the build with MESSAGE.
refuses() {
  rm -f "$work/help.h"
  printf '%b' "$1" >"$work/types.txt"
  if output=$(run); then
    echo "taken although malformed: $1" >&2
    exit 1
  fi
  # The message is wrapped by the tool: compare without line breaks.
  if ! printf '%s' "$output" | tr -s ' \n' '  ' | grep -qF "$2"; then
    printf 'expected "%s" in:\n%s\n' "$2" "$output" >&2
    exit 1
  fi
  if [ -e "$work/help.h" ]; then
    echo "a header was written from a malformed list: $1" >&2
    exit 1
  fi
}

printf '# types\n\n857 SFU-COMMON\r\n1001   SDX 611 [rev] \n' >"$work/types.txt"
run
printf '%s' '#include "help.h"
const char text[] = ONU_TYPE_HELP;
static_assert(sizeof(text) == sizeof("857:SFU-COMMON;1001:SDX 611 [rev];"), "");
' >"$work/help.cpp"
c++ -fsyntax-only -I "$work" "$work/help.cpp"
grep -qF '"857:SFU-COMMON;"' "$work/help.h"
grep -qF '"1001:SDX 611 [rev];"' "$work/help.h"

refuses '857 SFU\nSFU 857\n' "types.txt:2: 'SFU 857' is no ONU type"
refuses '# c\n\n857\n' "types.txt:3: '857' is no ONU type"
refuses '857 SFU\n65536 X\n' 'types.txt:2: code 65536 is out of range'
refuses '99999999999999999999 X\n' 'types.txt:1: code 99999999999999999999 is out of range'
refuses '1 A\n2 B\n1 C\n' 'types.txt:3: code 1 is listed twice'
refuses '1 A;B\n' "types.txt:1: model name 'A;B' has a character"
refuses '1 A"B\n' 'types.txt:1: model name'
refuses '1 A\\\\B\n' 'types.txt:1: model name'
refuses '1 caf\303\251\n' 'types.txt:1: model name'
refuses '# nothing\n' 'no ONU type in it'
rm "$work/types.txt"
if output=$(run); then
  echo "a missing list was taken" >&2
  exit 1
fi
printf '%s' "$output" | grep -q 'no such file'
