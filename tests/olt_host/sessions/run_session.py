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
import getpass
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import time

from host_process import HostError, HostProcess, environment
from operator_session import OperatorSession
from session_script import ScriptError, TRANSPORTS, keys_of, read_script

STEP_LIMIT = 120   # seconds for one step, on a machine that does much else
QUIET = 0.06       # seconds without output, beside the conditions
NO_ANSWER = 1.0    # seconds until a key that the host has taken counts as ignored

# What differs from run to run and from transport to transport, and what stands
# for it.
MASKS = [
    (re.compile(r"^Session +User +From +Access +Since +Idle$"),
     "Session  User  From  Access  Since  Idle"),
    (re.compile(r"^( +\d+)  (\S+) +(?:console|unix|127\.0\.0\.1:\d+) +(full|read-only) +"
                r"\S+ \S+ +\d+s$"), r"\1  \2  ORIGIN  \3  SINCE  IDLE"),
    (re.compile(rf"^( +\d+  )(?:-|{re.escape(getpass.getuser())})(  ORIGIN )"), r"\1NOBODY\2"),
    (re.compile(rf"\boperator(?: {re.escape(getpass.getuser())})?(, session \d)"),
     r"operator NOBODY\1"),
    (re.compile(r"\b\d{4}-\d\d-\d\d \d\d:\d\d:\d\d(?:\.\d+)?"), "YYYY-MM-DD HH:MM:SS"),
    (re.compile(r"\b\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d(?:\.\d+)?Z"), "YYYY-MM-DDTHH:MM:SSZ"),
    (re.compile(r"\b127\.0\.0\.1:\d+"), "127.0.0.1:PORT"),
    (re.compile(r"(olt_host )\d+\.\d+\.\d+"), r"\1VERSION"),
    (re.compile(r"^((?:Library|Compiler|Build|Process|Up for) +).*"), r"\1..."),
    (re.compile(r"(func:\w+,line:)\d+"), r"\1N"),
]


class SessionError(Exception):
    """The host did not do what the next step waits for."""


class Player:
    """Plays one script on one transport and keeps what the operators saw."""

    def __init__(self, program, transport, script, directory):
        self._program = program
        self._transport = transport
        self._script = script
        self._directory = pathlib.Path(directory)
        self._host = None
        self._sessions = []  # of the running host, in the order of their beginning
        self._session = None  # whose keys are pressed
        self._shown = []  # by sessions that are over

    def play(self):
        """What the operators saw; raises SessionError or HostError."""
        self._write_users()
        try:
            self._start()
            for step in self._script.steps:
                try:
                    self._step(step)
                except SessionError as error:
                    raise SessionError(f"line {step.line}: {error}") from error
            self._stop()
        except BaseException:
            if self._host is not None:
                self._host.kill()
            raise
        return "".join(masked(row) + "\n" for row in self._shown)

    def so_far(self):
        """What the operator sees when something has gone wrong."""
        return "\n".join(self._session.rows()) if self._session is not None else ""

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
        # Operators with names open their own sessions.
        if self._script.steps and self._script.steps[0].kind != "operator":
            self._connect("")

    def _restart(self, words):
        self._stop()
        if words:
            self._script.start = [word for word in words if word != "-"]
        self._start()

    def _connect(self, title):
        session = OperatorSession(self._host.open_line(), title)
        self._sessions.append(session)
        self._session = session
        self._settle(lambda: session.waits_for_line_below(-1), "the first prompt")
        if self._transport == "pty":
            session.forget_before_banner()

    def _stop(self):
        """Ends the host; what its sessions have shown until now is kept."""
        for session in self._sessions:
            self._shown += session.rows()
        status = self._host.stop(self._drain)
        self._sessions = []
        self._session = None
        if status != 0:
            raise HostError(f"olt_host ended with status {status}")
        if self._host.unexpected_errors():
            raise HostError("olt_host wrote to standard error")

    def _drain(self):
        for session in self._sessions:
            while not session.ended and session.receive(0):
                pass

    # --- Steps.

    def _step(self, step):
        actions = {
            "line": lambda: self._type(step.text),
            "type": lambda: self._type(step.text),
            "keys": lambda: self._press(step.text),
            "copy": lambda: shutil.copyfile(*map(self._path, step.words)),
            "file": lambda: self._note_file(*step.words),
            "same": lambda: self._compare_files(*step.words),
            "type-file": lambda: self._type_file(*step.words),
            "resize": lambda: self._resize(*map(int, step.words)),
            "await-end": lambda: self._settle(lambda: False, "the end of the session"),
            "operator": lambda: self._turn_to(*step.words),
            "reconnect": lambda: self._connect(self._session.title),
            "restart": lambda: self._restart(step.words),
        }
        actions[step.kind]()

    def _path(self, name):
        return self._directory / name

    def _turn_to(self, title):
        """To the operator of that name, who opens a session if there is none."""
        for session in reversed(self._sessions):
            if session.title == title:
                self._session = session
                return
        self._connect(title)

    def _type(self, text):
        self._require_open()
        if self._session.is_paging():
            raise SessionError("the pager waits for a key; expected @keys")
        session, row = self._session, self._session.screen.cursor_row()
        session.line.write(keys_of(text) + session.line.enter())
        self._settle(lambda: session.waits_for_line_below(row), "a prompt below the typed line")

    def _type_file(self, name):
        for text in self._path(name).read_text().splitlines():
            self._type(text.replace("{", "{{"))

    def _press(self, text):
        self._require_open()
        self._expect_answer()
        keys = keys_of(text).replace(b"\r", self._session.line.enter())
        self._session.line.write(keys)
        self._await_answer("an answer to the keys")
        if not self._session.ended:
            self._session.note([f"[{text}] {self._session.row_with_cursor()}"])

    def _resize(self, rows, columns):
        self._session.screen.resize_keeping_rows(rows, columns)
        self._expect_answer()
        self._session.line.resize(rows, columns)
        self._await_answer("the host to see the new size")

    def _note_file(self, name):
        text = self._path(name).read_text()
        self._session.note([f"[{name}]", *text.splitlines(), f"[end of {name}]"])

    def _compare_files(self, one, other):
        texts = [self._path(name).read_text().splitlines() for name in (one, other)]
        difference = list(difflib.unified_diff(*texts, one, other, lineterm=""))
        if difference:
            raise SessionError("\n".join(difference))

    def _require_open(self):
        if self._session.ended:
            raise SessionError("the session has ended already")

    # --- Waiting.

    def _expect_answer(self):
        self._session.answered = False
        self._asked = time.monotonic()

    def _await_answer(self, wanted):
        self._settle(lambda: (self._session.answered or
                              time.monotonic() - self._asked > NO_ANSWER), wanted)

    def _settle(self, condition, wanted):
        """Waits until the condition holds and the host has nothing left to do, or
        until it has ended the session."""
        deadline = time.monotonic() + STEP_LIMIT
        quiet_since = time.monotonic()
        session = self._session
        while not session.ended:
            if session.receive(0.01) or not self._host.is_asleep() or session.line.keys_wait():
                quiet_since = time.monotonic()
            elif time.monotonic() - quiet_since > QUIET and condition():
                return
            if time.monotonic() > deadline:
                raise SessionError(f"waited {STEP_LIMIT} s for {wanted}")


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


def play(options, script):
    """What the operators saw. Ends the program when they could not go on."""
    with tempfile.TemporaryDirectory(prefix="olt_session_") as directory:
        prepare(directory, options.fixtures)
        player = Player(options.host, options.transport, script, directory)
        try:
            return player.play()
        except (SessionError, HostError) as error:
            print(player.so_far())
            sys.exit(f"{options.session.name}: {error}\n"
                     f"standard error of the host:\n{player.errors()}")


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n\n")[0])
    parser.add_argument("--host", required=True, help="the built olt_host")
    parser.add_argument("--fixtures", action="append", default=[], help="folder (repeatable)")
    parser.add_argument("--transport", required=True, choices=TRANSPORTS)
    parser.add_argument("--update", action="store_true", help="write the .refout anew")
    parser.add_argument("session", type=pathlib.Path)
    options = parser.parse_args()
    try:
        shown = play(options, read_script(options.session))
    except ScriptError as error:
        sys.exit(str(error))
    expected_file = options.session.with_suffix(".refout")
    if options.update:
        expected_file.write_text(shown)
        print(shown, end="")
    elif not compare(expected_file, shown):
        sys.exit(1)


if __name__ == "__main__":
    main()
