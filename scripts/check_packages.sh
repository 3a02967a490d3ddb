#!/usr/bin/env bash
# Builds the Debian packages, holds them against Debian's rules, installs them with dpkg and
# uses them: olt_host confirms the shipped population, and the examples are built outside the
# tree through pkg-config and through CMake, shared and static, and print what is kept beside
# them. Then the library is built as a vendor's SDK would, without CMake, for 32-bit ARM.
#
#   scripts/check_packages.sh [--keep]
#
# Takes the packages off the system again, unless called with --keep. Needs root, or sudo.
set -euo pipefail
cd "$(dirname "$0")/.."
tree=$PWD
scripts/install_packages.sh build packages cross board

as_root=()
if [ "$(id -u)" != 0 ]; then
  if ! command -v sudo >/dev/null; then
    echo "$0: installing packages takes root: run as root or install sudo" >&2
    exit 1
  fi
  as_root=(sudo)
fi

packages=(libonu-ability-common1 libonu-ability-common-dev olt-host
  libonu-ability-common1-dbgsym olt-host-dbgsym)
for package in "${packages[@]}"; do
  if dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed'; then
    echo "$0: $package is installed already; first: dpkg --purge ${packages[*]}" >&2
    exit 1
  fi
done

# Optimised less than for use, and with lines alone for debuggers: that takes half the time.
DEB_CXXFLAGS_APPEND='-O1 -g1' make packages
built=$tree/build-packages

work=$(mktemp -d)
installed=no
clean_up() {
  if [ $installed = yes ]; then
    "${as_root[@]}" dpkg --purge "${packages[@]}" >/dev/null
  fi
  rm -rf "$work"
}
trap clean_up EXIT
uses=0

say() { echo "==> $*"; }

say "Holding the packages against the rules of Debian"
# The first upload of a package to Debian would close a bug there.
lintian --allow-root --fail-on error,warning --suppress-tags initial-upload-closes-no-bugs \
  "$built"/*.changes

say "Installing them"
[ "${1:-}" = --keep ] || installed=yes
archives=()
for package in "${packages[@]}"; do archives+=("$built/$package"_*.deb); done
# Pages and examples are wanted here also where the system leaves them out.
"${as_root[@]}" dpkg --path-include='/usr/share/man/*' --path-include='/usr/share/doc/*' \
  --install "${archives[@]}" >"$work/dpkg.log" || {
  cat "$work/dpkg.log"
  exit 1
}

say "Confirming the shipped population with the installed olt_host"
library=$(dpkg -L libonu-ability-common1 | grep '\.so\.1\.')
olt_host confirm /usr/share/onu_ability_common/{catalogue,reports}.yaml --csv >"$work/confirmed"
diff tests/olt_host/fixtures/shipped_confirmation.csv "$work/confirmed"
found=$(ldd "$(command -v olt_host)" | awk '/libonu_ability_common/ { print $3 }')
if [ "$(readlink -f "$found")" != "$library" ]; then
  echo "olt_host takes $found for $library" >&2
  exit 1
fi
for page in docs/man/*; do
  name=$(basename "$page")
  man --where "${name##*.}" "${name%.*}" >/dev/null
  uses=$((uses + 1))
done

say "Executing what documents show with the packages"
mapfile -t documents < <(grep -lF '<!-- test: installed -->' ./*.md docs/*.md)
if ((${#documents[@]} == 0)); then
  echo "no document shows anything with the packages" >&2
  exit 1
fi
for document in "${documents[@]}"; do
  /usr/bin/python3 -B tests/documents/run_document.py --installed "$document"
  uses=$((uses + 1))
done

say "Following the links of the installed documents"
/usr/bin/python3 -B tests/documents/check_links.py --links-alone \
  /usr/share/doc/libonu-ability-common-dev

say "Looking for what a debugger reads"
for program in "$library" /usr/bin/olt_host; do
  id=$(readelf -n "$program" | sed -n 's/.*Build ID: //p')
  if [ ! -s "/usr/lib/debug/.build-id/${id:0:2}/${id:2}.debug" ]; then
    echo "no debug symbols for $program" >&2
    exit 1
  fi
done

say "Building the examples outside the tree"
cp -R /usr/share/doc/libonu-ability-common-dev/examples "$work"
warnings='-Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror -Wno-unused-parameter'
# compare PROGRAM EXAMPLE: an empty port says what is to be done, and fails.
compare() {
  "$1" >"$work/output" 2>"$work/log" || [ "$2" = port_template ] || {
    cat "$work/log" >&2
    exit 1
  }
  diff "$tree/examples/$2/expected_output.txt" "$work/output"
  uses=$((uses + 1))
}
for example in minimal_host query_from_c port_template; do
  program=$(sed -n 's/^add_executable(\([a-z_]*\) .*/\1/p' "$work/examples/$example/CMakeLists.txt")
  (
    cd "$work/examples/$example"
    make CXXFLAGS="-std=c++17 $warnings" CFLAGS="-std=c11 $warnings" >"$work/log" || {
      cat "$work/log"
      exit 1
    }
    cmake -S . -B "$work/$example" -DCMAKE_CXX_FLAGS="$warnings" >"$work/log"
    cmake --build "$work/$example" >"$work/log" || {
      cat "$work/log"
      exit 1
    }
  )
  compare "$work/examples/$example/$program" $example
  compare "$work/$example/$program" $example
done

# Another major version is another library.
mkdir "$work/later"
printf '%s\n' 'cmake_minimum_required(VERSION 3.16)' 'project(later LANGUAGES C CXX)' \
  'find_package(onu_ability_common 2 REQUIRED)' >"$work/later/CMakeLists.txt"
if cmake -S "$work/later" -B "$work/later/build" >"$work/log" 2>&1 ||
  ! grep -q 'compatible with requested version' "$work/log"; then
  cat "$work/log"
  echo "version 2 was asked for, and version 1 taken, or something else is wrong" >&2
  exit 1
fi

say "Installing without packages"
DESTDIR=$work/root make install >"$work/log" || {
  cat "$work/log"
  exit 1
}
"$work/root/usr/local/bin/olt_host" --version
grep -qx prefix=/usr/local "$work/root/usr/local/lib/pkgconfig/onu_ability_common.pc"
uses=$((uses + 1))

say "Linking the static library"
sed 's/::onu_ability_common)/::onu_ability_common_static)/' -i \
  "$work/examples/minimal_host/CMakeLists.txt"
grep -q common_static "$work/examples/minimal_host/CMakeLists.txt"
cmake -S "$work/examples/minimal_host" -B "$work/static" >"$work/log"
cmake --build "$work/static" >"$work/log"
compare "$work/static/minimal_host" minimal_host
(
  cd "$work/examples/query_from_c"
  # The whole program, by the C compiler, which knows nothing of the C++ runtime.
  # shellcheck disable=SC2046  # words
  gcc -static ./*.o $(pkg-config --static --libs onu_ability_common) -o static
)
compare "$work/examples/query_from_c/static" query_from_c
if ldd "$work/static/minimal_host" | grep onu_ability_common; then
  echo "the program still needs the shared library" >&2
  exit 1
fi

# on_board LIBRARY HEADERS: the library exports what it should, and the module in C runs with it.
on_board() {
  local program=$work/query-$uses
  tests/installation/exports.sh "$1" debian/libonu-ability-common1.symbols \
    arm-linux-gnueabihf-nm arm-linux-gnueabihf-readelf
  arm-linux-gnueabihf-gcc -I "$2" -I examples/minimal_host -c examples/query_from_c/query.c \
    -o "$work/query.o"
  arm-linux-gnueabihf-g++ -std=c++17 -Wno-psabi -I "$2" "$work/query.o" \
    examples/minimal_host/{host_services,start_up}.cpp "$1" -Wl,-rpath,"$(dirname "$1")" -pthread \
    -o "$program.arm"
  printf '#!/bin/sh\nexec qemu-arm -L /usr/arm-linux-gnueabihf %s\n' "$program.arm" >"$program"
  chmod +x "$program"
  compare "$program" query_from_c
}

say "Building the library by the toolchain file, for 32-bit ARM"
rm -rf build-arm
{
  cmake -S . -B build-arm -G Ninja \
    -DCMAKE_TOOLCHAIN_FILE=cmake/toolchains/arm-linux-gnueabihf.cmake \
    -DCMAKE_BUILD_TYPE=Release -DONU_ABILITY_BUILD_HOST=OFF -DONU_ABILITY_BUILD_TESTS=OFF
  cmake --build build-arm
  cmake --install build-arm --prefix build-arm/prefix
} >"$work/log" || {
  cat "$work/log"
  exit 1
}
on_board "$tree/build-arm/prefix/lib/libonu_ability_common.so" \
  build-arm/prefix/include/onu_ability_common

say "Building it without CMake"
CXX=arm-linux-gnueabihf-g++ CXXFLAGS="-O1 -Wno-psabi" AR=arm-linux-gnueabihf-ar \
  scripts/build_without_cmake.sh "$work/vendor"
on_board "$work/vendor/libonu_ability_common.so" "$work/vendor/include/onu_ability_common"
# The help that it made of the list of ONU types is that of the usual build.
diff <(grep '^  "' "$work/vendor/generated/onu_type_help.h") \
  <(grep '^  "' build-arm/src/onu_ability_common/generated/onu_type_help.h)
# As are the headers.
diff <(cd build-arm/prefix/include && find . -type f | sort) \
  <(cd "$work/vendor/include" && find . -type f | sort)
# A list that the usual build refuses is refused.
for types in '1 A;B' '70000 A' '1 Café' '# none'; do
  echo "$types" >"$work/types"
  if ONU_TYPES=$work/types scripts/build_without_cmake.sh "$work/refused" 2>"$work/log" ||
    ! grep -q 'no ONU type' "$work/log"; then
    cat "$work/log"
    echo "the list of ONU types \"$types\" was taken" >&2
    exit 1
  fi
done

if [ $installed = yes ]; then
  clean_up
  trap - EXIT
  for package in "${packages[@]}"; do
    if dpkg-query -W "$package" >/dev/null 2>&1; then
      echo "$package was not taken off" >&2
      exit 1
    fi
  done
fi
echo "packages: ${#packages[@]} packages built, installed and used: $uses pages, documents and programs" \
  "as expected"
