#!/usr/bin/env python3
"""Says which sources of a target can be compiled as one, being included into one file:

    scripts/source_groups.py TARGET=SOURCE...     the group of each, as a list of CMake

Most of the time of a source goes into the headers of the standard library and the test
framework. Sources that use a name which another keeps in its unnamed namespace are kept
apart.
"""
import collections
import re
import sys

MOST = 10  # sources of a group: more take memory and gain little
UNNAMED = re.compile(r"^namespace \{$.*?^\}  // namespace$", re.MULTILINE | re.DOTALL)
# A name defined at the left margin, which is where clang-format leaves namespaces' members.
DEFINITION = re.compile(r"^(?!namespace|using|TEST|INSTANTIATE|[#/}\s])"
                        r"(?:[^\n(={;:]|::)*?\b(\w+)\s*(?:[(={;[]|:(?!:)|$)"
                        r"|^using (\w+) =", re.MULTILINE)


class Group:
    """Sources of which none uses a name that another keeps to itself."""

    def __init__(self):
        self.sources = []
        self.own_names = set()
        self.words = set()

    def takes(self, own_names, words):
        return (len(self.sources) < MOST
                and not self.own_names & words and not own_names & self.words)

    def add(self, source, own_names, words):
        self.sources.append(source)
        self.own_names |= own_names
        self.words |= words


def grouped(sources):
    """The sources in lists, each of which can be compiled as one."""
    groups = []
    for source in sources:
        with open(source, encoding="utf-8") as file:
            text = file.read()
        own_names = {name for part in UNNAMED.findall(text)
                     for names in DEFINITION.findall(part) for name in names if name}
        words = set(re.findall(r"\w+", text))
        group = next((group for group in groups if group.takes(own_names, words)), None)
        if group is None:
            group = Group()
            groups.append(group)
        group.add(source, own_names, words)
    return [group.sources for group in groups]


def main():
    wanted = [argument.split("=", maxsplit=1) for argument in sys.argv[1:]]
    targets = collections.defaultdict(list)
    for target, source in wanted:
        targets[target].append(source)
    name = {(target, source): f"{target}_{place}" for target, sources in targets.items()
            for place, group in enumerate(grouped(sources)) for source in group}
    print(";".join(name[target, source] for target, source in wanted), end="")


if __name__ == "__main__":
    main()
