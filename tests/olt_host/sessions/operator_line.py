"""The wire between an operator's screen and a session of olt_host: a
pseudo-terminal or a telnet connection. Both read what is there without
waiting, write keys, and tell the host about the size of the screen."""

import array
import errno
import fcntl
import os
import select
import socket
import struct
import subprocess
import termios

ROWS, COLUMNS = 24, 80


class Ended(Exception):
    """The host has closed the line."""


class PseudoTerminal:
    """A program on a terminal of its own."""

    def __init__(self, arguments, directory, environment, errors, rows=ROWS):
        self._master, self._slave = os.openpty()
        self.resize(rows, COLUMNS)
        self.process = subprocess.Popen(
            arguments, cwd=directory, env=environment, stdin=self._slave, stdout=self._slave,
            stderr=errors, start_new_session=True,
            preexec_fn=lambda: fcntl.ioctl(0, termios.TIOCSCTTY, 0))

    def read(self, seconds):
        """What the program wrote; b"" when nothing came in time. The terminal is
        held open here too, so its end is the program's."""
        has_ended = self.process.poll() is not None
        readable, _, _ = select.select([self._master], [], [], 0 if has_ended else seconds)
        if readable:
            return os.read(self._master, 65536)
        if has_ended:
            raise Ended
        return b""

    def write(self, keys):
        while keys:
            keys = keys[os.write(self._master, keys):]

    def enter(self):
        return b"\r"

    def keys_wait(self):
        """Whether typed keys still lie in the terminal, unread by the program."""
        count = array.array("i", [0])
        fcntl.ioctl(self._slave, termios.FIONREAD, count)
        return count[0] > 0

    def resize(self, rows, columns):
        fcntl.ioctl(self._master, termios.TIOCSWINSZ, struct.pack("HHHH", rows, columns, 0, 0))

    def close(self):
        os.close(self._slave)
        os.close(self._master)


IAC, DONT, DO, WONT, WILL, SB, SE = 255, 254, 253, 252, 251, 250, 240
ECHO, SUPPRESS_GO_AHEAD, TERMINAL_TYPE, WINDOW_SIZE = 1, 3, 24, 31


class TelnetStream:
    """Takes telnet's own bytes out of what a server sends, and answers them like
    a client on a terminal would."""

    def __init__(self, terminal_type=b"XTERM", rows=ROWS, columns=COLUMNS):
        self._terminal_type = terminal_type
        self._size = (columns, rows)
        self._sends_size = False
        self._pending = b""
        self._after_return = False
        self._agreed = set()

    def receive(self, received):
        """The text in `received`, and the bytes to answer."""
        data = self._pending + received
        text, answer, at = bytearray(), bytearray(), 0
        while at < len(data):
            if data[at] != IAC:
                self._take(data[at], text)
                at += 1
                continue
            length = self._command_length(data, at)
            if length == 0:
                break
            self._command(data[at:at + length], text, answer)
            at += length
        self._pending = data[at:]
        return bytes(text), bytes(answer)

    def _take(self, byte, text):
        # A carriage return of its own comes as CR NUL.
        if not (byte == 0 and self._after_return):
            text.append(byte)
        self._after_return = byte == 13

    @staticmethod
    def _command_length(data, at):
        """Of the command that starts at `at`; 0 while it is not all there."""
        if at + 1 >= len(data):
            return 0
        if data[at + 1] in (DO, DONT, WILL, WONT):
            return 3 if at + 2 < len(data) else 0
        if data[at + 1] != SB:
            return 2
        end = at + 2
        while end + 1 < len(data):
            if data[end] == IAC:
                if data[end + 1] == SE:
                    return end + 2 - at
                end += 1
            end += 1
        return 0

    def _command(self, command, text, answer):
        verb = command[1]
        if verb == IAC:
            self._take(IAC, text)
        elif verb == DO:
            wanted = command[2] in (TERMINAL_TYPE, WINDOW_SIZE)
            self._agree(WILL if wanted else WONT, command[2], answer)
            if command[2] == WINDOW_SIZE and not self._sends_size:
                self._sends_size = True
                answer += self.size(*reversed(self._size))
        elif verb == WILL:
            wanted = command[2] in (ECHO, SUPPRESS_GO_AHEAD)
            self._agree(DO if wanted else DONT, command[2], answer)
        elif verb == SB and command[2:4] == bytes([TERMINAL_TYPE, 1]):
            answer += bytes([IAC, SB, TERMINAL_TYPE, 0]) + self._terminal_type + bytes([IAC, SE])

    def _agree(self, verb, option, answer):
        # Each answer once, or two ends that answer answers would never finish.
        if (verb, option) not in self._agreed:
            self._agreed.add((verb, option))
            answer += bytes([IAC, verb, option])

    def size(self, rows, columns):
        self._size = (columns, rows)
        numbers = struct.pack(">HH", columns, rows).replace(b"\xff", b"\xff\xff")
        return bytes([IAC, SB, WINDOW_SIZE]) + numbers + bytes([IAC, SE])


class Telnet:
    """A telnet connection."""

    def __init__(self, address):
        self._socket = socket.create_connection(address, timeout=60)
        self._socket.setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)
        self._stream = TelnetStream()

    def read(self, seconds):
        readable, _, _ = select.select([self._socket], [], [], seconds)
        if not readable:
            return b""
        try:
            received = self._socket.recv(65536)
        except OSError as error:
            if error.errno == errno.ECONNRESET:
                raise Ended from error
            raise
        if not received:
            self.close()  # or a stopping host would wait for it
            raise Ended
        text, answer = self._stream.receive(received)
        if answer:
            self._socket.sendall(answer)
        return text

    def write(self, keys):
        self._socket.sendall(keys.replace(b"\xff", b"\xff\xff"))

    def enter(self):
        return b"\r\0"

    def keys_wait(self):
        return False

    def resize(self, rows, columns):
        self._socket.sendall(self._stream.size(rows, columns))

    def close(self):
        self._socket.close()
