"""Reads a session file: what an operator types, and what happens around it.

    # a comment; blank lines mean nothing either
    show version              typed, with Enter behind it
    sh key{TAB}               a key by its name, see KEYS
    @keys show {TAB}          typed without Enter; the row of the cursor, as it is
                              then, goes into what the operator sees

Before the first step:

    @transports pty tcp       where the session is played; pty and tcp if not said
    @start WORD ...           the host's arguments; the small catalogue and the
                              small reports if not said
    @user NAME PASSWORD full  a line of the password file "users"; or read-only

Steps besides typed lines:

    @type TEXT                a typed line that begins with # or @
    @copy FROM TO             a file in the host's directory, where the fixtures are
    @file NAME                puts the file's text into what the operator sees
    @same ONE OTHER           the two files must have the same text
    @type-file NAME           types every line of the file
    @resize ROWS COLUMNS      the operator's window
    @await-end                the host has to end the session by itself
    @reconnect                another session of the same host
    @operator NAME            another operator, in a session of their own
    @restart [WORD ...]       stops the host and starts it anew, with the same
                              arguments or these; "-" for none

"{{" stands for a brace.
"""

import dataclasses
import re

TRANSPORTS = ("pty", "tcp", "attach")
DEFAULT_START = ["small_catalogue.yaml", "small_reports.yaml"]

KEYS = {
    "TAB": "\t", "SPACE": " ", "ENTER": "\r", "ESC": "\x1b", "BACKSPACE": "\x7f",
    "UP": "\x1b[A", "DOWN": "\x1b[B", "RIGHT": "\x1b[C", "LEFT": "\x1b[D",
    "HOME": "\x1b[H", "END": "\x1b[F", "DELETE": "\x1b[3~",
    **{f"^{chr(letter)}": chr(letter - 64) for letter in range(ord("A"), ord("Z") + 1)},
}

# Steps and how many words each takes.
STEPS = {"keys": None, "type": None, "copy": 2, "file": 1, "same": 2, "type-file": 1,
         "resize": 2, "await-end": 0, "reconnect": 0, "operator": 1,
         "restart": None}
SETTINGS = {"transports", "start", "user"}


class ScriptError(Exception):
    """A session file that cannot be played."""


@dataclasses.dataclass
class Step:
    line: int
    kind: str  # "line" or one of STEPS
    text: str = ""
    words: list = dataclasses.field(default_factory=list)


@dataclasses.dataclass
class Script:
    transports: list
    start: list
    users: list
    steps: list


def keys_of(text):
    """The bytes of typed text with {NAMES} of keys."""
    typed, at = "", 0
    for found in re.finditer(r"\{\{|\{([^{}]*)\}|[{}]", text):
        typed += text[at:found.start()]
        at = found.end()
        if found.group(0) == "{{":
            typed += "{"
        elif found.group(1) in KEYS:
            typed += KEYS[found.group(1)]
        else:
            raise ScriptError(f"\"{found.group(0)}\" is no key; expected one of {', '.join(KEYS)}")
    return (typed + text[at:]).encode()


def read_step(number, text):
    if not text.startswith("@"):
        keys_of(text)
        return Step(number, "line", text)
    kind, _, rest = text[1:].partition(" ")
    if kind not in STEPS:
        raise ScriptError(f"@{kind} is no step; expected one of {', '.join(STEPS)}")
    words = rest.split()
    if STEPS[kind] is not None and len(words) != STEPS[kind]:
        raise ScriptError(f"@{kind} takes {STEPS[kind]} words")
    if kind == "keys":
        keys_of(rest)
    return Step(number, kind, rest, words)


def set_up(script, kind, words):
    if kind == "transports":
        unknown = [word for word in words if word not in TRANSPORTS]
        if unknown or not words:
            raise ScriptError(f"@transports takes some of {', '.join(TRANSPORTS)}")
        script.transports = words
    elif kind == "start":
        script.start = words
    elif len(words) == 3 and words[2] in ("full", "read-only"):
        script.users.append(words)
    else:
        raise ScriptError("@user takes a name, a password, and full or read-only")


def read_script(path):
    script = Script(["pty", "tcp"], list(DEFAULT_START), [], [])
    for number, text in enumerate(path.read_text().splitlines(), 1):
        if not text.strip() or text.startswith("#"):
            continue
        try:
            kind, _, rest = text[1:].partition(" ")
            if text.startswith("@") and kind in SETTINGS:
                if script.steps:
                    raise ScriptError(f"@{kind} stands behind the first step")
                set_up(script, kind, rest.split())
            else:
                script.steps.append(read_step(number, text))
        except ScriptError as error:
            raise ScriptError(f"{path.name}:{number}: {error}") from error
    return script
