#!/usr/bin/python3
"""Holds the list of commands that are run elsewhere against the documents and against the
scripts that are said to run them: every entry has a command in some document, and the script runs
the commands as they stand there, or has the words that the list gives. What documents
have for installed packages only is run by the gate that installs them. A command in the
running text is run somewhere as well: in a block of a document, or by such a script.

    check_elsewhere.py TREE LIST
"""

import argparse
import pathlib
import re
import sys

from check_links import CODE, documents, prose
from document import DocumentError, lone_commands, read_document
from elsewhere import Elsewhere, without_remark

# What one types in the tree. The host's jobs are left out: in the running text they are
# names, and the blocks show them.
TYPED = re.compile(r"(?:make|cmake|ctest|dpkg|apt-get|doxygen|(?:scripts|bench|tests)/\S+\.(?:sh|py)) ")
PLACEHOLDER = re.compile(r"(?:^|\s)\[?[A-Z][A-Z_]*\]?(?:\s|$)|\.\.\.")

INSTALLED_BY = "scripts/check_packages.sh"
RUNS_INSTALLED = "run_document.py --installed"


def commands_of(document):
    for step in read_document(document):
        if step.kind == "shell":
            yield step.text
        elif step.kind == "commands":
            yield from (command for _, command in lone_commands(step.text))


def inline_commands(document):
    """(line, command) for each command in the running text that can be typed as it stands."""
    text = prose(document.read_text())
    for found in CODE.finditer(text):
        command = " ".join(found.group(2).split())
        if TYPED.match(command) and not PLACEHOLDER.search(command):
            yield text.count("\n", 0, found.start()) + 1, command


def unrun_with_packages(tree):
    """Whether documents have commands for installed packages, and no gate runs them."""
    gate = tree / INSTALLED_BY
    if gate.is_file() and RUNS_INSTALLED in gate.read_text():
        return []
    return [f"{document.relative_to(tree)} has commands for installed packages, and "
            f"{INSTALLED_BY} does not run them"
            for document in documents(tree)
            if any(step.kind == "installed" for step in read_document(document))]


def faults(tree, elsewhere):
    used, shown = set(), set()
    for document in documents(tree):
        try:
            shown.update(without_remark(command) for command in commands_of(document))
        except DocumentError as error:
            yield str(error)
    used.update(elsewhere.entry_of(command) for command in shown)
    for document in documents(tree):
        for line, command in inline_commands(document):
            entry = elsewhere.entry_of(command)
            used.add(entry)
            if entry is None and command not in shown:
                yield f"{document.relative_to(tree)}:{line}: nothing runs \"{command}\""
    for pattern in elsewhere.patterns():
        place = tree / elsewhere.place(pattern)
        if pattern not in used:
            yield f"no document has a command \"{pattern}\""
        if not place.is_file():
            yield f"\"{pattern}\" is run by {elsewhere.place(pattern)}, which is not there"
            continue
        words = elsewhere.words(pattern) or f"run_elsewhere.py {elsewhere.place(pattern)}"
        if words not in " ".join(place.read_text().split()):
            yield f"{elsewhere.place(pattern)} does not run \"{words}\""


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n\n")[0])
    parser.add_argument("tree", type=pathlib.Path)
    parser.add_argument("list", type=pathlib.Path)
    options = parser.parse_args()
    elsewhere = Elsewhere(options.list)
    found = list(faults(options.tree, elsewhere)) + unrun_with_packages(options.tree)
    print("\n".join(found + [f"{len(elsewhere.patterns())} entries, {len(found)} faults"]))
    sys.exit(1 if found else 0)


if __name__ == "__main__":
    main()
