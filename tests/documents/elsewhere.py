"""The list of commands that no test of a document runs, and where they are run instead."""

import fnmatch
import re

from document import DocumentError

ENTRY = re.compile(r"(\S.*?) +=> +(\S+)(?: +\((.*)\))?")


class Elsewhere:
    """Entries are lines `COMMAND => FILE`, a pattern of whole commands as of a shell's file
    names and the script of this tree that runs them as they stand, by run_elsewhere.py; or
    `COMMAND => FILE (WORDS)`, where WORDS stand in the script. Blank lines and remarks mean
    nothing."""

    def __init__(self, path):
        self._places = {}
        self._words = {}
        for number, line in enumerate(path.read_text().splitlines(), 1):
            if not line.strip() or line.startswith("#"):
                continue
            found = ENTRY.fullmatch(line.strip())
            if not found:
                raise DocumentError(f"{path.name}:{number}: expected COMMAND => FILE")
            if found.group(1) in self._places:
                raise DocumentError(f"{path.name}:{number}: {found.group(1)} stands there twice")
            self._places[found.group(1)] = found.group(2)
            self._words[found.group(1)] = found.group(3)

    def entry_of(self, command):
        """The entry that has the command, or None."""
        command = " ".join(without_remark(command).split())
        return next((pattern for pattern in self._places
                     if fnmatch.fnmatchcase(command, pattern)), None)

    def place(self, pattern):
        return self._places[pattern]

    def words(self, pattern):
        """What stands in the script; None where the script runs what the documents have."""
        return self._words[pattern]

    def runs_as_it_stands(self, pattern):
        return self._words[pattern] is None

    def patterns(self):
        return list(self._places)


def without_remark(command):
    """The command without the words behind a `#`, and in one line."""
    return re.sub(r"(^|\s)#.*", "", command.replace("\\\n", " ")).strip()
