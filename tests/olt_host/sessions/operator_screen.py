"""The screen that an operator looks at: a terminal emulator that remembers
every row that scrolled off its top."""

import pyte


class OperatorScreen(pyte.Screen):
    """A row keeps its number for good: 0 is the first since the beginning."""

    def __init__(self, rows=24, columns=80):
        self._gone = []
        super().__init__(columns, rows)

    def index(self):
        top, bottom = self.margins or (0, self.lines - 1)
        if self.cursor.y == bottom:
            self._gone.append(self._row(top))
        super().index()

    def resize_keeping_rows(self, rows, columns):
        """As terminals do it: rows leave at the top only when the cursor would
        not fit otherwise."""
        leaving = max(0, self.cursor.y - (rows - 1))
        self._gone += [self._row(y) for y in range(leaving)]
        kept = {y - leaving: self.buffer[y] for y in range(leaving, self.lines)}
        self.buffer.clear()
        self.buffer.update({y: row for y, row in kept.items() if y < rows})
        self.cursor.y -= leaving
        self.lines, self.columns = rows, columns
        self.cursor.x = min(self.cursor.x, columns - 1)

    def _row(self, y):
        row = self.buffer[y]
        return "".join(row[x].data for x in range(self.columns)).rstrip()

    def cursor_row(self):
        """The number of the row that the cursor is in."""
        return len(self._gone) + self.cursor.y

    def text_before_cursor(self):
        row = self.buffer[self.cursor.y]
        return "".join(row[x].data for x in range(min(self.cursor.x, self.columns)))

    def text_of_cursor_row(self):
        return self._row(self.cursor.y)

    def rows(self):
        """All rows since the beginning, down to the last that is not blank or
        has the cursor, without trailing blanks."""
        shown = [self._row(y) for y in range(self.lines)]
        while len(shown) > self.cursor.y + 1 and not shown[-1]:
            shown.pop()
        return self._gone + shown
