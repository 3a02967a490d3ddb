"""Reads a Markdown document: its blocks, and in them what is to be executed.

A block is indented by four spaces or fenced. In a block

    $ command            is a shell command; it goes on behind a backslash at the end
                         of the line, and until the end of a here document
    olt> line            is typed at the host's console; <TAB> stands for the key, and a
                         "?" at the end of the line for the key as well, so that no
                         Enter follows. "Username: " and "Password: " are prompts, too

What follows, up to the next command, is its output. A block without these prompts is a
list of commands whose output is not shown, unless its fence names a language: then it is a
text. But a fence named "text" around nothing but commands is an error, for there they
would hide. Behind a paragraph that is
nothing but "`NAME`:" it is a file: one to make, or to compare if a command has made it.

What readers need not see stands in remarks of a line, `<!-- test: WORD ... -->`:

    files DOCUMENT NAME ...   makes files that are shown in another document of docs/
    append NAME               the next block is added to the end of the file
    text                      the next block is a text, whatever it begins with
    run COMMAND               a shell command, which must succeed, or with an "&" at its end
                              a host that lets operators in
    console COMMAND           where the next line is typed: olt_host console ..., attach
                              ..., or telnet; in place of the console there was
    type LINE                 a line typed at the console
    passwords WORD ...        what is typed at the next prompts for a password
    installed                 the rest needs the installed packages, see --installed
    built                     the rest does not
"""

import dataclasses
import re

DIRECTIVE = re.compile(r"<!-- test: ([a-z]+) ?(.*?) *-->$")
DIRECTIVES = {"files", "append", "text", "run", "console", "type", "passwords", "installed",
              "built"}
FENCE = re.compile(r"( *)(```+|~~~+) *(\S*)")
LIST_ITEM = re.compile(r"( *)(?:[-*+]|\d+[.)])( +)")
FILE_NAME = re.compile(r"`([^`\s]+)`:$")
SHELL_PROMPT = re.compile(r"\$( |$)")
CONSOLE_PROMPT = re.compile(r"(?:olt(?:\(read-only\))?>|Username:|Password:)( |$)")
HERE_DOCUMENT = re.compile(r"<<-?\s*(['\"]?)(\w+)\1")
PLAIN_FENCES = ("", "sh", "console")


class DocumentError(Exception):
    """A document that does not keep the convention."""


@dataclasses.dataclass
class Block:
    line: int          # number of the first line in it
    lines: list
    indent: int
    language: str = ""
    name: str = ""     # of the file that it shows


@dataclasses.dataclass
class Step:
    kind: str              # a directive, "shell", "typed", "commands" or "file"
    line: int
    text: str = ""         # command, typed line, content of a file
    shown: list = None     # its output in the document; None if that is not shown
    shown_at: int = 0      # the number of the first line of output
    indent: int = 0
    name: str = ""         # of a file
    prompt: str = ""


def read_document(path):
    """The steps that execute a document."""
    try:
        return list(_steps(path.read_text()))
    except DocumentError as error:
        raise DocumentError(f"{path.name}:{error}") from error


def shown_files(path):
    """The files that a document shows, by their names: the first of each."""
    files = {}
    for step in read_document(path):
        if step.kind == "file":
            files.setdefault(step.name, step.text)
    return files


def _steps(text):
    pending = None  # a directive about the next block
    for element in _elements(text):
        if isinstance(element, Step):
            if element.kind not in DIRECTIVES:
                raise DocumentError(f"{element.line}: \"{element.kind}\" is no directive")
            if element.kind in ("append", "text"):
                pending = element
            else:
                yield element
            continue
        if pending is None:
            yield from _block_steps(element)
        elif pending.kind == "append":
            yield Step("append", element.line, "\n".join(element.lines) + "\n", name=pending.text)
        pending = None
    if pending is not None:
        raise DocumentError(f"{pending.line}: no block follows")


def _elements(text):
    """Blocks, and directives as steps, in their order."""
    lines = text.splitlines()
    paragraph, at, content = "", 0, 0  # content: where the text of the list item begins
    while at < len(lines):
        line = lines[at]
        fence = FENCE.match(line)
        directive = DIRECTIVE.match(line.strip())
        if fence:
            end = _end_of_fence(lines, at, fence.group(2))
            indent = len(fence.group(1))
            yield Block(at + 2, [text[indent:] if not text[:indent].strip() else text
                                 for text in lines[at + 1:end]],
                        indent, fence.group(3), _file_name(paragraph))
            paragraph, at = "", end + 1
            continue
        if not line.strip():
            at += 1
            continue
        if directive:
            yield Step(directive.group(1), at + 1, directive.group(2))
            at += 1
            continue
        depth = len(line) - len(line.lstrip())
        opens = at == 0 or not lines[at - 1].strip()
        if depth < content and opens:
            content = 0
        if opens and depth >= content + 4:
            end = _end_of_indented(lines, at, content + 4)
            yield Block(at + 1, [text[content + 4:] for text in lines[at:end]],
                        content + 4, "", _file_name(paragraph))
            paragraph, at = "", end
            continue
        item = LIST_ITEM.match(line)
        if item:
            content = item.end()
        paragraph = line.strip() if opens else paragraph + " " + line.strip()
        at += 1


def _end_of_fence(lines, begin, mark):
    for at in range(begin + 1, len(lines)):
        if lines[at].strip() == mark:
            return at
    raise DocumentError(f"{begin + 1}: the block has no end")


def _end_of_indented(lines, begin, indent):
    end = at = begin
    while at < len(lines) and (not lines[at].strip() or lines[at].startswith(" " * indent)):
        at += 1
        if lines[at - 1].strip():
            end = at
    return end


def _file_name(paragraph):
    found = FILE_NAME.search(paragraph)
    return found.group(1) if found and found.start() == 0 else ""


def _block_steps(block):
    if block.name:
        yield Step("file", block.line, "\n".join(block.lines) + "\n", name=block.name,
                   shown_at=block.line, indent=block.indent, shown=block.lines)
    elif block.language == "text":
        yield Step("text", block.line, "\n".join(block.lines) + "\n")
    elif block.language not in PLAIN_FENCES:
        return
    elif any(_prompt(line) for line in block.lines):
        yield from _session_steps(block)
    else:
        yield Step("commands", block.line, "\n".join(block.lines) + "\n")


def _prompt(line):
    return SHELL_PROMPT.match(line) or CONSOLE_PROMPT.match(line)


def _session_steps(block):
    if not _prompt(block.lines[0]):
        raise DocumentError(f"{block.line}: there is output before the first command")
    at = 0
    while at < len(block.lines):
        prompt, begin = _prompt(block.lines[at]), at
        at += 1
        text = block.lines[begin][prompt.end():]
        is_shell = prompt.group(0).startswith("$")
        if is_shell:
            text, at = _whole_command(block, begin, text)
        output = at
        while at < len(block.lines) and not _prompt(block.lines[at]):
            at += 1
        yield Step("shell" if is_shell else "typed", block.line + begin, text,
                   block.lines[output:at], block.line + output, block.indent,
                   prompt="" if is_shell else prompt.group(0).strip())


def _whole_command(block, begin, text):
    """The command with all its lines, and where its output begins."""
    at = begin + 1
    while text.endswith("\\") and at < len(block.lines):
        text += "\n" + block.lines[at]
        at += 1
    here = HERE_DOCUMENT.search(text)
    if here:
        while True:
            if at == len(block.lines):
                raise DocumentError(f"{block.line + begin}: no line {here.group(2)} ends the text")
            text += "\n" + block.lines[at]
            at += 1
            if block.lines[at - 1].strip() == here.group(2):
                break
    return text, at


def lone_commands(text):
    """The commands of a block without prompts, with their line offsets."""
    commands, lines = [], text.splitlines()
    at = 0
    while at < len(lines):
        begin, command = at, lines[at]
        at += 1
        while command.endswith("\\") and at < len(lines):
            command += "\n" + lines[at]
            at += 1
        if command.strip() and not command.lstrip().startswith("#"):
            commands.append((begin, command))
    return commands
