#!/bin/sh
# exports.sh LIBRARY LIST NM READELF: fails when the dynamic symbols that LIBRARY defines
# are not those of LIST, the symbols file of the runtime package, when its name is not the
# one there, or when it needs more from outside than the host's symbols.
set -eu
library=$1
list=$2
nm=$3
readelf=$4
listed=$(mktemp)
trap 'rm -f "$listed"' EXIT
sed -n 's/^ \(.*\)@Base .*/\1/p' "$list" | sort -u >"$listed"
"$nm" -D --defined-only "$library" | awk '{print $3}' | sort -u | diff "$listed" - || {
  echo "exports differ from $list (< listed, > exported)" >&2
  exit 1
}

soname=$("$readelf" -d "$library" | sed -n 's/.*SONAME.*\[\(.*\)\]/\1/p')
if [ "$soname" != "$(sed -n '1s/ .*//p' "$list")" ]; then
  echo "the library calls itself $soname, other than $list" >&2
  exit 1
fi

host='CMutexLock|Variant|ulogPrintf|bep_(StrCmp|StrLen|callocEx|freeEx|memCpyEx|memSetEx)|vty_out|install_element|cl_install_module'
# What has no version comes from no shared library: the host must bring it.
strays=$("$nm" -DC --undefined-only "$library" | awk '$1 == "U"' | grep -v '@' |
  grep -vE "U ($host)(::|$|\()" || true)
if [ -n "$strays" ]; then
  printf 'undefined symbols that no host interface declares:\n%s\n' "$strays" >&2
  exit 1
fi

# Nothing beyond the standard library.
needed=$("$readelf" -d "$library" | sed -n 's/.*NEEDED.*\[\(.*\)\]/\1/p' |
  grep -vE '^(libstdc\+\+|libc\+\+|libc\+\+abi|libgcc_s|libm|libc|ld|ld-linux.*)\.so' ||
  true)
if [ -n "$needed" ]; then
  printf 'libraries needed beyond the standard library:\n%s\n' "$needed" >&2
  exit 1
fi
