"""Finds what the library says: every log call, and what its commands write.

Each finding has its level, its text as the sources write it, and the operation that
says it. The sources are formatted by clang-format, which is what this relies on: a
function's name and parameters start in the first column.
"""

import re
from typing import NamedTuple, Optional

CALL = re.compile(r"\bONU_ABILITY_LOG(_FOR|_BARE|)\(")
LITERAL = re.compile(r'"((?:[^"\\]|\\.)*)"')
# A definition's name with its class, in whatever lines its result and name stand.
DEFINITION = re.compile(
    r"^(?:[A-Za-z][\w\s:<>,*&]*[\s*&])?((?:[A-Za-z_]\w*::)?(?:operator[^\s(]+|~?[A-Za-z_]\w*))\(",
    re.MULTILINE)


class Message(NamedTuple):
    level: Optional[int]  # None: not a log line
    text: str
    operation: str


def arguments(source, position):
    """The arguments of the call whose parenthesis was opened before `position`."""
    parts, depth, current = [], 0, ""
    while True:
        literal = LITERAL.match(source, position)
        if literal:
            current += literal.group(0)
            position = literal.end()
            continue
        character = source[position]
        position += 1
        if character == ")" and depth == 0:
            return parts + [current.strip()]
        if character == "," and depth == 0:
            parts.append(current.strip())
            current = ""
            continue
        depth += (character in "([{") - (character in ")]}")
        current += character


def text_of(argument, where):
    """The text of adjoining literals; nothing else may be a format."""
    if not argument or LITERAL.sub("", argument).strip():
        raise ValueError(f"{where}: the format is not a literal: {argument}")
    return "".join(LITERAL.findall(argument))


class Source:
    """One source file with its functions, the later of two of one name added to the first."""

    def __init__(self, path):
        self.path = path
        self.text = path.read_text()
        starts = [(found.start(), found.group(1)) for found in DEFINITION.finditer(self.text)]
        self.starts = starts
        self.bodies = {}
        for (start, name), (end, _) in zip(starts, starts[1:] + [(len(self.text), "")]):
            self.bodies[name] = self.bodies.get(name, "") + self.text[start:end]

    def where(self, position):
        return f"{self.path}:{self.text.count(chr(10), 0, position) + 1}"

    def function_at(self, position):
        names = [name for start, name in self.starts if start < position]
        if not names:
            raise ValueError(f"{self.where(position)}: a message outside every function")
        return names[-1]

    def owner(self):
        """The one class that the file defines operations of, if it is one."""
        classes = {name.split("::")[0] for _, name in self.starts if "::" in name}
        return classes.pop() if len(classes) == 1 else None

    def log_messages(self):
        for call in CALL.finditer(self.text):
            where = self.where(call.start())
            parts = arguments(self.text, call.end())
            function = self.function_at(call.start())
            operation = function
            if call.group(1) == "_FOR":
                operation = text_of(parts.pop(0), where)
                owner = function.split("::")[0] if "::" in function else self.owner()
                operation = f"{owner}::{operation}" if owner else operation
            # A profile, looked at through one of its abilities.
            operation = operation.replace("AbilityEntry::", "OnuAbilityProfile::")
            yield Message(int(parts[0]), text_of(parts[1], where), operation)

    def written_messages(self, function):
        """What the sources write by a function whose format is its first literal argument."""
        for call in re.finditer(rf"\b{function}\(", self.text):
            formats = [part for part in arguments(self.text, call.end()) if part.startswith('"')]
            yield Message(None, text_of(formats[0] if formats else "", self.where(call.start())),
                          self.function_at(call.start()))


def library_sources(root):
    sources = [Source(path) for path in sorted((root / "src/onu_ability_common").rglob("*.cpp"))]
    for source in sources:
        for other_way in re.finditer(r"\b(?:ulogPrintf|ONU_ABILITY_LOG_WITH_TAIL)\(", source.text):
            raise ValueError(f"{source.where(other_way.start())}: logs past ONU_ABILITY_LOG")
    return sources


def log_messages(root):
    return [found for source in library_sources(root) for found in source.log_messages()]


def command_messages(root):
    """What the commands' own sources write; their listings are tables, not messages."""
    return [found for source in library_sources(root) if source.path.name.endswith("_commands.cpp")
            for found in source.written_messages("vty_out")]


def output_lines(root):
    """What goes to standard output, past log and terminal."""
    return [found for source in library_sources(root) for found in source.written_messages("puts")]
