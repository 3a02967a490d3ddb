#!/usr/bin/python3
"""Follows every link of every document: relative links and their anchors, and paths of
the tree in inline code. Links to other machines are not followed.

    check_links.py TREE [--tested DOCUMENT ...] [--links-alone]

With --tested every document of the tree has to be among them: one that no test executes
is told of. With --links-alone the paths in inline code are left out, as of documents that
are installed where the tree is not.
"""

import argparse
import collections
import pathlib
import re
import sys

FENCE = re.compile(r" *(```+|~~~+)")
HEADING = re.compile(r"(#{1,6}) +(.*?)(?: +#+)?$")
EXPLICIT_ANCHOR = re.compile(r"<a (?:id|name)=\"([^\"]+)\"")
CODE = re.compile(r"(`+)(.+?)\1", re.DOTALL)
LINK = re.compile(r"!?\[(?:[^\[\]]|\[[^\[\]]*\])*\]\(\s*<?([^)\s>]+)>?(?:\s+\"[^\"]*\")?\s*\)")
DEFINITION = re.compile(r"^ {0,3}\[[^\]]+\]: *(\S+)", re.MULTILINE)
OTHER_MACHINE = re.compile(r"[a-z][a-z0-9+.-]*:", re.IGNORECASE)
PATH = re.compile(r"[\w.@+*{},-]+(?:/[\w.@+*{},-]*)+")
PLACEHOLDER = re.compile(r"\b[A-Z][A-Z_]*\b")  # as TARGET in `tests/fuzz/corpus/TARGET/`


def documents(tree):
    """All Markdown files of the tree, without what builds leave there."""
    for path in sorted(tree.rglob("*.md")):
        top = path.relative_to(tree).parts[0]
        if not top.startswith((".", "build")) or len(path.relative_to(tree).parts) == 1:
            yield path


def prose(text):
    """The text without its blocks; lines keep their numbers."""
    lines, mark, previous = [], None, ""
    for line in text.splitlines():
        fence = FENCE.match(line)
        if mark is None and fence:
            mark = fence.group(1)
            lines.append("")
        elif mark is not None:
            lines.append("")
            mark = None if line.strip() == mark else mark
        else:
            is_block = line.startswith("    ") and not previous.strip()
            lines.append("" if is_block else line)
            if is_block:
                continue  # the next indented line is of the same block
        previous = line
    return "\n".join(lines)


def anchor_of(heading):
    """As the renderers of repositories make it."""
    text = re.sub(r"\[([^\]]*)\]\([^)]*\)", r"\1", heading)
    text = re.sub(r"[^\w\- ]", "", text.lower().replace("`", ""))
    return text.replace(" ", "-")


def anchors(path):
    """What links may point at in a document."""
    found, counts = set(), collections.Counter()
    text = prose(path.read_text())
    for line in text.splitlines():
        heading = HEADING.match(line)
        if heading:
            anchor = anchor_of(heading.group(2))
            found.add(f"{anchor}-{counts[anchor]}" if counts[anchor] else anchor)
            counts[anchor] += 1
    return found | set(EXPLICIT_ANCHOR.findall(text))


def alternatives(path):
    """`a/{b,c}` stands for `a/b` and `a/c`."""
    braces = re.search(r"\{([^{}]*)\}", path)
    if not braces:
        return [path]
    return [other for word in braces.group(1).split(",")
            for other in alternatives(path[:braces.start()] + word + path[braces.end():])]


class Links:
    """The dead links of a tree."""

    def __init__(self, tree, links_alone):
        self._tree = tree
        self._links_alone = links_alone
        self._tops = {path.name for path in tree.iterdir()
                      if path.is_dir() and not path.name.startswith("build")}
        self._anchors = {}
        self.checked = 0

    def dead(self, document):
        """(line, what is wrong) for each dead link of a document."""
        text = prose(document.read_text())
        for found in CODE.finditer(text):
            for path in PATH.findall(found.group(2)):
                wrong = self._wrong_path(path, found.group(2))
                if wrong:
                    yield text.count("\n", 0, found.start()) + 1, wrong
        text = CODE.sub(lambda code: re.sub(r"[^\n]", "x", code.group(0)), text)
        for pattern in (LINK, DEFINITION):
            for found in pattern.finditer(text):
                wrong = self._wrong_link(document, found.group(1))
                if wrong:
                    yield text.count("\n", 0, found.start()) + 1, wrong

    def _wrong_path(self, path, code):
        if self._links_alone:
            return None
        if path.split("/")[0] not in self._tops or re.search(r"[\w.~]?/" + re.escape(path), code):
            return None  # no path of the tree, or the end of one that begins elsewhere
        self.checked += 1
        for one in alternatives(path.rstrip(".,")):
            if not any(self._tree.glob(PLACEHOLDER.sub("*", one).rstrip("/"))):
                return f"there is no {one}"
        return None

    def _wrong_link(self, document, target):
        if OTHER_MACHINE.match(target):
            return None
        self.checked += 1
        name, _, anchor = target.partition("#")
        path = document.parent / name if name else document
        if not path.exists():
            return f"there is no {name}"
        if anchor and anchor not in self._anchors_of(path):
            return f"there is no heading #{anchor} in {name or document.name}"
        return None

    def _anchors_of(self, path):
        path = path.resolve()
        if path not in self._anchors:
            self._anchors[path] = anchors(path) if path.suffix == ".md" else set()
        return self._anchors[path]


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n\n")[0])
    parser.add_argument("tree", type=pathlib.Path)
    parser.add_argument("--tested", type=pathlib.Path, nargs="*")
    parser.add_argument("--links-alone", action="store_true")
    options = parser.parse_args()
    links, faults, count = Links(options.tree, options.links_alone), [], 0
    for document in documents(options.tree):
        count += 1
        name = document.relative_to(options.tree)
        faults += [f"{name}:{line}: {wrong}" for line, wrong in links.dead(document)]
        if options.tested is not None and name not in options.tested:
            faults.append(f"{name}: no test executes this document")
    if count == 0:
        faults.append(f"{options.tree} has no documents")
    print("\n".join(faults + [f"{links.checked} links and paths in {count} documents, "
                              f"{len(faults)} faults"]))
    sys.exit(1 if faults else 0)


if __name__ == "__main__":
    main()
