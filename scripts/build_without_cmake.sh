#!/bin/sh
# Builds the library with a compiler and a shell alone, as a vendor's SDK may want it:
#
#   CXX=arm-vendor-linux-g++ CXXFLAGS="--sysroot=/opt/sdk/sysroot -O2" \
#     scripts/build_without_cmake.sh DIRECTORY
#
# leaves libonu_ability_common.so.VERSION with its links, libonu_ability_common.a and the
# headers in DIRECTORY. AR, LDFLAGS and ONU_TYPES (data/onu_types.txt) may be given as well.
set -eu
if [ $# != 1 ]; then
  echo "usage: $0 DIRECTORY" >&2
  exit 2
fi
mkdir -p "$1"
out=$(cd "$1" && pwd)
cd "$(dirname "$0")/.."
export CXX="${CXX:-g++}" CXXFLAGS="${CXXFLAGS:--O2}" out
version=$(sed -n 's/^project(.* VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
soname=libonu_ability_common.so.${version%%.*}

# The help of one command lists the ONU types of the installation: "code name" a line.
mkdir -p "$out/generated" "$out/objects"
LC_ALL=C awk '
  BEGIN { print "#define ONU_TYPE_HELP \\" }
  { sub(/\r$/, "") }
  /^[ \t]*$/ || /^#/ { next }
  !/^[0-9]+ +[^ \t]/ || /[";:\\]/ || /[^ -~\t]/ || $1 > 65535 || $1 in seen {
    print FILENAME ":" FNR ": no ONU type, or the second of its code: " $0 >"/dev/stderr"
    bad = 1
    exit 1
  }
  { code = $1; seen[code]; ++types; sub(/^[0-9]+ +/, ""); sub(/[ \t]+$/, "") }
  { print "  \"" code ":" $0 ";\" \\" }
  END {
    if (bad) exit 1
    if (!types) { print FILENAME ": no ONU type in it" >"/dev/stderr"; exit 1 }
    print "  \"\""
  }
' "${ONU_TYPES:-data/onu_types.txt}" >"$out/generated/onu_type_help.h"

# Every source of the library, and no other.
find src/onu_ability_common -name '*.cpp' | LC_ALL=C sort >"$out/sources"
# shellcheck disable=SC2016  # for the shells that xargs starts
xargs -P "$(nproc 2>/dev/null || echo 1)" -n 1 sh -c '
  object=$out/objects/$(echo "$1" | tr / -).o
  $CXX -std=c++17 -fPIC -fvisibility=hidden -fvisibility-inlines-hidden $CXXFLAGS \
    -Isrc/platform -Isrc/onu_ability_common -I"$out/generated" -c "$1" -o "$object"
' compile <"$out/sources"

# The host defines the symbols that stay undefined.
# shellcheck disable=SC2086  # words
$CXX -shared -pthread $CXXFLAGS ${LDFLAGS:-} "$out"/objects/*.o -o "$out/$soname.${version#*.}" \
  -Wl,-soname,"$soname" -Wl,--version-script=src/onu_ability_common/onu_ability_common.map
ln -sf "$soname.${version#*.}" "$out/$soname"
ln -sf "$soname" "$out/libonu_ability_common.so"
rm -f "$out/libonu_ability_common.a"
"${AR:-ar}" rcs "$out/libonu_ability_common.a" "$out"/objects/*.o

mkdir -p "$out/include/onu_ability_common"
cp -R src/platform/. src/onu_ability_common/. "$out/include/onu_ability_common"
# As the installation, without the headers that only the library's own sources include.
own=$(grep -o 'PATTERN "[^"]*\.h" EXCLUDE' cmake/installation.cmake | cut -d'"' -f2)
find "$out/include" -type f ! -name '*.h' -exec rm {} +
for header in $own; do find "$out/include" -name "$header" -exec rm {} +; done
rm -rf "$out/objects" "$out/sources"
echo "built $out/$soname.${version#*.}"
