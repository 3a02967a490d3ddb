#!/bin/sh
# Installs what is missing of a set of Debian packages, and says so.
#
#   scripts/install_packages.sh build   the library, olt_host and their tests
#   scripts/install_packages.sh check   the other gates (clang, lint, format)
#   scripts/install_packages.sh fuzz    the fuzz targets and what they reach
#   scripts/install_packages.sh bench   the benchmark, its references and its plot
#   scripts/install_packages.sh mutants the linker of scripts/mutate.py
#   scripts/install_packages.sh memcheck valgrind
#   scripts/install_packages.sh cross   the compiler for 32-bit ARM
#   scripts/install_packages.sh board   that, and what starts its programs here
#   scripts/install_packages.sh big_endian  the compiler for the other byte order, its emulator
#   scripts/install_packages.sh libcxx  the second standard library
#   scripts/install_packages.sh packages  what builds and checks Debian packages
#   scripts/install_packages.sh abi     what reads the types of a library
#   scripts/install_packages.sh docs    what draws the pictures, makes the reference, checks man pages
#
# docs/dependencies.md says what each package is for.
set -eu

build_packages="g++ cmake ninja-build pkg-config libgtest-dev libyaml-cpp-dev libspdlog-dev
  libcli11-dev nlohmann-json3-dev rapidjson-dev libedit-dev libasio-dev libtelnet-dev libcrypt-dev libmd-dev
  curl python3 python3-pyte python3-jsonschema python3-yaml"
check_packages="clang clang-format clang-tidy libclang-rt-14-dev"
bench_packages="libbenchmark-dev libsqlite3-dev liblmdb-dev python3-matplotlib"
fuzz_packages="clang libclang-rt-14-dev llvm"
mutants_packages="lld"
memcheck_packages="valgrind"
libcxx_packages="clang libc++-14-dev libc++abi-14-dev googletest"
docs_packages="graphviz fonts-dejavu-core doxygen mandoc groff-base"
cross_packages="g++-arm-linux-gnueabihf"
packages_packages="debhelper dpkg-dev lintian man-db"
abi_packages="abigail-tools"
board_packages="$cross_packages qemu-user"
big_endian_packages="g++-powerpc-linux-gnu qemu-user googletest make xz-utils"

case "${1:-}" in
  build) packages=$build_packages ;;
  check) packages=$check_packages ;;
  bench) packages=$bench_packages ;;
  mutants) packages=$mutants_packages ;;
  memcheck) packages=$memcheck_packages ;;
  cross) packages=$cross_packages ;;
  board) packages=$board_packages ;;
  big_endian) packages=$big_endian_packages ;;
  libcxx) packages=$libcxx_packages ;;
  packages) packages=$packages_packages ;;
  abi) packages=$abi_packages ;;
  fuzz) packages=$fuzz_packages ;;
  docs) packages=$docs_packages ;;
  *) echo "usage: $0 build|check|bench|mutants|memcheck|cross|board|big_endian|fuzz|libcxx|docs|packages|abi" >&2; exit 2 ;;
esac

missing=""
for package in $packages; do
  if ! dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q "ok installed"; then
    missing="$missing $package"
  fi
done
if [ -z "$missing" ]; then
  exit 0
fi

as_root=""
if [ "$(id -u)" != 0 ]; then
  if ! command -v sudo >/dev/null; then
    echo "$0: these packages are missing:$missing" >&2
    echo "$0: run as root or install sudo, or install them by hand" >&2
    exit 1
  fi
  as_root="sudo"
fi
echo "==> Installing Debian packages:$missing"
export DEBIAN_FRONTEND=noninteractive
$as_root apt-get update -qq </dev/null
# shellcheck disable=SC2086  # a list of names
$as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends \
  $missing </dev/null
