#!/usr/bin/python3
"""Executes every command of a Markdown document and compares what it prints with what
the document shows. document.py tells how commands are found in a document, comparison.py
how outputs are compared, elsewhere.py what is run elsewhere.

    run_document.py --build BUILD DOCUMENT

--update writes real output into the document where it shows another; lines that were left
out by "..." are there again then. What it writes has to be read against what the program
must say before it is kept; the tests never use it.

--installed runs instead what stands behind `<!-- test: installed -->`, with the programs of
the installed packages, for a gate that has them installed.
"""

import argparse
import pathlib
import re
import shlex
import shutil
import signal
import socket
import sys

from comparison import matches, without_blank_end
from console import Console, ConsoleError
from document import DocumentError, lone_commands, read_document, shown_files
from elsewhere import Elsewhere, without_remark
from scratch import Scratch
from shell import Shell, ShellError

TREE = pathlib.Path(__file__).resolve().parents[2]
DEFAULT_CONSOLE = "olt_host console data/catalogue.yaml data/reports.yaml"
INTERACTIVE_JOBS = ("console", "attach")
LINES_TOLD = 60  # of an output that is not as shown
PORT = "2323"  # in documents; a free one stands for it, for several tests run at a time


class Mismatch(Exception):
    """The output is not what the document shows."""

    def __init__(self, text, real=None):
        super().__init__(text)
        self.real = real


class Player:
    """Executes the steps of one document."""

    def __init__(self, options):
        self._document = options.document
        self._installed = options.installed
        host = None if options.installed else options.host or options.build / "src/olt_host/olt_host"
        self._scratch = Scratch(TREE, None if options.installed else options.build, host)
        self._shell = Shell(self._scratch.root, self._scratch.environment, self._scratch.outputs)
        self._elsewhere = Elsewhere(options.elsewhere)
        self._console = None
        self._passwords = []
        self._port = str(free_port()) if PORT in options.document.read_text() else PORT
        self.counts = {"run": 0, "typed": 0, "elsewhere": 0, "installed": 0}

    def close(self):
        self._end_console()
        self._shell.close()
        self._scratch.close()

    def play(self, steps):
        """Executes the steps; the failures, as (step, text, real output or None)."""
        failures, section = [], "built"
        for step in steps:
            if step.kind in ("built", "installed"):
                section = step.kind
            elif (section == "installed") != self._installed:
                if step.kind in ("shell", "typed"):
                    self.counts["installed"] += 1
            else:
                try:
                    ACTIONS[step.kind](self, step)
                except Mismatch as mismatch:
                    failures.append((step, str(mismatch), mismatch.real))
                except (ConsoleError, ShellError, DocumentError, OSError) as error:
                    failures.append((step, str(error), None))
        return failures

    # --- Files.

    def _path(self, name):
        return pathlib.Path(self._shell.directory()) / name

    def _file(self, step):
        path = self._path(step.name)
        if not path.exists():
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text(step.text)
        else:
            self._compare(step, path.read_text().splitlines())

    def _append(self, step):
        with open(self._path(step.name), "a") as file:
            file.write(step.text)

    def _files(self, step):
        document, *names = step.text.split()
        files = shown_files(TREE / "docs" / document)
        for name in names:
            if name not in files:
                raise Mismatch(f"docs/{document} shows no file {name}")
            self._path(name).write_text(files[name])

    # --- Shell commands.

    def _run(self, step):
        if is_server(step.text):
            self._run_server(step, lambda text: "olt_host: operators may " in text)
            return
        status, text = self._run_command(step.text)
        if status != 0:
            raise Mismatch(f"ended with {status}:\n{text}")

    def _shell_step(self, step):
        if self._is_elsewhere(step.text):
            return
        self.counts["run"] += 1
        words = interactive_words(step.text)
        if words:
            self._start_console(words)
            if step.shown or self._console.ended:
                self._compare(step, self._console.banner)
        elif is_server(step.text):
            text = self._run_server(step, lambda text: matches(step.shown, text.splitlines()))
            self._compare(step, text.splitlines())
        else:
            _, text = self._run_command(step.text)
            self._compare(step, text.splitlines())

    def _run_command(self, command):
        status, text = self._shell.run(command.replace(PORT, self._port))
        return status, self._as_shown(text)

    def _run_server(self, step, is_enough):
        def is_enough_here(text):
            return is_enough(self._as_shown(text))
        return self._as_shown(self._shell.run_until(step.text.replace(PORT, self._port),
                                                    is_enough_here))

    def _as_shown(self, text):
        return re.sub(rf"\b{self._port}\b", PORT, text)

    def _commands(self, step):
        for offset, command in lone_commands(step.text):
            if not self._begins_with_program(command):
                raise Mismatch(f"line {step.line + offset} begins with no program; a text has a "
                               "fence with its language, or \"text\"")
            if self._is_elsewhere(command):
                continue
            self.counts["run"] += 1
            words = interactive_words(command)
            if words:
                self._start_console(words)
                if self._console.ended:
                    raise Mismatch("ended:\n" + "\n".join(self._console.banner))
                continue
            status, text = self._run_command(command)
            if status != 0:
                raise Mismatch(f"\"{command}\" ended with {status}:\n{text}")

    def _text(self, step):
        commands = [command for _, command in lone_commands(step.text)]
        if commands and all(map(self._begins_with_program, commands)):
            raise Mismatch("is a block of commands, which a fence named \"text\" hides")

    def _is_elsewhere(self, command):
        entry = None if self._installed else self._elsewhere.entry_of(command)
        self.counts["elsewhere"] += entry is not None
        return entry is not None

    def _begins_with_program(self, command):
        try:
            words = shlex.split(command.replace("\\\n", " "), comments=True)
        except ValueError:  # a quote without its end
            return False
        while words and re.fullmatch(r"\w+=.*", words[0]):
            words.pop(0)
        if not words:
            return False
        if "/" in words[0]:
            return self._elsewhere.entry_of(command) is not None or \
                shutil.which(words[0], path=None) is not None or \
                shutil.which(str(self._scratch.root / words[0])) is not None
        return shutil.which(words[0], path=self._scratch.environment["PATH"]) is not None

    # --- The console.

    def _start_console(self, words):
        self._end_console()
        words = [word.replace(PORT, self._port) for word in words]
        self._console = Console(words, self._shell.directory(), self._shell.variables())

    def _end_console(self):
        if self._console is not None:
            self._console.close()
        self._console = None

    def _console_step(self, step):
        words = interactive_words(step.text)
        if not words:
            raise Mismatch("is neither olt_host console, nor olt_host attach, nor telnet")
        self._start_console(words)
        if self._console.ended:
            raise Mismatch("ended:\n" + "\n".join(self._console.banner))

    def _type(self, step):
        self._needs_console()
        self._console.type(step.text)

    def _keep_passwords(self, step):
        self._passwords = step.text.split()

    def _typed(self, step):
        self._needs_console()
        self.counts["typed"] += 1
        if not self._console.ended and self._console.prompt() != step.prompt:
            raise Mismatch(f"the prompt is {self._console.prompt()}")
        text = step.text
        if step.prompt == "Password:" and not text and self._passwords:
            text = self._passwords.pop(0)
        self._compare(step, self._console.type(text))

    def _needs_console(self):
        if self._console is None:
            self._start_console(interactive_words(DEFAULT_CONSOLE))

    def _compare(self, step, real):
        if not matches(step.shown, real):
            told = real[:LINES_TOLD] + [f"(and {len(real) - LINES_TOLD} more lines)"] * (
                len(real) > LINES_TOLD)
            raise Mismatch("\n".join(["shows", *("    " + line for line in step.shown),
                                      "prints", *("    " + line for line in told)]), real)


ACTIONS = {
    "file": Player._file, "append": Player._append, "files": Player._files,
    "shell": Player._shell_step, "commands": Player._commands, "run": Player._run,
    "console": Player._console_step, "typed": Player._typed, "type": Player._type,
    "passwords": Player._keep_passwords, "text": Player._text,
}


def interactive_words(command):
    """The words of a command that is a terminal of its own; empty for others."""
    command = without_remark(command)
    if any(character in command for character in "|&;<>"):
        return []
    try:
        words = shlex.split(command)
    except ValueError:  # a quote without its end
        return []
    if len(words) > 1 and pathlib.Path(words[0]).name == "olt_host" and words[1] in INTERACTIVE_JOBS:
        return words
    return words if words and words[0] == "telnet" else []


def is_server(command):
    """Whether it goes on while the reader does."""
    return command.rstrip().endswith("&") or re.match(r"\S*\bolt_host serve ", command) is not None


def free_port():
    with socket.socket() as listener:
        listener.bind(("127.0.0.1", 0))
        return listener.getsockname()[1]


def update(path, failures):
    """Puts the real output in the place of the other."""
    lines = path.read_text().splitlines()
    for step, _, real in reversed(failures):
        if real is not None:
            begin = step.shown_at - 1
            kept = without_blank_end(step.shown)
            lines[begin:begin + len(kept)] = [(" " * step.indent + line).rstrip()
                                              for line in without_blank_end(real)]
    path.write_text("\n".join(lines) + "\n")


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n\n")[0])
    parser.add_argument("--build", type=pathlib.Path, default=TREE / "build", help="the build tree")
    parser.add_argument("--host", type=pathlib.Path, help="the built olt_host, if not the usual one")
    parser.add_argument("--elsewhere", type=pathlib.Path,
                        default=pathlib.Path(__file__).with_name("run_elsewhere.txt"))
    parser.add_argument("--installed", action="store_true")
    parser.add_argument("--update", action="store_true")
    parser.add_argument("document", type=pathlib.Path)
    options = parser.parse_args()
    options.build = options.build.resolve()
    signal.signal(signal.SIGTERM, lambda *_: sys.exit("was told to end"))
    try:
        steps = read_document(options.document)
        player = Player(options)
    except DocumentError as error:
        print(error)
        sys.exit(1)
    try:
        failures = player.play(steps)
    finally:
        player.close()
    for step, text, _ in failures:
        print(f"{options.document.name}:{step.line}: {step.text.strip() or step.name}\n  {text}\n")
    if options.update:
        update(options.document, failures)
    counts = player.counts
    print(f"{options.document.name}: {counts['run']} commands run, {counts['typed']} lines typed, "
          f"{counts['elsewhere']} commands are run elsewhere, {counts['installed']} "
          f"{'without' if options.installed else 'with'} installed packages; "
          f"{len(failures)} not as shown")
    sys.exit(1 if failures else 0)


if __name__ == "__main__":
    main()
