#!/usr/bin/python3
"""Runs, in the tree itself, the commands of the documents of which the list of commands
that are run elsewhere says that a script runs them as they stand; for that script. Each is
run once, must succeed, and must print what each document shows of it.

    run_elsewhere.py SCRIPT [--tree TREE] [--list LIST]
"""

import argparse
import pathlib
import subprocess
import sys
import time

from check_links import documents
from comparison import matches
from document import lone_commands, read_document
from elsewhere import Elsewhere, without_remark

HERE = pathlib.Path(__file__).resolve().parent


def commands_of(script, tree, elsewhere):
    """What documents show of each command: command -> [(where, lines)]."""
    found = {}
    for document in documents(tree):
        for step in read_document(document):
            where = f"{document.name}:{step.line}"
            shown = {}
            if step.kind == "shell":
                shown = {step.text: [(where, step.shown)]}
            elif step.kind == "commands":
                shown = {command: [] for _, command in lone_commands(step.text)}
            for command, outputs in shown.items():
                entry = elsewhere.entry_of(command)
                if entry is not None and elsewhere.place(entry) == script and \
                        elsewhere.runs_as_it_stands(entry):
                    found.setdefault(without_remark(command), []).extend(outputs)
    return found


def run(command, outputs, tree):
    """What went wrong."""
    started = time.monotonic()
    done = subprocess.run(["bash", "-c", command], cwd=tree, stdin=subprocess.DEVNULL,
                          stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, check=False)
    print(f"{command}: {time.monotonic() - started:.0f} s", flush=True)
    if done.returncode != 0:
        yield f"{command} ended with {done.returncode}:\n{done.stdout}"
    for where, shown in outputs:
        if not matches(shown, done.stdout.splitlines()):
            yield f"{where} shows something else; {command} prints\n{done.stdout}"


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n\n")[0])
    parser.add_argument("script")
    parser.add_argument("--tree", type=pathlib.Path, default=HERE.parents[1])
    parser.add_argument("--list", type=pathlib.Path, default=HERE / "run_elsewhere.txt")
    options = parser.parse_args()
    commands = commands_of(options.script, options.tree, Elsewhere(options.list))
    if not commands:
        sys.exit(f"no document has a command that {options.script} runs")
    faults = [fault for command, outputs in commands.items()
              for fault in run(command, outputs, options.tree)]
    print("\n".join(faults + [f"{len(commands)} commands run, {len(faults)} faults"]))
    sys.exit(1 if faults else 0)


if __name__ == "__main__":
    main()
