#!/usr/bin/env bash
# Fails when the reference has gaps or is stale: a public declaration without a comment, a
# log message or an ability code without a meaning, a man page that is ill-formed or does not
# have the options of olt_host --help.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install_packages.sh build docs

# The headers that the installation leaves out are those that Doxygen leaves out.
installed_not=$(grep -o 'PATTERN "[^"]*\.h" EXCLUDE' cmake/installation.cmake |
  cut -d'"' -f2 | sort)
documented_not=$(sed -n '/^EXCLUDE_PATTERNS/,/[^\]$/{s/.*=//; s/[\]$//; p}' docs/Doxyfile |
  xargs -n1 | sort)
if [ -z "$installed_not" ] || [ "$installed_not" != "$documented_not" ]; then
  echo "reference: docs/Doxyfile leaves out other headers than the installation:" >&2
  diff <(echo "$installed_not") <(echo "$documented_not") >&2 || true
  exit 1
fi

make -s docs
# A header without a documented @file has no page, and its functions are not looked at.
find_public=(find src/platform src/onu_ability_common -name '*.h')
while read -r pattern; do
  find_public+=(! -name "$pattern")
done <<<"$installed_not"
headers=$("${find_public[@]}" | wc -l)
pages=$(find build-docs/html -name '*_8h.html' | wc -l)
if [ "$headers" != "$pages" ]; then
  echo "reference: $headers headers are installed, $pages have a page; do all begin with @file?" >&2
  exit 1
fi

# An operation without a comment must be refused, or nothing above was looked at.
mkdir -p build-docs/refused
printf '/// @file\n/// An operation that says nothing.\nvoid Unsaid();\n' >build-docs/refused/unsaid.h
if { cat docs/Doxyfile
     printf 'INPUT = build-docs/refused\nUSE_MDFILE_AS_MAINPAGE =\nOUTPUT_DIRECTORY = build-docs/refused\n'
   } | doxygen - 2>build-docs/refused/errors; then
  echo "reference: doxygen took an operation without a comment" >&2
  exit 1
fi
grep -q 'Member Unsaid() (function) of file unsaid.h is not documented' build-docs/refused/errors

messages=$(scripts/log_messages.py --check)
codes=$(scripts/ability_codes.py --check)

make -s configure BUILD=build
cmake --build build --target olt_host >build-docs/olt_host.log || { cat build-docs/olt_host.log; exit 1; }
host=build/src/olt_host/olt_host

# What a run logs at all levels has to be on the page, too.
rm -f build-docs/run.log
"$host" run tests/olt_host/fixtures/small_catalogue.yaml tests/olt_host/fixtures/small_reports.yaml \
  -f tests/reference/commands.txt --log-levels all --log build-docs/run.log >build-docs/run.txt
lines=$(scripts/log_messages.py --lines build-docs/run.log)

manuals=(docs/man/*.[1-8])
for page in "${manuals[@]}"; do
  mandoc -Tlint -Wwarning "$page"
  complaints=$(groff -ww -mdoc -Tutf8 "$page" 2>&1 >/dev/null)
  if [ -n "$complaints" ]; then
    echo "$complaints" >&2
    exit 1
  fi
  # Other packages' pages are crypt(3) alone.
  sed -n 's/^\.Xr \([^ ]*\) \([1-8]\).*/\1.\2/p' "$page" | while read -r other; do
    [ "$other" = crypt.3 ] || [ -f "docs/man/$other" ] ||
      { echo "reference: $page points to $other, which is not there" >&2; exit 1; }
  done
done
options=$(scripts/man_options.py "$host" docs/man/olt_host.1)
commands=$(scripts/man_commands.py "$host" docs/man/olt_host-commands.7)

echo "reference: $headers headers without a gap, $messages ($lines), $codes," \
  "${#manuals[@]} man pages with $options, $commands"
