#!/usr/bin/python3
"""Writes docs/log-messages.md: what the library says, what it means and what to do.

    log_messages.py               writes the page
    log_messages.py --check       fails when the page is not what it would write
    log_messages.py --lines FILE  fails when a line of this log file is not on the page

The messages come from the sources, their meanings from docs/log_messages.yaml. A message
without a meaning fails, and so does a meaning without a message.
"""

import pathlib
import re
import sys

import yaml

import log_calls
import reference_check

LEVELS = {
    0: "Input that breaks a rule is rejected.",
    13: "A null pointer, or a profile that cannot be packed or unpacked.",
    1: "A lookup found nothing, a query failed, an ordinary refusal. Many are harmless: a first "
       "time is a lookup that finds nothing, too.",
    4: "Progress and comparisons of profiles and of confirmations: how an ONU became what it is.",
    5: "Results handed back, compared values.",
    6: "The steps of walks through registries and profiles, derived counts.",
    9: "A find or a hit.",
    10: "The traces of nearly every operation, the most frequent level.",
}
MUST_SAY_WHAT_TO_DO = (0, 1, 13)
MANY = 6  # operations in a cell

HEAD = """\
# Log messages

Every line that the library logs, by its level: what says it, what it means, what to do. The
page is written by `scripts/log_messages.py` from the sources and from
`docs/log_messages.yaml`; change those.

To find a line, search for its words up to the first number. `%d` and the like stand for
what the line fills in: `%d`, `%u`, `%hu` and `%hhu` a number, `%x` one in hexadecimal, `%s`
a text. A number of all ones reads -1 as `%d`: the wildcard, or "not set". A status, `ret:`,
is 0x80000001 for a null pointer, 0x80000002 for a bad argument, 0x80000003 for a refused
change or an unreadable value, 0x80000004 for nothing found.

Every line ends in ` func:%s,line:%d`, which the page leaves out: the short name of the
operation and the line of its source. The name tells apart what the same words say in
several operations, which are listed under "Said by". Two line breaks follow, which most
hosts' logs drop.

Which levels a host hands over is set by `onu_ability_set_log_level_mask`; the reference
host's `show log` and `log mask` are in [the host's commands](host-commands.md#the-log).
Level by level:

| Level | |
|---|---|
"""


def library_operations(operations):
    """The operations of a message for a cell: all, or how many each class has."""
    distinct = sorted(set(operations))
    if len(distinct) <= MANY:
        return ", ".join(f"`{operation}`" for operation in distinct)
    classes = sorted({operation.split("::")[0] for operation in distinct})
    shown = []
    for one in classes:
        members = [operation for operation in distinct if operation.split("::")[0] == one]
        shown.append(f"`{members[0]}`" if len(members) == 1
                     else f"{len(members)} operations of `{one}`")
    return ", ".join(shown)


def shown_text(text):
    for ending in ("\\n", "\\r", "\\n", "\\r"):
        text = text.removesuffix(ending)
    return f"`{text.replace(chr(92) + 'r' + chr(92) + 'n', ' ')}`" if text else "(an empty line)"


def gather(messages):
    """The operations that say each message."""
    said_by = {}
    for message in messages:
        said_by.setdefault((message.level, message.text), []).append(message.operation)
    return said_by


def join(said_by, entries, complaints):
    """What is known of each message, checked against what the sources say."""
    known = {}
    for entry in entries:
        level = entry.get("level")
        meaning = entry.get("means", "").strip()
        action = entry.get("do", "").strip()
        for text in entry["texts"]:
            place = f"level {level}: {text}" if level is not None else text
            if (level, text) in known:
                complaints.append(f"two meanings for {place}")
            if (level, text) not in said_by:
                complaints.append(f"a meaning, but no source says it: {place}")
            if not meaning or (level in MUST_SAY_WHAT_TO_DO and not action):
                complaints.append(f"says not what it means or what to do: {place}")
            known[level, text] = (meaning, action)
    for level, text in said_by:
        if (level, text) not in known:
            complaints.append(f"no meaning for " + (f"level {level}: " if level is not None else "")
                              + text)
    return known


def table(keys, said_by, known):
    with_action = any(known.get(key, ("", ""))[1] for key in keys)
    lines = ["| Line | Said by | It means | What to do |", "|---|---|---|---|"] if with_action else [
        "| Line | Said by | It means |", "|---|---|---|"]
    for key in sorted(keys, key=lambda key: (key[1].lstrip("("), key[1])):
        meaning, action = known.get(key, ("", ""))
        cells = [shown_text(key[1]), library_operations(said_by[key]), meaning]
        if with_action:
            cells.append(action or "Nothing.")
        lines.append("| " + " | ".join(cell.replace("|", "\\|") for cell in cells) + " |")
    return "\n".join(lines) + "\n"


def page(root, complaints):
    meanings = yaml.safe_load((root / "docs/log_messages.yaml").read_text())
    said_by = gather(log_calls.log_messages(root))
    known = join(said_by, meanings["log"], complaints)
    levels = {level for level, _ in said_by}
    for level in sorted(levels - LEVELS.keys()):
        complaints.append(f"nothing is said about level {level}")
    text = HEAD
    for level, about in LEVELS.items():
        text += f"| [{level}](#level-{level}) | {about} |\n"
    for level, about in LEVELS.items():
        text += f"\n## Level {level}\n\n{about}\n\n"
        text += table([key for key in said_by if key[0] == level], said_by, known)
    text += "\n## What the commands write\n\nThe operator's commands write these to the terminal, " \
            "not to the log; their listings\nare left out.\n\n"
    written = gather(log_calls.command_messages(root))
    text += table(list(written), written, join(written, meanings["commands"], complaints))
    text += "\n## On standard output\n\nThe hex conversions say what is wrong on standard output " \
            "of the process, past the log.\n\n"
    written = gather(log_calls.output_lines(root))
    text += table(list(written), written, join(written, meanings["output"], complaints))
    return text, len(said_by)


def pattern_of(text):
    """What a line of this format looks like, line breaks at its end left out."""
    text = re.sub(r"(?:\\r|\\n)+$", "", text)
    parts = re.split(r"(%[-0-9.]*(?:hh|h)?[a-z])", text)
    return "".join(".*" if part.startswith("%") else re.escape(part) for part in parts)


def unknown_lines(root, file):
    """The lines of a log file of olt_host that no message explains, and how many there are."""
    said_by = gather(log_calls.log_messages(root))
    patterns = {}
    for (level, text), operations in said_by.items():
        for operation in operations:
            name = operation.split("::")[-1]
            patterns.setdefault((level, name), []).append(re.compile(pattern_of(text)))
    line_form = re.compile(r"\S+ \S+ level (\d+) module \d+ (.*) func:(\S+),line:\d+$")
    unknown, count = [], 0
    for line in file.read_text(errors="replace").splitlines():
        parts = line_form.match(line)
        count += 1
        known = parts and any(pattern.fullmatch(parts.group(2).rstrip()) for pattern in
                              patterns.get((int(parts.group(1)), parts.group(3)), ()))
        if not known:
            unknown.append(line)
    return unknown, count


def main():
    parser = reference_check.arguments(__doc__.split("\n\n")[0])
    parser.add_argument("--lines", type=pathlib.Path, metavar="FILE",
                        help="look for the lines of a log file of olt_host on the page")
    options = parser.parse_args()
    complaints = []
    if options.lines:
        unknown, count = unknown_lines(options.root, options.lines)
        for line in unknown[:10]:
            print(f"log messages: no message of the sources is like this: {line}", file=sys.stderr)
        print(f"{count - len(unknown)} of {count} log lines of a run are explained")
        return 0 if count and not unknown else 1
    text, count = page(options.root, complaints)
    reference_check.write_or_compare(options, "docs/log-messages.md", text, "log_messages.py",
                                     complaints)
    return reference_check.conclude("log messages", complaints, f"{count} log messages")


if __name__ == "__main__":
    sys.exit(main())
