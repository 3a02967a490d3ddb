#!/usr/bin/env python3
"""Runs the suite of a build directory, its programs by an emulator if one is given:

    scripts/run_test_programs.py [--only PROGRAM,...] BUILD [EMULATOR...]

A program that can start its tests itself, each in a process of its own, is started once:
starting is what costs under an emulator. CTest runs all that is left over. With --only,
the tests of these programs are the suite.
"""
import argparse
import functools
import json
import os
import resource
import subprocess
import sys
import time


@functools.lru_cache(maxsize=None)
def starts_its_tests(program):
    """Whether the program has the main of tests/support/separate_processes/."""
    with open(program, "rb") as file:
        return b" tests ended, " in file.read()


def program_of(test):
    """The test program that runs this test of CTest's list, or None."""
    for word in test.get("command", []):
        if word.endswith("_test") and os.access(word, os.X_OK):
            return word
    return None


def environment_of(test):
    """What CTest sets for this test, beside what is set already."""
    settings = {}
    for item in test.get("properties", []):
        if item["name"] == "ENVIRONMENT":
            settings.update(setting.split("=", 1) for setting in item["value"])
        elif item["name"] == "ENVIRONMENT_MODIFICATION":
            settings.update(setting.split("=set:", 1) for setting in item["value"])
    return {**os.environ, **settings}


def run_program(program, environment, emulator):
    """Returns how many tests passed; ends everything when one did not."""
    started = time.monotonic()
    patience = ["--timeout", "1800"] if emulator else []  # seconds a test; emulators are slow
    result = subprocess.run(
        [*emulator, program, "--separate-processes", "--jobs", str(os.cpu_count()), *patience],
        stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, errors="replace",
        env=environment)
    summary = result.stdout.strip().splitlines()[-1]
    if result.returncode != 0 or not summary.endswith("all passed"):
        sys.exit(f"{result.stdout}\n{program} failed")
    seconds = time.monotonic() - started
    print(f"{os.path.basename(program)}: {summary}, {seconds:.0f} s", flush=True)
    return int(summary.split()[0])


def processor_seconds():
    """What the programs started so far have used."""
    used = resource.getrusage(resource.RUSAGE_CHILDREN)
    return used.ru_utime + used.ru_stime


def arguments():
    parser = argparse.ArgumentParser(usage=__doc__)
    parser.add_argument("--only", type=lambda names: names.split(","))
    parser.add_argument("build")
    parser.add_argument("emulator", nargs=argparse.REMAINDER)
    return parser.parse_args()


def main():
    wanted = arguments()
    build, emulator = wanted.build, wanted.emulator
    started = time.monotonic()
    listed = subprocess.run(["ctest", "--test-dir", build, "--show-only=json-v1"],
                            stdout=subprocess.PIPE, text=True, check=True)
    programs, environments, left_over, found = {}, {}, [], set()
    for number, test in enumerate(json.loads(listed.stdout)["tests"], start=1):
        program = program_of(test)
        name = os.path.basename(program or "")
        if wanted.only and name not in wanted.only:
            continue
        found.add(name)
        if program is not None and starts_its_tests(program):
            programs[program] = programs.get(program, 0) + 1
            environments[program] = environment_of(test)
        else:
            left_over.append(number)
    if not found or not found.issuperset(wanted.only or []):
        sys.exit(f"{build} has tests of {sorted(found)} only")
    passed = 0
    for program, known in sorted(programs.items()):
        ran = run_program(program, environments[program], emulator)
        # A filter that CTest passes on leaves tests out there, never here.
        if ran < known:
            sys.exit(f"{program}: {ran} tests ran of {known}")
        passed += ran
    if left_over:
        chosen = ",".join(["0", "0", "0", *map(str, left_over)])
        status = subprocess.run(["ctest", "--test-dir", build, "-I", chosen, "-j",
                                 str(os.cpu_count()), "--output-on-failure",
                                 "--progress"]).returncode
        if status != 0:
            sys.exit(status)
    print(f"all {passed + len(left_over)} tests passed in {time.monotonic() - started:.0f} s, "
          f"{processor_seconds():.0f} s of processor time")


if __name__ == "__main__":
    main()
