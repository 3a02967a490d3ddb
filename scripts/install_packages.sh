#!/bin/sh
# Installs what is missing of sets of Debian packages, and says so; what apt says is in
# packages.log, and shown when it fails:
#
#   scripts/install_packages.sh SET...
#
#   build       the library, olt_host and their tests
#   clang       the second compiler, its sanitizers and what counts what they ran
#   lint        what reads sources: clang-tidy, clang-format, shellcheck
#   libcxx      the second standard library
#   mutants     the linker of scripts/mutate.py
#   memcheck    valgrind
#   cross       the compiler for 32-bit ARM
#   board       that, and what starts its programs here
#   big_endian  the compiler for the other byte order, and its emulator
#   bench       the benchmark, its references and its plot
#   packages    what builds and checks Debian packages
#   abi         what reads the types of a library
#   docs        what draws the pictures, makes the reference, checks man pages
#
# docs/dependencies.md says what each package is for.
set -eu

packages_of() {
  case $1 in
    build)
      echo g++ cmake ninja-build pkg-config libgtest-dev libyaml-cpp-dev libspdlog-dev \
        libcli11-dev nlohmann-json3-dev rapidjson-dev libedit-dev libasio-dev libtelnet-dev \
        libcrypt-dev libmd-dev curl python3 python3-pyte python3-jsonschema python3-yaml
      ;;
    clang) echo clang libclang-rt-14-dev llvm ;;
    lint) echo clang clang-format clang-tidy shellcheck ;;
    libcxx) echo clang libc++-14-dev libc++abi-14-dev googletest ;;
    mutants) echo lld ;;
    memcheck) echo valgrind ;;
    cross) echo g++-arm-linux-gnueabihf ;;
    board) echo g++-arm-linux-gnueabihf qemu-user ;;
    big_endian) echo g++-powerpc-linux-gnu qemu-user googletest make xz-utils ;;
    bench) echo libbenchmark-dev libsqlite3-dev liblmdb-dev python3-matplotlib ;;
    packages) echo build-essential debhelper dpkg-dev lintian man-db ;;
    abi) echo abigail-tools ;;
    docs) echo graphviz fonts-dejavu-core doxygen mandoc groff-base ;;
    *)
      echo "$0: no set is called \"$1\"; expected one that the script's head lists" >&2
      exit 2
      ;;
  esac
}

if [ $# = 0 ]; then
  echo "usage: $0 SET...; the script's head lists the sets" >&2
  exit 2
fi
if ! command -v dpkg-query >/dev/null; then
  echo "$0: this is no Debian; docs/dependencies.md names what has to be installed" >&2
  exit 1
fi
missing=""
for set in "$@"; do
  packages=$(packages_of "$set")
  for package in $packages; do
    if ! dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q "ok installed"; then
      missing="$missing $package"
    fi
  done
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
install() {
  $as_root apt-get update -qq || return
  # shellcheck disable=SC2086  # a list of names
  $as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends \
    $missing
}
log=$(dirname "$0")/../packages.log
install </dev/null >"$log" 2>&1 || { cat "$log"; exit 1; }
