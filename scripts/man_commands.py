#!/usr/bin/python3
"""Holds the commands in docs/man/olt_host-commands.7 against those that olt_host lists.

    man_commands.py OLT_HOST PAGE

Fails on a command that either side lacks, and on one that is told twice. "try" before
another command is told once for all.
"""

import re
import subprocess
import sys

import reference_check

TRY_ANY = "try Ar LINE"


def listed(host):
    """The syntax of every command; long ones go on in lines further in."""
    output = subprocess.run([host, "run", "-c", "list"], check=True, capture_output=True,
                            text=True).stdout
    commands = []
    for line in output.splitlines():
        if line.startswith("   "):
            commands[-1] += " " + line.strip()
        elif line.strip():
            commands.append(line.strip())
    return commands


def is_trial(command, commands):
    """Whether a command is another one with "try" in front of it."""
    tried = command.removeprefix("try ").removesuffix(" {[json]}*1")
    return command.startswith("try ") and tried in commands


def main():
    if len(sys.argv) != 3:
        print(__doc__, file=sys.stderr)
        return 2
    commands = listed(sys.argv[1])
    with open(sys.argv[2], encoding="utf-8") as file:
        told = re.findall(r"^\.It Ic (.*)$", file.read(), re.MULTILINE)
    wanted = {command for command in commands if not is_trial(command, commands)} | {TRY_ANY}
    complaints = [f"{command} is no command" for command in told if command not in wanted]
    complaints += [f"{command} is missing" for command in sorted(wanted) if command not in told]
    complaints += [f"{command} is told twice" for command in sorted(set(told))
                   if told.count(command) > 1]
    if not commands:
        complaints.append("the host lists no command")
    return reference_check.conclude(sys.argv[2], complaints, f"{len(commands)} commands")


if __name__ == "__main__":
    sys.exit(main())
