#!/bin/sh
# Prints the site that this system gets Debian's packages from, for scripts that fetch
# packages of other architectures or sources from it with lists of their own.
set -eu
site() {
  # shellcheck disable=SC2016  # apt's, not the shell's
  apt-get indextargets 'Created-By: Packages' 'Codename: bookworm' 'Component: main' \
    --format '$(SITE)' | head -n 1
}
found=$(site)
if [ -z "$found" ]; then
  # Lists tell, and a fresh system may have none yet.
  if [ "$(id -u)" = 0 ]; then apt-get update -qq >&2; else sudo apt-get update -qq >&2; fi
  found=$(site)
fi
if [ -z "$found" ]; then
  echo "$0: this system's sources of packages have no Debian 12 (bookworm) main" >&2
  exit 1
fi
echo "$found"
