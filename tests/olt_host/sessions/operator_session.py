"""One operator at one session: the line to the host, and what the screen has
shown since the session began."""

import re

import pyte

from operator_line import Ended
from operator_screen import OperatorScreen

BANNER = "ONU ability console of olt_host "
# What stands before the cursor when the host waits for a line or a page key.
WAITS_FOR_LINE = re.compile(r"olt(?:\(read-only\))?> |--More-- |Username: |Password: ")


class OperatorSession:
    def __init__(self, line, title):
        self.line = line
        self.title = title
        self.screen = OperatorScreen()
        self.ended = False
        self.answered = False  # since the caller cleared it
        self._emulator = pyte.ByteStream(self.screen)
        self._notes = []  # (row, lines to show before it)
        self._first_row = 0

    def receive(self, seconds):
        """Puts what has come onto the screen; False when nothing came in time."""
        try:
            received = self.line.read(seconds)
        except Ended:
            self.ended = True
            return False
        if received:
            self.answered = True
            self._emulator.feed(received)
        return bool(received)

    def waits_for_line_below(self, row):
        return (self.screen.cursor_row() > row and
                WAITS_FOR_LINE.fullmatch(self.screen.text_before_cursor()) is not None)

    def is_paging(self):
        return self.screen.text_before_cursor().startswith("--More--")

    def row_with_cursor(self):
        before = self.screen.text_before_cursor()
        return before + "<cursor>" + self.screen.text_of_cursor_row()[len(before):]

    def forget_before_banner(self):
        """A console shows above its session what the host did when it started."""
        rows = self.screen.rows()
        self._first_row = next(number for number, row in enumerate(rows)
                               if row.startswith(BANNER))

    def note(self, lines):
        """Shows lines of the test's own above the row of the cursor."""
        self._notes.append((self.screen.cursor_row(), lines))

    def rows(self):
        rows = self.screen.rows()
        for row, lines in reversed(self._notes):
            rows[row:row] = lines
        title = [f"[operator {self.title}]"] if self.title else []
        end = "[the session has ended]" if self.ended else "[the session goes on]"
        return title + rows[self._first_row:] + [end]
