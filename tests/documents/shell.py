"""The shell in which the commands of a document run, one after another, so that folders,
variables and background jobs go on as for a reader."""

import os
import pathlib
import select
import shlex
import signal
import subprocess
import time

COMMAND_LIMIT = 300  # seconds for one command, on a machine that does much else


class ShellError(Exception):
    """A command did not end, or ended the shell."""


class Shell:
    def __init__(self, directory, environment, outputs):
        self._outputs = pathlib.Path(outputs)
        self._count = 0
        self._reader, writer = os.pipe()
        self._process = subprocess.Popen(
            ["bash", "--noprofile", "--norc"], cwd=directory, env=environment,
            stdin=subprocess.PIPE, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
            pass_fds=[writer], start_new_session=True)
        os.close(writer)
        self._results = writer  # its number in the shell

    def run(self, command):
        """Status, and what was written to either output until the command ended."""
        output = self._next_output()
        self._send(f"eval {shlex.quote(command)} </dev/null >{shlex.quote(str(output))} 2>&1 "
                   f"{self._results}>&-\necho \"$?\" >&{self._results}")
        return int(self._answer(command)), output.read_text(errors="replace")

    def run_until(self, command, is_enough):
        """What a command that goes on in the background has written once that is enough,
        or once it has ended."""
        output = self._next_output()
        self._send(f"( {command.rstrip().removesuffix('&')}\n) </dev/null "
                   f">{shlex.quote(str(output))} 2>&1 {self._results}>&- &\n"
                   f"echo $! >&{self._results}")
        process = int(self._answer(command))
        deadline = time.monotonic() + COMMAND_LIMIT
        while True:
            has_ended = not self._runs(process)
            text = output.read_text(errors="replace") if output.exists() else ""
            if is_enough(text) or has_ended:
                return text
            if time.monotonic() > deadline:
                return text
            time.sleep(0.02)

    def directory(self):
        self._send(f"pwd >&{self._results}")
        return self._answer("pwd")

    def variables(self):
        """The environment that a program started now would get."""
        _, text = self.run("env -0")
        return dict(item.split("=", 1) for item in text.split("\0") if "=" in item)

    def close(self):
        """Ends the shell and all that it started."""
        for sign in (signal.SIGTERM, signal.SIGKILL):
            try:
                os.killpg(self._process.pid, sign)
            except ProcessLookupError:
                break
            deadline = time.monotonic() + 5
            while self._group_lives() and time.monotonic() < deadline:
                self._process.poll()
                time.sleep(0.02)
        self._process.wait()
        self._process.stdin.close()
        os.close(self._reader)

    def _group_lives(self):
        try:
            os.killpg(self._process.pid, 0)
        except ProcessLookupError:
            return False
        return True

    @staticmethod
    def _runs(process):
        try:
            state = pathlib.Path(f"/proc/{process}/stat").read_text().rpartition(")")[2].split()[0]
        except OSError:
            return False
        return state not in "ZX"

    def _next_output(self):
        self._count += 1
        return self._outputs / f"output_{self._count}"

    def _send(self, text):
        try:
            self._process.stdin.write(text.encode() + b"\n")
            self._process.stdin.flush()
        except BrokenPipeError as error:
            raise ShellError("the shell has ended") from error

    def _answer(self, command):
        text, deadline = b"", time.monotonic() + COMMAND_LIMIT
        while not text.endswith(b"\n"):
            if not select.select([self._reader], [], [], max(0, deadline - time.monotonic()))[0]:
                raise ShellError(f"\"{command}\" has not ended within {COMMAND_LIMIT} s")
            more = os.read(self._reader, 4096)
            if not more:
                raise ShellError(f"\"{command}\" has ended the shell")
            text += more
        return text.decode().strip()
