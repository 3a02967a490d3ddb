"""Reads a list of reasons: an entry a line, fields between " ## "; # begins a remark."""
import sys


def entries(path, expected):
    """(line number, fields); ends the program at a line with other fields than expected."""
    with open(path, encoding="utf-8") as lines:
        for number, line in enumerate(lines, 1):
            line = line.rstrip("\n")
            if not line.strip() or line.startswith("#"):
                continue
            fields = line.split(" ## ")
            if len(fields) != len(expected.split(" ## ")):
                sys.exit(f"{path}:{number}: expected {expected}")
            yield number, fields
