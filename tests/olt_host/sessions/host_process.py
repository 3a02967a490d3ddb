"""Starts the built olt_host, lets an operator in, and ends it."""

import os
import pathlib
import re
import signal
import subprocess
import time

from operator_line import PseudoTerminal, Telnet

START_LIMIT = 120  # seconds until a host serves, on a machine that does much else
END_LIMIT = 120


class HostError(Exception):
    """The host did not start, or not end, as it must."""


def environment(directory):
    result = {name: value for name, value in os.environ.items()
              if name.startswith(("ASAN_", "LSAN_", "UBSAN_", "TSAN_", "LD_LIBRARY_PATH", "PATH"))}
    result.update(TERM="xterm", LC_ALL="C.UTF-8", HOME=str(directory))
    return result


def is_asleep(process_id):
    """Whether every thread of a process waits for something to happen."""
    for task in pathlib.Path(f"/proc/{process_id}/task").glob("*/stat"):
        try:
            state = task.read_text().rpartition(")")[2].split()[0]
        except OSError:
            continue  # the thread has ended meanwhile
        if state not in "SZX":
            return False
    return True


class HostProcess:
    """One run of olt_host, with the ways in that `transport` names: "pty" for the
    terminal that it runs on, "tcp", or "attach" for a socket."""

    def __init__(self, program, transport, arguments, directory):
        self._program = program
        self._transport = transport
        self._directory = pathlib.Path(directory)
        self._errors_file = self._directory / "standard_error"
        self._lines = []
        with open(self._errors_file, "wb") as errors:
            if transport == "pty":
                words = [program, "console", *arguments]
                line = PseudoTerminal(words, directory, environment(directory), errors)
                self.process = line.process
                self._lines.append(line)
            else:
                tcp, socket = ["--listen", "127.0.0.1:0"], ["--socket", "operators"]
                listen = tcp if transport == "tcp" else socket
                self.process = subprocess.Popen(
                    [program, "serve", *arguments, *listen], cwd=directory,
                    env=environment(directory), stdin=subprocess.DEVNULL,
                    stdout=subprocess.DEVNULL, stderr=errors)

    def open_line(self):
        """A new session."""
        if self._transport == "pty":
            if len(self._lines) != 1:
                raise HostError("a terminal has one session only")
            return self._lines[0]
        way_in = self.await_error_line(
            r"olt_host: operators may (attach to|telnet to) (\S+)(?: port (\d+))?")
        if self._transport == "tcp":
            line = Telnet((way_in.group(2), int(way_in.group(3))))
        else:
            line = PseudoTerminal([self._program, "attach", way_in.group(2)], self._directory,
                                  environment(self._directory), subprocess.STDOUT)
        self._lines.append(line)
        return line

    def await_error_line(self, pattern):
        """Waits until a line of standard error reads so."""
        deadline = time.monotonic() + START_LIMIT
        while time.monotonic() < deadline:
            for text in self.errors().splitlines():
                found = re.fullmatch(pattern, text)
                if found:
                    return found
            if self.process.poll() is not None:
                break
            time.sleep(0.01)
        raise HostError("olt_host does not serve; it said:\n" + self.errors())

    def errors(self):
        return self._errors_file.read_text(errors="replace")

    def unexpected_errors(self):
        """Standard error without what a host says of its ways in."""
        return "".join(line for line in self.errors().splitlines(keepends=True)
                       if not line.startswith("olt_host: operators may "))

    def process_ids(self):
        ids = [self.process.pid]
        return ids + [line.process.pid for line in self._lines
                      if isinstance(line, PseudoTerminal) and line.process is not self.process]

    def is_asleep(self):
        return all(is_asleep(process_id) for process_id in self.process_ids())

    def stop(self, drain=None):
        """Tells the host to end and returns its status. `drain` is called while it
        does not, so that it can say its last words."""
        if self.process.poll() is None:
            self.process.send_signal(signal.SIGTERM)
        deadline = time.monotonic() + END_LIMIT
        while self.process.poll() is None:
            if drain is not None:
                drain()
            if time.monotonic() > deadline:
                self.kill()
                raise HostError(f"olt_host did not end within {END_LIMIT} s of SIGTERM")
            time.sleep(0.01)
        self.close_lines()
        return self.process.returncode

    def kill(self):
        """For a session that has failed already."""
        if self.process.poll() is None:
            self.process.kill()
            self.process.wait()
        self.close_lines()

    def close_lines(self):
        for line in self._lines:
            if isinstance(line, PseudoTerminal) and line.process is not self.process:
                if line.process.poll() is None:
                    line.process.terminate()
                line.process.wait()
            line.close()
        self._lines = []
