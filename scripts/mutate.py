#!/usr/bin/env python3
"""How good are the library's tests? Tries small mistakes in its sources.

One operator, constant, level, message, condition or statement is changed at a time (see
scripts/mutants.py); the source, or each that includes the changed header, is compiled and
linked with everything else of the library's test program, which keeps the header as it was,
and the tests run, each in a process of its own, those of the changed source's area first,
up to the first failure. What they do not notice is shown to the random sequences, those of
the model and those of the short ways, and to the tests of what the host does wrong. A
mutant that no test fails on has survived: it needs a test, or a line in
scripts/mutants_explained.txt that says why it cannot be told from the original, which is
then taken as said; --known tries such mutants, too.

The build tree has to be up to date; scripts/install_packages.sh mutants installs the linker.

    scripts/mutate.py [--seed N] [--count N] [--jobs N] [--only PART]
                      [--seconds N] [--build FOLDER] [--least PERCENT] [--known]
"""
import argparse
import collections
import concurrent.futures
import glob
import hashlib
import json
import os
import queue
import re
import shlex
import shutil
import subprocess
import sys
import time

import mutants as mutation
import reason_list

LIBRARY = "src/onu_ability_common"
PROGRAM = "onu_ability_common_test"
SEQUENCES = ["model/model_test", "short_ways/short_ways_test"]
FAULTS = "faults/faults_test"
EXPLAINED = "scripts/mutants_explained.txt"
TEST_SECONDS = 60  # of one test, under load; a mutant that hangs fails its test
SEQUENCE_TESTS = "*/0:*/1"  # two blocks of each kind
SEQUENCE_SECONDS = 300


class Failure(Exception):
    pass


def run(command, **options):
    return subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                          errors="replace", check=False, **options)


class Build:
    """The commands of a build tree that is up to date."""

    def __init__(self, folder):
        self.folder = folder
        with open(f"{folder}/compile_commands.json", encoding="utf-8") as file:
            self.compile = {os.path.relpath(entry["file"]): entry for entry in json.load(file)
                            if "onu_ability_common_objects.dir" in entry["command"]}
        self.includers = self.sources_by_header()
        self.links = {program: self.link_of(program) for program in [PROGRAM, *SEQUENCES, FAULTS]}

    def sources_by_header(self):
        """The library's sources that include each of its headers."""
        includers = {}
        for source in sorted(self.compile):
            listed = run(["ninja", "-C", self.folder, "-t", "deps", self.object_of(source)]).stdout
            for path in re.findall(r"^ +(\S+)$", listed, re.MULTILINE):
                header = os.path.relpath(os.path.join(self.folder, path))
                if header.startswith(LIBRARY) and header.endswith(".h"):
                    includers.setdefault(header, []).append(source)
        if not includers:
            raise Failure(f"{self.folder} does not tell which sources include which headers")
        return includers

    def link_of(self, program):
        listed = run(["ninja", "-C", self.folder, "-t", "commands", "-s", "tests/" + program]).stdout
        link = [line for line in listed.split("\n") if f" -o tests/{program} " in line][-1]
        match = re.search(r"(\S*(?:c\+\+|g\+\+\S*|clang\+\+\S*) .* -o tests/\S+ .*?) &&", link + " &&")
        return shlex.split(match.group(1))

    def object_of(self, source):
        command = shlex.split(self.compile[source]["command"])
        return command[command.index("-o") + 1]

    def compile_command(self, source, changed, result):
        """At -O0 and without debug information, by the build's own options."""
        command = [word for word in shlex.split(self.compile[source]["command"])
                   if not re.fullmatch(r"-O\w*|-g\w*|-Werror", word)]
        command[command.index("-o") + 1] = result
        command[command.index("-c") + 1] = changed
        for option in ("-MT", "-MF"):
            if option in command:
                del command[command.index(option):command.index(option) + 2]
        return [word for word in command if word != "-MD"] + ["-O0", "-w"]

    def link_command(self, program, replaced, result):
        command = [replaced.get(word, word) for word in self.links[program]]
        command[command.index("-o") + 1] = result
        return command + ["-fuse-ld=lld"]


def words_of(path):
    stem = os.path.splitext(os.path.basename(path))[0]
    plain = {"onu", "ability", "test", "common", "info", "and", "of"}
    return {word.rstrip("s") for word in stem.split("_")} - plain


def suites_of(path):
    with open(path, encoding="utf-8") as file:
        return set(re.findall(r"^TEST(?:_F|_P)?\((\w+),", file.read(), re.MULTILINE))


def test_filters(source):
    """The tests in the order in which they are asked: near the source, and the others."""
    near = set()
    folder = os.path.basename(os.path.dirname(source))
    scores = {}
    for path in glob.glob("tests/onu_ability_common/**/*_test.cpp", recursive=True):
        score = 2 * len(words_of(source) & words_of(path))
        score += 1 if os.path.basename(os.path.dirname(path)) == folder else 0
        scores[path] = score
    best = sorted(scores, key=lambda path: (-scores[path], path))[:12]
    for path in best:
        near |= suites_of(path)
    pattern = ":".join(f"{suite}.*:*/{suite}.*" for suite in sorted(near))
    return [pattern, "-" + pattern]


class Trial:
    def __init__(self, build, jobs, untried):
        self.build = build
        self.untried = untried
        self.work = os.path.join(build.folder, "mutants")
        os.makedirs(self.work, exist_ok=True)
        self.free = queue.Queue()
        for worker in range(jobs):
            self.free.put(worker)
        self.deadline = None

    def result_of(self, mutant):
        """"killed TEST", "survived", "not compiling" or "explained"; None when time is up."""
        if identity(mutant) in self.untried:
            return "explained"
        if self.deadline is not None and time.monotonic() > self.deadline:
            return None
        worker = self.free.get()
        try:
            return self.tried(mutant, os.path.join(self.work, str(worker)))
        finally:
            self.free.put(worker)

    def tried(self, mutant, folder):
        folder = os.path.abspath(folder)
        shutil.rmtree(folder, ignore_errors=True)
        os.makedirs(folder)
        # The library's tree with one file changed: links, so that includes stay within.
        tree = folder + "/tree"
        run(["cp", "-rs", os.path.abspath(LIBRARY), tree])
        changed = os.path.join(tree, os.path.relpath(mutant.file, LIBRARY))
        os.remove(changed)
        with open(mutant.file, encoding="utf-8") as file:
            source = file.read()
        with open(changed, "w", encoding="utf-8") as file:
            file.write(source[:mutant.start] + mutant.text + source[mutant.end:])
        compiled = self.compiled(mutant, tree, folder)
        program = os.path.abspath(folder + "/test")
        if compiled is None or not self.linked(PROGRAM, compiled, program):
            return "not compiling"
        result = run_tests(program, mutant.file)
        for sequences in SEQUENCES:
            if result == "survived" and self.linked(sequences, compiled, program):
                result = run_sequences(program)
        if result == "survived" and self.linked(FAULTS, compiled, program):
            result = run_separately(program, "*")
        return result

    def compiled(self, mutant, tree, folder):
        """The object by the one that it stands for; None when the mutant does not compile."""
        objects = {}
        original = os.path.abspath(LIBRARY)
        for source in self.build.includers.get(mutant.file, [mutant.file]):
            result = f"{folder}/{len(objects)}.o"
            written = os.path.join(tree, os.path.relpath(source, LIBRARY))
            command = [word.replace(original, tree) if word.startswith("-I") else word
                       for word in self.build.compile_command(source, written, result)]
            if run(command, cwd=self.build.folder).returncode != 0:
                return None
            objects[self.build.object_of(source)] = result
        return objects

    def linked(self, name, compiled, program):
        command = self.build.link_command(name, compiled, program)
        return run(command, cwd=self.build.folder).returncode == 0


def run_tests(program, source):
    for tests in test_filters(source):
        result = run_separately(program, tests)
        if result != "survived":
            return result
    return "survived"


def run_separately(program, tests):
    ended = run([program, "--separate-processes", "--timeout", str(TEST_SECONDS),
                 "--gtest_fail_fast", "--gtest_filter=" + tests])
    if ended.returncode == 0:
        return "survived"
    failed = re.search(r"^failed: ([^:]+)", ended.stdout, re.MULTILINE)
    if failed is None:
        raise Failure(ended.stdout[-2000:])
    return "killed " + failed.group(1)


def run_sequences(program):
    try:
        ended = run([program, "--gtest_fail_fast", "--gtest_filter=" + SEQUENCE_TESTS],
                    timeout=SEQUENCE_SECONDS)
    except subprocess.TimeoutExpired:
        return "killed by the clock"
    if ended.returncode == 0:
        return "survived"
    failed = re.search(r"^\[  FAILED  \] ([^ ,]+)", ended.stdout, re.MULTILINE)
    return "killed " + (failed.group(1) if failed else f"by status {ended.returncode}")


def explained():
    """The files, lines before and lines after of mutants that nothing can tell apart."""
    listed = reason_list.entries(EXPLAINED, "file ## line before ## line after ## reason")
    return {tuple(fields[:3]) for _, fields in listed}


def identity(mutant):
    return mutant.file, mutant.before, mutant.after


def by_chance(mutants, seed):
    """In an order by chance, in which a mutant keeps its rank as long as its line stays."""
    seen = collections.Counter()
    ranks = {}
    for mutant in mutants:
        seen[identity(mutant)] += 1
        words = [str(seed), *identity(mutant), str(seen[identity(mutant)])]
        ranks[mutant] = hashlib.sha256("##".join(words).encode()).digest()
    return sorted(mutants, key=ranks.get)


def chosen(arguments, sources, known):
    everything = []
    for path in sorted(sources):
        if arguments.only in path:
            with open(path, encoding="utf-8") as file:
                everything += mutation.mutants_of(path, file.read())
    made = {identity(mutant) for mutant in everything}
    for key in sorted(known - made):
        if arguments.only in key[0]:
            raise Failure(f"{EXPLAINED}: no such change is made any more: {' ## '.join(key)}")
    print(f"{len(everything)} mutants can be made; trying {min(arguments.count, len(everything))} "
          f"of them, seed {arguments.seed}", flush=True)
    return by_chance(everything, arguments.seed)[:arguments.count]


def report(results, known, out_of_time):
    kinds = sorted({mutant.kind for mutant, _ in results})
    counts = {kind: [0, 0, 0, 0] for kind in kinds}  # killed, explained, survived, not compiling
    survivors = []
    for mutant, result in results:
        place = {"explained": 1, "survived": 2, "not compiling": 3}.get(result, 0)
        if place == 2 and identity(mutant) in known:
            place = 1
        elif place == 2:
            survivors.append(mutant)
        elif place == 0 and identity(mutant) in known:
            print(f"{EXPLAINED} need not name {mutant.file}:{mutant.line}: {result}")
        counts[mutant.kind][place] += 1
    print(f"{'changed':<12}{'killed':>8}{'explained':>11}{'survived':>10}{'not compiling':>15}")
    for kind in kinds:
        print("{:<12}{:>8}{:>11}{:>10}{:>15}".format(kind, *counts[kind]))
    for mutant in sorted(survivors):
        print(f"survived: {mutant.file}:{mutant.line} ({mutant.kind})\n"
              f"  before: {mutant.before}\n  after:  {mutant.after}")
    killed, alike, survived, broken = (sum(counts[kind][i] for kind in kinds) for i in range(4))
    able = killed + survived
    share = 100.0 * killed / able if able else 0.0
    late = f", {out_of_time} left out for lack of time" if out_of_time else ""
    print(f"mutants: {killed} of {able} killed ({share:.1f} %), {alike} explained, "
          f"{broken} do not compile{late}")
    return share


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n", maxsplit=1)[0])
    parser.add_argument("--build", default="build", help="build tree that is up to date")
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--count", type=int, default=300)
    parser.add_argument("--jobs", type=int, default=os.cpu_count())
    parser.add_argument("--only", default="", help="part of the path of the sources")
    parser.add_argument("--seconds", type=int, help="start no mutant after so many")
    parser.add_argument("--least", type=float, default=95.0, help="per cent to be killed")
    parser.add_argument("--known", action="store_true", help="try the explained ones, too")
    arguments = parser.parse_args()
    known = explained()
    trial = Trial(Build(arguments.build), arguments.jobs, set() if arguments.known else known)
    if arguments.seconds is not None:
        trial.deadline = time.monotonic() + arguments.seconds
    picked = chosen(arguments, [*trial.build.compile, *trial.build.includers], known)
    results = []
    with concurrent.futures.ThreadPoolExecutor(arguments.jobs) as pool:
        for mutant, result in zip(picked, pool.map(trial.result_of, picked)):
            if result is not None:
                results.append((mutant, result))
                print(f"{len(results)}: {mutant.file}:{mutant.line} {mutant.kind}: {result}",
                      flush=True)
    if not results:
        sys.exit("mutants: none was tried")
    if report(results, known, len(picked) - len(results)) < arguments.least:
        sys.exit(f"mutants: less than {arguments.least} % were killed")


if __name__ == "__main__":
    try:
        main()
    except Failure as failure:
        sys.exit(f"mutants: {failure}")
