#!/usr/bin/env python3
"""Runs the fuzz targets of a build, two at a time, and tabulates what they reached.

    fuzz_targets.py BUILD [SECONDS] [--seed N]   fuzzes each target for so long
    fuzz_targets.py BUILD --coverage             runs the kept corpora alone, lists their sources

BUILD/tests/fuzz/targets.txt names each target, the least share of lines that it has to reach
of the sources that it is meant for, in per cent, and these. Fails when a target did, when it
reaches less, or when a corpus is empty.
"""

import argparse
import concurrent.futures
import json
import os
import pathlib
import re
import shutil
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
AT_A_TIME = 2
# Eleven targets, two at a time: a minute and a half.
DEFAULT_SECONDS = 16
SYMBOLIZER = "/usr/bin/llvm-symbolizer"


class Target:
    def __init__(self, build, line):
        self.name, least, patterns = line.split(":")
        self.least = int(least)
        self.program = build / "tests/fuzz" / f"fuzz_{self.name}"
        self.sources = []
        for pattern in patterns.split():
            found = sorted(str(path) for path in ROOT.glob(pattern))
            if not found:
                sys.exit(f"fuzz: {self.name} is meant for {pattern}, which is no source")
            self.sources += found
        self.corpus = ROOT / "tests/fuzz/corpus" / self.name
        self.found = build / "found" / self.name
        self.failing = build / "failing"
        self.profile = build / "coverage" / self.name
        self.library = build / "src/onu_ability_common/libonu_ability_common.so"
        self.log = build / f"fuzz_{self.name}.log"
        self.tried = 0
        self.edges = 0
        self.failed = False
        self.lines = {}  # by source: lines reached, lines

    def kept(self):
        return sorted(path for path in self.corpus.glob("*") if path.is_file())

    def run(self, arguments, profile):
        environment = dict(os.environ, LLVM_PROFILE_FILE=str(profile))
        if os.path.exists(SYMBOLIZER):
            environment["ASAN_SYMBOLIZER_PATH"] = SYMBOLIZER
        command = [self.program, "-close_fd_mask=1", "-timeout=60", "-rss_limit_mb=2048",
                   f"-artifact_prefix={self.failing}/{self.name}-", *arguments]
        with open(self.log, "w", encoding="utf-8") as log:
            done = subprocess.run([str(word) for word in command], env=environment, stderr=log,
                                  stdout=log, check=False)
        self.failed |= done.returncode != 0
        return self.log.read_text(encoding="utf-8", errors="replace")

    def fuzz(self, seconds, seed):
        self.found.mkdir(parents=True, exist_ok=True)
        self.failing.mkdir(parents=True, exist_ok=True)
        said = self.run([f"-max_total_time={seconds}", f"-seed={seed}", "-print_final_stats=1",
                         self.found, self.corpus], "/dev/null")
        tried = re.findall(r"^#(\d+)\s", said, re.MULTILINE)
        edges = re.findall(r" cov: (\d+) ", said)
        self.tried = int(tried[-1]) if tried else 0
        self.failed |= self.tried == 0
        self.edges = int(edges[-1]) if edges else 0

    def measure(self, folders):
        """Counts the lines that the inputs of the folders reach."""
        shutil.rmtree(self.profile, ignore_errors=True)
        self.profile.mkdir(parents=True)
        self.failing.mkdir(parents=True, exist_ok=True)
        said = self.run(["-runs=0", *folders], self.profile / "%m.profraw")
        edges = re.findall(r" cov: (\d+) ", said)
        self.edges = int(edges[-1]) if edges else 0
        if self.failed:
            return
        merged = self.profile / "merged.profdata"
        subprocess.run(["llvm-profdata", "merge", "-sparse", "-o", merged,
                        *self.profile.glob("*.profraw")], check=True)
        command = ["llvm-cov", "export", "-summary-only", f"-instr-profile={merged}",
                   self.program]
        if "libonu_ability_common" in self.needed():
            command += ["-object", self.library]
        exported = subprocess.run(command + self.sources, capture_output=True, check=False)
        if exported.returncode != 0:
            sys.exit(exported.stderr.decode())
        for file in json.loads(exported.stdout)["data"][0]["files"]:
            lines = file["summary"]["lines"]
            self.lines[os.path.relpath(file["filename"], ROOT)] = (lines["covered"],
                                                                   lines["count"])

    def needed(self):
        return subprocess.run(["readelf", "-d", self.program], check=True, text=True,
                              stdout=subprocess.PIPE).stdout

    def counts(self):
        return [sum(lines[i] for lines in self.lines.values()) for i in (0, 1)]

    def reached(self):
        covered, count = self.counts()
        return f"{covered} of {count}, {100 * covered / count:.1f} %" if count else "none"

    def reaches_enough(self):
        covered, count = self.counts()
        return 100 * covered >= self.least * count > 0

    def tell_failure(self):
        print(f"fuzz: {self.name} failed; the end of {os.path.relpath(self.log, ROOT)}:")
        said = self.log.read_text(encoding="utf-8", errors="replace").splitlines()
        print("\n".join(said[-60:]))
        kept = re.findall(r"Test unit written to (\S+)", "\n".join(said))
        program = os.path.relpath(self.program, ROOT)
        for path in kept:
            path = os.path.relpath(path, ROOT)
            print(f"fuzz: the input is {path}; replay it with\n  {program} {path}")


def print_table(rows):
    widths = [max(len(row[i]) for row in rows) for i in range(len(rows[0]))]
    for row in rows:
        print("  ".join(cell.ljust(width) for cell, width in zip(row, widths)).rstrip())


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n", maxsplit=1)[0])
    parser.add_argument("build", type=pathlib.Path)
    parser.add_argument("seconds", type=int, nargs="?", default=DEFAULT_SECONDS)
    # The gate's runs differ as little as two runs can, so that a change is to blame.
    parser.add_argument("--seed", type=int, default=1, help="0: another one each time")
    parser.add_argument("--coverage", action="store_true")
    options = parser.parse_args()
    build = options.build.resolve()
    listed = (build / "tests/fuzz/targets.txt").read_text(encoding="utf-8").split("\n")
    targets = [Target(build, line) for line in listed if line]
    empty = [target.name for target in targets if not target.kept()]
    if empty:
        sys.exit(f"fuzz: no corpus is kept for {', '.join(empty)}")

    def attack(target):
        if not options.coverage:
            target.fuzz(options.seconds, options.seed)
        if not target.failed:
            target.measure([target.corpus])

    with concurrent.futures.ThreadPoolExecutor(AT_A_TIME) as pool:
        for done in [pool.submit(attack, target) for target in targets]:
            done.result()
    if options.coverage:
        for target in targets:
            print(f"{target.name}: {len(target.kept())} inputs, {target.reached()}")
            for source, (covered, count) in sorted(target.lines.items()):
                print(f"  {100 * covered / count:5.1f} %  {covered:4} of {count:4}  {source}")
    else:
        rows = [["target", "inputs tried", "edges", "kept", "lines of its sources that they reach"]]
        for target in targets:
            rows.append([target.name, str(target.tried), str(target.edges),
                         str(len(target.kept())), target.reached()])
        print_table(rows)
    failed = [target for target in targets if target.failed]
    for target in failed:
        target.tell_failure()
    if failed:
        sys.exit(f"fuzz: {', '.join(target.name for target in failed)} failed")
    shallow = [target for target in targets if not target.reaches_enough()]
    for target in shallow:
        print(f"fuzz: {target.name} reaches {target.reached()} of the lines that it is meant for; "
              f"expected {target.least} %. tests/fuzz/README.md tells how to add to its corpus.")
    if shallow:
        sys.exit(1)
    what = "kept inputs" if options.coverage else "inputs"
    inputs = sum(len(t.kept()) if options.coverage else t.tried for t in targets)
    print(f"fuzz: {len(targets)} targets stand {inputs} {what}")


if __name__ == "__main__":
    main()
