#!/usr/bin/python3
"""Holds the options in docs/man/olt_host.1 against what olt_host --help says.

    man_options.py OLT_HOST PAGE

Each job stands in the page's synopsis with its options and arguments, and each option is
described once. Fails on an option or argument that either side lacks, or that takes a value
on one side alone.
"""

import re
import subprocess
import sys

import reference_check

LONG = re.compile(r"\bFl -([a-z][a-z-]*)(?: Ar (\S+))?")
SHORT = re.compile(r"\bFl ([a-z])(?: Ar (\S+))?(?= |$)")


def help_text(host, *job):
    return subprocess.run([host, *job, "--help"], check=True, capture_output=True,
                          text=True).stdout


def section(text, title):
    """The indented lines behind a title, those that continue another one left out."""
    found = re.search(rf"^{title}:\n((?:  .*\n)+)", text, re.MULTILINE)
    return [line for line in found.group(1).splitlines() if line[2] != " "] if found else []


def options_in_help(text):
    """Every name of every option, and whether it takes a value."""
    options = {}
    for line in section(text, "Options"):
        names = line.split()[0].split(",")
        words = line[2 + len(line.split()[0]):]
        # A value stands one blank behind the name, the description in a column of its own.
        value = re.match(r" (?!Excludes:)\S", words)
        for name in names:
            options[name] = value is not None
    return options


def arguments_in_help(text):
    return [line.split()[0] for line in section(text, "Positionals")]


def macro_options(lines):
    """The options that lines of mdoc name. Of alternatives the last name's value counts."""
    options = {}
    for line in lines:
        named = [("--" + found.group(1), found.group(2)) for found in LONG.finditer(line)]
        named += [("-" + found.group(1), found.group(2)) for found in SHORT.finditer(line)]
        one_option = " , " in line or re.match(r"\.Op Fl [a-z] \| Fl -", line)
        takes_value = [value for _, value in named if value]
        for name, value in named:
            options[name] = bool(takes_value) if one_option else value is not None
    return options


def page_parts(page):
    """The synopsis of each job, and the lines that describe options."""
    synopsis = page.split(".Sh SYNOPSIS\n")[1].split(".Sh ")[0]
    jobs = {}
    for part in re.split(r"^\.Nm\n", synopsis, flags=re.MULTILINE)[1:]:
        lines = part.splitlines()
        jobs[lines[0].removeprefix(".Cm ")] = lines[1:]
    described = page.split(".Sh OPTIONS\n")[1].split(".Sh ")[0]
    return jobs, [line for line in described.splitlines() if line.startswith(".It Fl ")]


def arguments_in(lines):
    words = [word for line in lines if line.startswith((".Ar ", ".Op Ar "))
             for word in line.split()]
    return [word for word in words if word.isupper()]


def compare(what, on_page, in_help, complaints):
    for name in sorted(in_help.keys() - on_page.keys()):
        complaints.append(f"{what}: {name} is in --help, not in the page")
    for name in sorted(on_page.keys() - in_help.keys()):
        complaints.append(f"{what}: {name} is in the page, not in --help")
    for name in sorted(in_help.keys() & on_page.keys()):
        if in_help[name] != on_page[name]:
            complaints.append(f"{what}: {name} takes a value in one of page and --help alone")


def main():
    if len(sys.argv) != 3:
        print(__doc__, file=sys.stderr)
        return 2
    host, page = sys.argv[1], open(sys.argv[2], encoding="utf-8").read()
    complaints = []
    overview = help_text(host)
    jobs_in_help = [line.split()[0] for line in section(overview, "Subcommands")]
    jobs_on_page, described_lines = page_parts(page)
    compare("jobs", dict.fromkeys(jobs_on_page, 0), dict.fromkeys(jobs_in_help, 0), complaints)
    everything = options_in_help(overview)
    for job in jobs_in_help:
        text = help_text(host, job)
        options = options_in_help(text)
        everything.update(options)
        lines = jobs_on_page.get(job, [])
        # Every job has it; the synopsis need not repeat it.
        compare(job, macro_options(lines) | {"-h": False, "--help": False}, options, complaints)
        if arguments_in(lines) != arguments_in_help(text):
            complaints.append(f"{job}: the page has the arguments {arguments_in(lines)}, --help "
                              f"has {arguments_in_help(text)}")
    compare("OPTIONS", macro_options(described_lines), everything, complaints)
    return reference_check.conclude(sys.argv[2], complaints,
                                    f"{len(jobs_in_help)} jobs, {len(everything)} options")


if __name__ == "__main__":
    sys.exit(main())
