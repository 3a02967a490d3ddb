"""The terminal at which the `olt>` lines of a document are typed: a console, an attached
session, or telnet, on a screen of 80 columns that holds every answer. Lines that are
longer than the screen is wide come whole, as a document shows them."""

import pathlib
import re
import subprocess
import sys
import time

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "olt_host/sessions"))

from host_process import is_asleep
from operator_line import Ended, PseudoTerminal, Telnet
from operator_session import OperatorSession

STEP_LIMIT = 120  # seconds for one line, on a machine that does much else
QUIET = 0.06      # seconds without output, beside the conditions
ROWS = 1000       # so many that no answer waits for a key
CONTROL_SEQUENCE = re.compile(r"\x1b\[[0-9;?]*[A-Za-z]|\x07")


class ConsoleError(Exception):
    """The console did not do what the next line waits for."""


class RecordedLine:
    """A line to the host that keeps what came since it was last asked."""

    def __init__(self, line):
        self._line = line
        self._received = b""

    def read(self, seconds):
        received = self._line.read(seconds)
        self._received += received
        return received

    def taken(self):
        """The lines that came, without control sequences."""
        text = CONTROL_SEQUENCE.sub("", self._received.decode(errors="replace"))
        self._received = b""
        return [line.rstrip("\r").rpartition("\r")[2] for line in text.split("\n")]

    def __getattr__(self, name):
        return getattr(self._line, name)


class Console:
    def __init__(self, words, directory, environment):
        """Starts it; `banner` is what stands above the first prompt."""
        if pathlib.Path(words[0]).name == "telnet":
            line = Telnet((words[1], int(words[2])))
            self._process = None
        else:
            line = PseudoTerminal(words, directory, environment, subprocess.STDOUT, rows=ROWS)
            self._process = line.process
        self._line = RecordedLine(line)
        self._session = OperatorSession(self._line, "")
        self._session.screen.resize_keeping_rows(ROWS, 80)
        if self._process is None:
            self._line.resize(ROWS, 80)
        self._settle(lambda: self._session.waits_for_line_below(-1), "the first prompt")
        self.banner = self._answer()

    @property
    def ended(self):
        return self._session.ended

    def prompt(self):
        """What stands before the cursor."""
        return self._session.screen.text_before_cursor().strip()

    def type(self, text):
        """What the line is answered by."""
        if self.ended:
            raise ConsoleError("the session has ended already")
        keys, enter = text, True
        if text.endswith("?") and text.count("\"") % 2 == 0:
            enter = False
        if "<TAB>" in text:
            keys, enter = text.replace("<TAB>", "\t"), False
        if not enter:
            return self._press(keys)
        self._write(keys)
        row = self._session.screen.cursor_row()
        self._line.taken()
        self._line.write(self._line.enter())
        self._settle(lambda: self._session.waits_for_line_below(row), "a prompt below the line")
        return self._answer()[1:]

    def close(self):
        if self._process is not None:
            if self._process.poll() is None:
                self._process.terminate()
                deadline = time.monotonic() + STEP_LIMIT
                while self._process.poll() is None and time.monotonic() < deadline:
                    self._drain()
                if self._process.poll() is None:
                    self._process.kill()
            self._process.wait()
        self._line.close()

    def _press(self, keys):
        """What keys without an Enter show below the line, which is dropped then."""
        self._write(keys[:-1])
        self._line.taken()
        self._write(keys[-1:])
        shown = self._answer()[1:]
        self._write("\x15")
        return shown

    def _write(self, keys):
        self._line.write(keys.encode())
        self._settle(lambda: True, "an answer to the keys")

    def _answer(self):
        """The lines that came, without the prompt behind them."""
        lines = self._line.taken()
        return lines if self.ended else lines[:-1]

    def _drain(self):
        try:
            self._line.read(0.02)
        except Ended:
            pass

    def _settle(self, condition, wanted):
        """Waits until the condition holds and the host has nothing left to do, or until
        it has ended the session."""
        deadline = time.monotonic() + STEP_LIMIT
        quiet_since = time.monotonic()
        while not self._session.ended:
            sleeps = self._process is None or is_asleep(self._process.pid)
            if self._session.receive(0.01) or not sleeps or self._line.keys_wait():
                quiet_since = time.monotonic()
            elif time.monotonic() - quiet_since > QUIET and condition():
                return
            if time.monotonic() > deadline:
                raise ConsoleError(f"waited {STEP_LIMIT} s for {wanted}")
