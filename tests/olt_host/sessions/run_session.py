#!/usr/bin/python3
"""Plays whole operator sessions at the built olt_host and compares what the
operator sees, all rows of an 80-column screen since the beginning, with the
.refout beside the .in. The notation of .in is in session_script.py.

    run_session.py --host OLT_HOST --fixtures FOLDER --transport pty SESSION.in

--update writes the .refout anew. What it writes has to be read against what the
host must say before it is kept; the tests never use it.

Nothing here waits for a fixed time. A typed line has been answered when the
cursor stands behind a prompt in a new row; keys have been taken when the host has
read them, has answered, and all of its threads are asleep again.
"""

import argparse
import difflib
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import time

import pyte

from host_process import HostError, HostProcess, environment
from operator_line import Ended
from operator_screen import OperatorScreen
from session_script import ScriptError, TRANSPORTS, keys_of, read_script

STEP_LIMIT = 120   # seconds for one step, on a machine that does much else
QUIET = 0.06       # seconds without output, beside the conditions
NO_ANSWER = 1.0    # seconds until a key that the host has taken counts as ignored

PROMPT = "olt> "
# What the row of the cursor reads when a typed line has been answered.
SETTLED = re.compile(r"olt> |.*--More--.*|(?:Username|Password|[Ll]ogin): ?")

# What differs from run to run, and what stands for it.
MASKS = [
    (re.compile(r"\b\d{4}-\d\d-\d\d \d\d:\d\d:\d\d(?:\.\d+)?"), "YYYY-MM-DD HH:MM:SS"),
    (re.compile(r"\b127\.0\.0\.1:\d+"), "127.0.0.1:PORT"),
    (re.compile(r"\b[0-9a-f]{64}\b"), "SHA256"),
    (re.compile(r"\b(pid |process )\d+"), r"\1PID"),
]


class SessionError(Exception):
    """The host did not do what the next step waits for."""


class Player:
    """Plays one script on one transport and keeps what the operator saw."""

    def __init__(self, program, transport, script, directory):
        self._program = program
        self._transport = transport
        self._script = script
        self._directory = pathlib.Path(directory)
        self._shown = []  # of earlier sessions
        self._notes = []  # (row, lines to put before it) of this session
        self._host = None
        self._line = None
        self._screen = None
        self._ended = True

    def play(self):
        """What the operator saw; raises SessionError or HostError."""
        self._write_users()
        try:
            self._start()
            for step in self._script.steps:
                try:
                    self._step(step)
                except SessionError as error:
                    raise SessionError(f"line {step.line}: {error}") from error
            self._finish_screen()
            self._stop()
        except BaseException:
            if self._host is not None:
                self._host.kill()
            raise
        return "".join(row + "\n" for row in map(masked, self._shown))

    def so_far(self):
        """For a report of what went wrong."""
        return "\n".join(self._screen.rows()) if self._screen is not None else ""

    def errors(self):
        return self._host.errors() if self._host is not None else ""

    # --- The host and its sessions.

    def _write_users(self):
        lines = ""
        for name, password, access in self._script.users:
            words = [self._program, "password", name] + ["--read-only"] * (access == "read-only")
            lines += subprocess.run(words, input=password + "\n", capture_output=True, text=True,
                                    check=True, env=environment(self._directory)).stdout
        if lines:
            users = self._directory / "users"
            users.touch(mode=0o600)
            users.write_text(lines)

    def _start(self):
        self._host = HostProcess(self._program, self._transport,
                                 [*self._script.start, "--log", "host.log"], self._directory)
        self._connect()

    def _connect(self):
        self._line = self._host.open_line()
        self._screen = OperatorScreen()
        self._emulator = pyte.ByteStream(self._screen)
        self._notes = []
        self._ended = False
        self._settle(lambda: self._at_prompt(-1), "the first prompt")
        # A console shows above its session what the host did when it started.
        self._first_row = self._find_greeting() if self._transport != "tcp" else 0

    def _find_greeting(self):
        rows = self._screen.rows()
        return next(number for number, row in enumerate(rows) if row.startswith(PROMPT.rstrip()))

    def _stop(self):
        status = self._host.stop(self._drain)
        if status != 0:
            raise HostError(f"olt_host ended with status {status}:\n{self._host.errors()}")
        if self._host.unexpected_errors():
            raise HostError("olt_host wrote to standard error:\n" + self._host.unexpected_errors())

    def _drain(self):
        try:
            while not self._ended and self._line.read(0):
                pass
        except Ended:
            self._ended = True

    def _finish_screen(self):
        """Takes over what the current session has shown."""
        if self._screen is None:
            return
        rows = self._screen.rows()
        for row, lines in reversed(self._notes):
            rows[row:row] = lines
        self._shown += rows[self._first_row:]
        self._shown.append("[the session has ended]" if self._ended else "[the session goes on]")
        self._screen = None

    # --- Steps.

    def _step(self, step):
        if step.kind in ("line", "type"):
            self._type(step.text)
        elif step.kind == "keys":
            self._press(keys_of(step.text))
        elif step.kind == "copy":
            shutil.copyfile(self._directory / step.words[0], self._directory / step.words[1])
        elif step.kind == "file":
            self._note_file(step.words[0])
        elif step.kind == "same":
            self._compare_files(*step.words)
        elif step.kind == "type-file":
            for text in (self._directory / step.words[0]).read_text().splitlines():
                self._type(text.replace("{", "{{"))
        elif step.kind == "resize":
            self._resize(*map(int, step.words))
        elif step.kind == "await-end":
            self._settle(lambda: False, "the end of the session")
        elif step.kind == "reconnect":
            self._finish_screen()
            self._connect()
        elif step.kind == "restart":
            self._finish_screen()
            self._stop()
            self._start()

    def _type(self, text):
        self._require_open()
        row = self._screen.cursor_row()
        self._line.write(keys_of(text) + self._line.enter())
        self._settle(lambda: self._at_prompt(row), "a prompt below the typed line")

    def _press(self, keys):
        self._require_open()
        self._answered = False
        self._line.write(keys.replace(b"\r", self._line.enter()))
        sent = time.monotonic()
        self._settle(lambda: self._answered or time.monotonic() - sent > NO_ANSWER,
                     "an answer to the keys")

    def _note_file(self, name):
        text = (self._directory / name).read_text()
        lines = [f"[{name}]", *text.splitlines(), f"[end of {name}]"]
        self._notes.append((self._screen.cursor_row(), lines))

    def _compare_files(self, one, other):
        texts = [(self._directory / name).read_text().splitlines() for name in (one, other)]
        difference = list(difflib.unified_diff(*texts, one, other, lineterm=""))
        if difference:
            raise SessionError("\n".join(difference))

    def _resize(self, rows, columns):
        self._screen.resize_keeping_rows(rows, columns)
        self._answered = False
        self._line.resize(rows, columns)
        sent = time.monotonic()
        self._settle(lambda: self._answered or time.monotonic() - sent > NO_ANSWER,
                     "the host to see the new size")

    def _require_open(self):
        if self._ended:
            raise SessionError("the session has ended already")

    # --- Waiting.

    def _at_prompt(self, row):
        return (self._screen.cursor_row() > row and
                SETTLED.fullmatch(self._screen.text_before_cursor()) is not None)

    def _settle(self, condition, wanted):
        """Waits until the condition holds and the host has nothing left to do, or
        until it has ended the session."""
        deadline = time.monotonic() + STEP_LIMIT
        quiet_since = time.monotonic()
        while not self._ended:
            if self._receive():
                quiet_since = time.monotonic()
                continue
            if not self._host.is_asleep() or self._line.keys_wait():
                quiet_since = time.monotonic()
            elif time.monotonic() - quiet_since > QUIET and condition():
                return
            if time.monotonic() > deadline:
                raise SessionError(f"waited {STEP_LIMIT} s for {wanted}")

    def _receive(self):
        try:
            received = self._line.read(0.01)
        except Ended:
            self._ended = True
            return False
        if received:
            self._answered = True
            self._emulator.feed(received)
        return bool(received)


def masked(row):
    for pattern, text in MASKS:
        row = pattern.sub(text, row)
    return row.rstrip()


def prepare(directory, fixtures):
    for folder in fixtures:
        for fixture in sorted(pathlib.Path(folder).glob("*")):
            if fixture.is_file():
                shutil.copy(fixture, directory)


def compare(expected_file, shown):
    """Whether the operator saw what the file says; prints how it differs."""
    expected = expected_file.read_text() if expected_file.exists() else ""
    difference = list(difflib.unified_diff(
        expected.splitlines(), shown.splitlines(), expected_file.name, "seen by the operator",
        lineterm="", n=8))
    print("\n".join(difference) or f"{expected_file.name}: as expected")
    return not difference


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n\n")[0])
    parser.add_argument("--host", required=True, help="the built olt_host")
    parser.add_argument("--fixtures", action="append", default=[], help="folder (repeatable)")
    parser.add_argument("--transport", required=True, choices=TRANSPORTS)
    parser.add_argument("--update", action="store_true", help="write the .refout anew")
    parser.add_argument("session", type=pathlib.Path)
    options = parser.parse_args()
    with tempfile.TemporaryDirectory(prefix="olt_session_") as directory:
        prepare(directory, options.fixtures)
        try:
            player = Player(options.host, options.transport, read_script(options.session), directory)
        except ScriptError as error:
            sys.exit(str(error))
        try:
            shown = player.play()
        except (SessionError, HostError) as error:
            print(player.so_far())
            sys.exit(f"{options.session.name}: {error}\nstandard error of the host:\n{player.errors()}")
    expected_file = options.session.with_suffix(".refout")
    if options.update:
        expected_file.write_text(shown)
        print(shown, end="")
    elif not compare(expected_file, shown):
        sys.exit(1)


if __name__ == "__main__":
    main()
