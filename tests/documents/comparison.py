"""Whether a command's output is what a document shows."""

import re

LEFT_OUT = "..."  # a line, indented or not, that stands for any lines

# What differs from run to run, and from machine to machine, and what stands for it, in
# the document and in the output alike.
NORMALISATIONS = [
    (re.compile(r"\b\d{4}-\d\d-\d\d[ T]\d\d:\d\d:\d\d(?:\.\d+)?Z?"), "TIME"),
    (re.compile(r"\b(?:Jan|Feb|Mar|Apr|May|Jun|Jul|Aug|Sep|Oct|Nov|Dec) [ \d]\d \d\d:\d\d\b"), "TIME"),
    (re.compile(r"^Session +User +From +Access +Since +Idle$"), "SESSIONS"),
    (re.compile(r"^( +\d+) +\S+ +(console|unix|127\.0\.0\.1:\d+) +(full|read-only) +TIME +\d+s$"),
     r"\1 USER \2 \3 TIME IDLE"),
    (re.compile(r'^( *"user": ")(?:[^"]*)(",?)$'), r"\1USER\2"),
    (re.compile(r"^(  (?:Process|Library|Compiler|Build|Up for|Threads) +).*"), r"\1..."),
    (re.compile(r'^( *"(?:process|library|compiler|build|idle_seconds|uptime_seconds)": ).*?(,?)$'),
     r"\1...\2"),
    (re.compile(r"^(  (?:Memory|Most memory) in use +)\d+ kB"), r"\1..."),
    (re.compile(r"\b\d+m \d\ds\b"), "DURATION"),
    (re.compile(r"\b\d+(?:\.\d+)? ?(?:us|ms|s)\b"), "DURATION"),
    (re.compile(r'^( *"\w+_seconds": )[-+.e\d]+'), r"\1DURATION"),
    # A run of a moment has no rate.
    (re.compile(r"(\d+ ONUs in DURATION), \d+ a second"), r"\1"),
    (re.compile(r"(func:\w+,line:)\d+"), r"\1N"),
]


def normalised(line):
    for pattern, text in NORMALISATIONS:
        line = pattern.sub(text, line)
    return line.rstrip()


def without_blank_end(lines):
    end = len(lines)
    while end > 0 and not lines[end - 1].strip():
        end -= 1
    return lines[:end]


def matches(shown, real):
    """Whether the lines of a document stand for the real ones."""
    shown = [normalised(line) for line in without_blank_end(shown)]
    real = [normalised(line) for line in without_blank_end(real)]
    pieces = [[]]
    for line in shown:
        if line.strip() == LEFT_OUT:
            pieces.append([])
        else:
            pieces[-1].append(line)
    if len(pieces) == 1:
        return shown == real
    head, *middle, tail = pieces
    if len(head) + len(tail) > len(real) or real[:len(head)] != head:
        return False
    if tail and real[-len(tail):] != tail:
        return False
    at, end = len(head), len(real) - len(tail)
    for piece in middle:
        at = _find(piece, real, at, end)
        if at is None:
            return False
    return True


def _find(piece, real, begin, end):
    """Where the lines end that are those of the piece, or None."""
    for at in range(begin, end - len(piece) + 1):
        if real[at:at + len(piece)] == piece:
            return at + len(piece)
    return None
