#!/usr/bin/env python3
"""Judges what the tests have run of the library: coverage.py BUILD EXCLUSIONS.

BUILD/profiles/ holds what the programs of a build by scripts/build_sanitizers.sh counted.
Every line and every branch (a condition that came out true, or false) has to be run,
but for those that the list of exclusions names. An exclusion is a file, the text of the
line before and of the line, what is not run there ("line", "true" or "false", or "mostly
line" and so on for what threads meet by chance) and the reason, in five fields separated by
" ## ". It is for one place, the only one with these lines; one that no longer applies is an
error, too.
"""
import collections
import glob
import os
import subprocess
import sys

import reason_list

Exclusion = collections.namedtuple("Exclusion", "number at_times_run")

LIBRARY = "src/onu_ability_common"
# Between them they contain every line of the library.
PROGRAMS = ["onu_ability_common_test", "short_ways/short_ways_test", "model/model_test",
            "faults/faults_test", "threads/threads_test", "fuzz/fuzz_operation_sequences"]


def texts_of(name):
    """The lines of a source, each with the one before it, without what they are indented by."""
    with open(name, encoding="utf-8") as source:
        lines = [line.strip() for line in source.read().split("\n")]
    return list(zip([""] + lines, lines))


def read_exclusions(path):
    exclusions = collections.defaultdict(list)
    expected = "file ## line before ## line ## [mostly] line, true or false ## reason"
    for number, (file, before, text, what, _) in reason_list.entries(path, expected):
        if what.removeprefix("mostly ") not in ("line", "true", "false"):
            sys.exit(f"{path}:{number}: expected {expected}")
        places = texts_of(file).count((before, text)) if os.path.exists(file) else 0
        if places != 1:
            sys.exit(f"{path}:{number}: {places} places have these lines; expected one")
        key = (file, (before, text), what.removeprefix("mostly "))
        exclusions[key].append(Exclusion(number, what.startswith("mostly ")))
    return exclusions


def counted(build):
    """What was counted of the library, in lcov's form."""
    merged = f"{build}/all.profdata"
    profiles = glob.glob(f"{build}/profiles/*.profraw")
    if not profiles:
        sys.exit(f"coverage: {build}/profiles/ is empty; no test has counted anything")
    subprocess.run(["llvm-profdata", "merge", "-o", merged, *profiles], check=True)
    objects = [word for program in PROGRAMS for word in ("-object", f"{build}/tests/{program}")]
    exported = subprocess.run(["llvm-cov", "export", "-format=lcov", f"-instr-profile={merged}",
                               *objects[1:], LIBRARY],
                              stdout=subprocess.PIPE, text=True, check=True)
    return exported.stdout.splitlines()


def read_counts(records):
    """Counts by file: of lines by number, of branches by line and place in it."""
    lines = collections.defaultdict(dict)
    branches = collections.defaultdict(dict)
    name = ""
    for record in records:
        kind, _, rest = record.partition(":")
        if kind == "SF":
            name = os.path.relpath(rest)
        elif kind == "DA":
            number, count = rest.split(",")[:2]
            held = lines[name].get(int(number), 0)
            lines[name][int(number)] = held + int(count)
        elif kind == "BRDA":
            number, block, branch, count = rest.split(",")
            place = (int(number), int(block), int(branch))
            taken = 0 if count == "-" else int(count)
            branches[name][place] = branches[name].get(place, 0) + taken
    return lines, branches


def misses(lines, branches):
    """What was not run: file, line number, what."""
    for name in sorted(lines):
        for number, count in sorted(lines[name].items()):
            if count == 0:
                yield name, number, "line"
        for (number, _, branch), count in sorted(branches[name].items()):
            # A branch on a line that is never reached is that line's miss.
            if count == 0 and lines[name].get(number) != 0:
                yield name, number, "false" if branch % 2 else "true"


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    exclusions = read_exclusions(sys.argv[2])
    lines, branches = read_counts(counted(sys.argv[1]))
    texts = {}
    listed = sum(len(excluded) for excluded in exclusions.values())
    missed = 0
    for name, number, what in misses(lines, branches):
        if name not in texts:
            texts[name] = texts_of(name)
        lines_there = texts[name][number - 1]
        if lines_there[1] == "}" and lines[name].get(number - 1) == 0:
            continue  # the line before is judged
        if exclusions.get((name, lines_there, what)):
            exclusions[name, lines_there, what].pop(0)  # one branch of those on the line
        else:
            missed += 1
            print(f"{name}:{number}: not run ({what}): {lines_there[1]}")
    stale = [(left.number, text) for (_, (_, text), _), excluded in exclusions.items()
             for left in excluded if not left.at_times_run]
    for number, text in stale:
        print(f"{sys.argv[2]}:{number}: is run, or is no more: {text}")
    total_lines = sum(len(counts) for counts in lines.values())
    total_branches = sum(len(counts) for counts in branches.values())
    if not total_lines or not total_branches:
        sys.exit("coverage: nothing was measured")
    if missed or stale:
        sys.exit(f"coverage: {missed} lines or branches of {total_lines} and {total_branches} "
                 f"are not run, {len(stale)} exclusions do not apply")
    print(f"coverage: {total_lines} lines and {total_branches} branches of {len(lines)} sources "
          f"are run, {listed} exclusions")


main()
