#!/usr/bin/env bash
# Compares the exported symbols and types of the library with what is recorded for its
# version, abi/onu_ability_common-MAJOR.MINOR.abi, and with the records of earlier versions
# of the same major number. docs/abi.md tells what that means for a change.
#
#   scripts/check_abi.sh            fails when hosts would have to be built anew
#   scripts/check_abi.sh --record   writes the record of a new version
#
# Builds the library in build-abi/, with all that a debugger reads. Altered copies of two of
# its sources show each time that what breaks a host is noticed.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install_packages.sh build abi
build="build-abi"

# record LIBRARY HEADERS FILE: the types of the headers, as far as exported symbols reach them.
record() {
  abidw --suppressions abi/not_ours.suppr --headers-dir "$2" --drop-private-types \
    --exported-interfaces-only --no-corpus-path --no-comp-dir-path --no-show-locs \
    --no-elf-needed --no-parameter-names --type-id-style hash --out-file "$3" "$1"
  sed -i "s#path='$PWD/#path='#" "$3"  # where the tree lies is nobody's interface
}

# judge RECORD RECORD: "same", "additions" or "breaks hosts", and the differences to
# $build/differences. Both are records: abidiff does not apply to a library what has been
# left out of a record.
judge() {
  local status=0
  abidiff "$1" "$2" >$build/differences || status=$?
  if ((status & 3)); then
    echo "abidiff cannot compare $1 and $2" >&2
    exit 1
  elif ((status == 0)); then
    echo "same"
  elif abidiff --no-added-syms "$1" "$2" >/dev/null; then
    echo "additions"
  else
    echo "breaks hosts"
  fi
}

# --- What the judgement is worth: two sources of the library, altered.

self_test=$build/self-test
# altered NAME [FILE EXPRESSION]...: the two sources as a library, after sed.
altered() {
  local tree=$self_test/$1 name=$1
  shift
  mkdir -p "$tree"
  cp -R src/platform src/onu_ability_common "$tree"
  while (($# > 0)); do
    sed -i "$2" "$tree/onu_ability_common/$1"
    if cmp -s "$tree/onu_ability_common/$1" "src/onu_ability_common/$1"; then
      echo "the change \"$name\" changes nothing in $1" >&2
      exit 1
    fi
    shift 2
  done
  g++ -std=c++17 -g -O0 -fPIC -shared -fvisibility=hidden -fvisibility-inlines-hidden \
    -I "$tree/platform" -I "$tree/onu_ability_common" \
    -Wl,--version-script=src/onu_ability_common/onu_ability_common.map \
    "$tree/onu_ability_common/onu_ability_common_table/onu_ability_profile.cpp" \
    "$tree/onu_ability_common/onu_ability_common_service_cinterface.cpp" -o "$tree/library.so"
  record "$tree/library.so" "$tree" "$tree/library.abi"
}
# expect VERDICT NAME [FILE EXPRESSION]...
cases=0
expect() {
  local expected=$1 verdict
  shift
  altered "$@"
  verdict=$(judge $self_test/as-it-is/library.abi "$self_test/$1/library.abi")
  if [ "$verdict" != "$expected" ]; then
    cat $build/differences
    echo "self-test \"$1\": judged \"$verdict\", expected \"$expected\"" >&2
    exit 1
  fi
  cases=$((cases + 1))
}
run_self_test() {
  local profile=onu_ability_common_table/onu_ability_profile.h
  local values=onu_ability_common_global/ability_values.h
  local query=onu_ability_common_service_cinterface
  rm -rf $self_test
  altered as-it-is
  expect "same" nothing
  expect "same" remark $profile 's|^ private:|  // A remark.\n private:|'
  expect "same" hidden-operation $profile \
    's|^ private:| private:\n  ONU_ABILITY_LOCAL void Hidden();|'
  # shellcheck disable=SC2016  # sed's $, the last line
  expect "additions" new-function $query.cpp \
    '$aextern "C" ONU_ABILITY_API unsigned int onu_ability_added() { return 0; }'
  expect "breaks hosts" member-wider $profile 's|_reserved\[16\]|_reserved[24]|'
  expect "breaks hosts" member-of-other-type $profile 's|unsigned int _age_count|int _age_count|'
  expect "breaks hosts" members-swapped $profile \
    's|unsigned int _bind_count = 0;||; s|unsigned int _age_count = 0;|unsigned int _age_count = 0, _bind_count = 0;|'
  expect "breaks hosts" virtual-function $profile \
    's|^  virtual ~Onu|  virtual void Added() {}\n  virtual ~Onu|'
  expect "breaks hosts" other-number $values 's|_TYPE_MATCH = 2|_TYPE_MATCH = 3|'
  expect "breaks hosts" other-argument $query.h 's|real_type(unsigned short|real_type(unsigned int|' \
    $query.cpp 's|real_type(unsigned short|real_type(unsigned int|'
  expect "breaks hosts" function-gone $query.h 's|onu_ability_search_by|search_by|' \
    $query.cpp 's|onu_ability_search_by|search_by|'
}

# --- The library.

scripts/configure.sh $build -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_COMPILER=g++ \
  -DONU_ABILITY_BUILD_HOST=OFF -DONU_ABILITY_BUILD_TESTS=OFF
run_self_test
cmake --build $build --target onu_ability_common onu_ability_common_static >>$build.log 2>&1 || {
  cat $build.log
  exit 1
}
rm -rf $build/prefix
for component in runtime development; do
  cmake --install $build --component $component --prefix $build/prefix >>$build.log
done
now=$build/now.abi
library=$(find $build/prefix -name 'libonu_ability_common.so.*.*')
version=${library##*.so.}
major=${version%%.*}
minor=${version#*.}
minor=${minor%%.*}
record "$library" $build/prefix/include $now
record_file=abi/onu_ability_common-$major.$minor.abi

# write_record FILE
write_record() {
  if [ -e "$1" ]; then
    echo "$1 is there; a record of a version is written once. Raise the version." >&2
    return 1
  fi
  cp $now "$1"
  echo "abi: wrote $1"
}
if [ "${1:-}" = --record ]; then
  write_record "$record_file"
  exit
fi

failures=0
fail() {
  printf '%s\n' "$@" >&2
  failures=$((failures + 1))
}

# A record is written, and written once.
rm -f $build/written.abi
if ! write_record $build/written.abi >/dev/null || ! cmp -s $now $build/written.abi; then
  fail "the record of a new version cannot be written"
elif write_record $build/written.abi >/dev/null 2>&1; then
  fail "the record of a version can be written twice"
fi

# The soname and the record say the same as the version.
soname=$(readelf -d "$library" | sed -n 's/.*SONAME.*\[\(.*\)\]/\1/p')
if [ "$soname" != "libonu_ability_common.so.$major" ]; then
  fail "version $version calls itself $soname"
fi
if [ ! -e "$record_file" ]; then
  fail "version $version has no record: scripts/check_abi.sh --record"
elif ! head -n 1 "$record_file" | grep -q "soname='$soname'"; then
  fail "$record_file is of another soname than $soname"
fi

# compare NAME RECORD EXPECTED...: EXPECTED are the verdicts that may be.
compare() {
  local name=$1 record=$2 verdict
  shift 2
  verdict=$(judge "$record" $now)
  for expected in "$@"; do
    if [ "$verdict" = "$expected" ]; then return; fi
  done
  cat $build/differences
  case $verdict in
    additions) fail "$name: there are additions. Raise the minor version and record it." ;;
    *) fail "$name: $verdict. Raise the major version and record it, or take the change back." ;;
  esac
}

compared=0
for file in abi/onu_ability_common-"$major".*.abi; do
  [ -e "$file" ] || continue
  compared=$((compared + 1))
  if [ "$file" = "$record_file" ]; then
    compare "$file" "$file" same
    # Nor has it been written anew since the version has it.
    first=$(git log --diff-filter=A --format=%h -- "$file" 2>/dev/null | tail -n 1)
    if [ -n "$first" ]; then
      git show "$first:$file" >$build/first.abi
      compare "$file as it was first recorded in $first" $build/first.abi same
    fi
  else
    compare "$file" "$file" same additions
  fi
done

if ((failures > 0)); then exit 1; fi
symbols=$(nm -D --defined-only "$library" | wc -l)
echo "abi: $symbols symbols and their types are those of $compared records, $soname;" \
  "$cases altered libraries were judged as they are"
