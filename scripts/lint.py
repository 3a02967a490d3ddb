#!/usr/bin/env python3
"""Runs clang-tidy over the sources of a compilation database, several in one go.

    scripts/lint.py BUILD SOURCE... [-- OPTION...]

Sources that are compiled alike are included into one file and looked at together, as
scripts/source_groups.py groups them. A group in which anything is found is halved and looked
at again, down to the one source: only what clang-tidy finds in a source by itself counts.
"""
import collections
import concurrent.futures
import json
import os
import shlex
import subprocess
import sys

import source_groups

HEADERS = r"--header-filter=(src|tests|bench)/.*\.(h|cpp)$"


def commands(build):
    """The compiler's command of each source, relative to the tree."""
    with open(f"{build}/compile_commands.json", encoding="utf-8") as file:
        return {os.path.relpath(entry["file"]): entry for entry in json.load(file)}


def options_of(entry):
    """What decides whether two sources can be compiled as one."""
    words = shlex.split(entry["command"])
    dropped = [words.index(option) for option in ("-o", "-c")]
    return tuple(word for place, word in enumerate(words)
                 if place not in dropped and place - 1 not in dropped)


def grouped(sources, entries):
    alike = collections.defaultdict(list)
    for source in sources:
        alike[options_of(entries[source])].append(source)
    return [group for together in alike.values() for group in source_groups.grouped(together)]


class Lint:
    def __init__(self, build, entries, options):
        self.build = build
        self.entries = entries
        self.options = options

    def findings(self, sources):
        """What is found in the sources, each looked at by itself if need be."""
        result = self.tidy(sources)
        if result.returncode == 0:
            return ""
        if len(sources) == 1:
            return result.stdout + result.stderr
        middle = len(sources) // 2
        return self.findings(sources[:middle]) + self.findings(sources[middle:])

    def tidy(self, sources):
        if len(sources) == 1:
            database, source = self.build, sources[0]
        else:
            database, source = self.gather(sources)
        return subprocess.run(["clang-tidy", "-p", database, "--quiet", HEADERS, *self.options, source],
                              stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True, check=False)

    def gather(self, sources):
        """Writes the file that includes them, with a database of its own."""
        folder = os.path.abspath(f"{self.build}/groups/{sources[0]}-{len(sources)}")
        os.makedirs(folder, exist_ok=True)
        path = f"{folder}/sources.cpp"
        with open(path, "w", encoding="utf-8") as file:
            for source in sources:
                file.write(f'#include "{os.path.abspath(source)}"  // NOLINT(bugprone-suspicious-include)\n')
        entry = dict(self.entries[sources[0]])
        entry["command"] = entry["command"].replace(entry["file"], path)
        entry["file"] = path
        with open(f"{folder}/compile_commands.json", "w", encoding="utf-8") as file:
            json.dump([entry], file)
        # The checks are those of the tree, which lies above this folder.
        return folder, path


def main():
    arguments = sys.argv[1:]
    options = []
    if "--" in arguments:
        place = arguments.index("--")
        arguments, options = arguments[:place], arguments[place + 1:]
    if len(arguments) < 2:
        sys.exit(__doc__)
    build, sources = arguments[0], arguments[1:]
    entries = commands(build)
    unknown = [source for source in sources if source not in entries]
    if unknown:
        sys.exit(f"{unknown[0]}: nothing compiles it, so nothing says how")
    groups = grouped(sources, entries)
    lint = Lint(build, entries, options)
    found = 0
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for group, findings in zip(groups, pool.map(lint.findings, groups)):
            if findings:
                found += 1
                print(findings, flush=True)
    if found:
        sys.exit(f"lint: clang-tidy found something in {found} of {len(groups)} groups of sources")
    print(f"lint: nothing found in {len(sources)} sources, taken in {len(groups)} groups", flush=True)


main()
