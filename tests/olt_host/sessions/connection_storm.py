#!/usr/bin/python3
"""Ten thousand operators who do not behave: connections dropped at random points,
lines of a megabyte, noise, clients that never read. All the while and afterwards
a client that does behave is answered; in the end the host has as many threads
and descriptors as before, and no more memory than a stated margin.

    connection_storm.py --host OLT_HOST --catalogue FILE --reports FILE

What the clients do is random; the seed is printed, and --seed repeats it.
"""

import argparse
import asyncio
import multiprocessing
import os
import pathlib
import random
import shutil
import socket
import struct
import subprocess
import sys
import tempfile
import time

from host_process import HostError, environment, is_asleep
from operator_line import DO, IAC, SB, SE, TERMINAL_TYPE, WILL, WINDOW_SIZE, TelnetStream

PROMPT = b"olt> "
CLIENT_LIMIT = 300     # seconds that a client of the storm waits for anything
SETTLE_LIMIT = 300     # seconds until the last session of the storm has to be gone
LONG_LISTING = b"show onucapa_table real 2 flag 1\r\n"
NOISE = bytes(range(256))
TERMINAL_TYPES = [b"XTERM", b"xterm-256color", b"VT100", b"linux", b"screen", b"no-such-type",
                  b"../../etc/passwd", b""]
HALF_SEQUENCES = [
    bytes([IAC]), bytes([IAC, WILL]), bytes([IAC, DO]), bytes([IAC, SB]),
    bytes([IAC, SB, TERMINAL_TYPE, 0]) + b"XTE",
    bytes([IAC, SB, WINDOW_SIZE, 0, 80, 0]), bytes([IAC, SB, TERMINAL_TYPE, 0, IAC]),
    bytes([IAC, SB, TERMINAL_TYPE, 0]) + b"x" * 5000, bytes([IAC, SE]),
]


class Client:
    """One client of the storm, on a socket that never blocks."""

    def __init__(self, addresses, chance, receive_room=None):
        self.chance = chance
        self._is_tcp = chance.random() < 0.7
        self._address = addresses[0] if self._is_tcp else addresses[1]
        self._socket = socket.socket(socket.AF_INET if self._is_tcp else socket.AF_UNIX)
        if receive_room is not None:
            self._socket.setsockopt(socket.SOL_SOCKET, socket.SO_RCVBUF, receive_room)
        self._socket.setblocking(False)
        # No screen so small that it pages the answers that a client waits for.
        self._telnet = TelnetStream(chance.choice(TERMINAL_TYPES),
                                    rows=chance.choice([0, 24, 60, 65535]),
                                    columns=chance.choice([0, 80, 132, 65535]))

    async def connect(self):
        await asyncio.get_running_loop().sock_connect(self._socket, self._address)

    async def send(self, data):
        await asyncio.wait_for(
            asyncio.get_running_loop().sock_sendall(self._socket, data), CLIENT_LIMIT)

    async def read(self):
        """Some text; b"" at the end of the connection."""
        while True:
            data = await asyncio.wait_for(
                asyncio.get_running_loop().sock_recv(self._socket, 65536), CLIENT_LIMIT)
            if not data or not self._is_tcp:
                return data
            text, answer = self._telnet.receive(data)
            if answer:
                await self.send(answer)
            if text:
                return text

    async def read_until(self, marks):
        """Everything up to one of the texts, or to the end of the connection."""
        seen = b""
        while not any(mark in seen for mark in marks):
            text = await self.read()
            if not text:
                break
            seen = seen[-64:] + text
        return seen

    def drop(self):
        """Resets the connection, or closes it in order."""
        if self._is_tcp and self.chance.random() < 0.5:
            self._socket.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, struct.pack("ii", 1, 0))
        elif self.chance.random() < 0.2:
            try:
                self._socket.shutdown(socket.SHUT_WR)
            except OSError:
                pass  # the host was faster
        self._socket.close()


# --- What clients of the storm do.

async def drop_at_once(client):
    pass


async def drop_in_a_telnet_sequence(client):
    await client.send(client.chance.choice(HALF_SEQUENCES))


async def drop_in_a_line(client):
    if client.chance.random() < 0.5:
        await client.read_until([PROMPT])
    line = b"show onucapa_table real 2 flag 1 real_type 1001"
    await client.send(line[:client.chance.randrange(1, len(line))])


async def drop_in_the_pager(client):
    await client.read_until([PROMPT])
    await client.send(LONG_LISTING)
    await client.read_until([b"--More--", b"\r\n" + PROMPT])
    if client.chance.random() < 0.5:
        await client.send(b" ")


async def drop_while_output_waits(client):
    await client.read_until([PROMPT])
    await client.send(b"terminal length 0\r\n" + LONG_LISTING * client.chance.randrange(1, 4))
    if client.chance.random() < 0.7:
        await client.read()


async def send_noise(client):
    count = client.chance.randrange(1, 8192)
    await client.send(bytes(client.chance.choices(NOISE, k=count)))


async def send_a_line_of_a_megabyte(client):
    ending = client.chance.choice([b"", b"\r\n", b"\r\nshow version\r\n"])
    await client.send(b"a" * (1 << 20) + ending)
    if client.chance.random() < 0.5:
        await client.read()


async def ask_and_never_read(client):
    await client.send(b"\r\nterminal length 0\r\n" + b"show tech-support\r\n" * 50)
    await asyncio.sleep(client.chance.uniform(0.0, 2.0))


async def behave(client):
    await client.read_until([PROMPT])
    await client.send(b"show version\r\n")
    await client.read_until([PROMPT])
    await client.send(b"exit\r\n")
    await client.read_until([b"no such text"])


# How often each happens, out of a hundred.
DEEDS = [(drop_at_once, 22), (drop_in_a_telnet_sequence, 18), (drop_in_a_line, 18),
         (drop_in_the_pager, 8), (drop_while_output_waits, 8), (send_noise, 13),
         (send_a_line_of_a_megabyte, 0.5), (ask_and_never_read, 3), (behave, 8)]


async def misbehave(addresses, chance, counts):
    deed = chance.choices([deed for deed, _ in DEEDS], [share for _, share in DEEDS])[0]
    client = Client(addresses, chance, 2048 if deed is ask_and_never_read else None)
    outcome = "done"
    try:
        await client.connect()
        await deed(client)
    except (ConnectionError, BrokenPipeError):
        outcome = "closed by the host"
    except asyncio.TimeoutError:
        outcome = "TIMED OUT"
    finally:
        client.drop()
    counts[deed.__name__, outcome] = counts.get((deed.__name__, outcome), 0) + 1


async def rage(addresses, chance, count, at_once, counts):
    left = iter(range(count))

    async def keep_on():
        for _ in left:
            await misbehave(addresses, chance, counts)

    await asyncio.gather(*(keep_on() for _ in range(at_once)))


def storm(addresses, seed, count, at_once, results):
    """In a process of its own, so that it does not slow the measuring client."""
    counts = {}
    asyncio.run(rage(addresses, random.Random(seed), count, at_once, counts))
    results.put(counts)


# --- The client that behaves.

class Asker:
    """Asks for the version and measures how long the answer takes."""

    def __init__(self, address, limit):
        self._socket = socket.create_connection(address, timeout=limit)
        self._socket.setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)
        self._telnet = TelnetStream()
        self._await(PROMPT)

    def _await(self, mark):
        text = b""
        while not text.endswith(mark):
            data = self._socket.recv(65536)
            if not data:
                raise ConnectionError("the host hung up after " + repr(text))
            more, answer = self._telnet.receive(data)
            text += more
            self._socket.sendall(answer)
        return text

    def ask(self):
        self._socket.sendall(b"show version\r\0")
        answer = self._await(b"\r\n" + PROMPT)
        if b"olt_host" not in answer:
            raise ConnectionError("no version in " + repr(answer))

    def close(self):
        self._socket.close()


def timed_question(address, limit):
    """Seconds from connecting to the answer."""
    start = time.monotonic()
    asker = Asker(address, limit)
    try:
        asker.ask()
    finally:
        asker.close()
    return time.monotonic() - start


class SilentClient:
    """Asks for much and reads nothing, until the host gives it up."""

    def __init__(self, address):
        self._socket = socket.socket()
        self._socket.setsockopt(socket.SOL_SOCKET, socket.SO_RCVBUF, 2048)
        self._socket.connect(address)
        self._socket.sendall(b"terminal length 0\r\n" + b"show tech-support\r\n" * 100)

    def close(self):
        self._socket.close()


def crowd(address, options):
    """More operators than the host takes: each has a prompt or is told why not."""
    surplus = 10
    clients = [socket.create_connection(address, timeout=CLIENT_LIMIT)
               for _ in range(options.sessions + surplus)]
    refused = 0
    for client in clients:
        text = b""
        while PROMPT not in text and b"Too many sessions" not in text:
            data = client.recv(65536)
            if not data:
                break
            text += data
        refused += b"% Too many sessions" in text
    for client in clients:
        client.close()
    print(f"of {len(clients)} operators at once {refused} were refused")
    if refused != surplus:
        raise HostError(f"expected {surplus} refused operators")


# --- The host.

class Usage:
    """What the host's process has."""

    def __init__(self, process_id):
        proc = pathlib.Path(f"/proc/{process_id}")
        self.threads = len(os.listdir(proc / "task"))
        self.descriptors = len(os.listdir(proc / "fd"))
        pages = int((proc / "statm").read_text().split()[1])
        self.memory = pages * os.sysconf("SC_PAGE_SIZE") / (1 << 20)

    def __str__(self):
        return (f"{self.threads} threads, {self.descriptors} descriptors, "
                f"{self.memory:.1f} MiB resident")


def start_host(options, directory):
    shutil.copy(options.catalogue, directory)
    shutil.copy(options.reports, directory)
    with open(directory / "standard_error", "wb") as errors:
        return subprocess.Popen(
            [options.host, "serve", options.catalogue.name, options.reports.name,
             "--listen", "127.0.0.1:0", "--socket", "operators",
             "--sessions", str(options.sessions), "--log", "host.log"],
            cwd=directory, env=environment(directory), stdin=subprocess.DEVNULL,
            stdout=subprocess.DEVNULL, stderr=errors)


def await_addresses(host, directory):
    deadline = time.monotonic() + 120
    while time.monotonic() < deadline and host.poll() is None:
        words = (directory / "standard_error").read_text().split()
        if "port" in words and words[-2] == "port":
            return ("127.0.0.1", int(words[-1])), str(directory / "operators")
        time.sleep(0.01)
    raise HostError("olt_host does not serve:\n" + (directory / "standard_error").read_text())


def await_idle(host, threads, descriptors):
    """Until the host has no more than this, and sleeps."""
    deadline = time.monotonic() + SETTLE_LIMIT
    while time.monotonic() < deadline:
        usage = Usage(host.pid)
        if usage.threads <= threads and usage.descriptors <= descriptors and is_asleep(host.pid):
            return usage
        time.sleep(0.05)
    raise HostError(f"{SETTLE_LIMIT} s after the storm the host still has {Usage(host.pid)}; "
                    f"it had {threads} threads and {descriptors} descriptors")


def weather(addresses, options, seed, count):
    """A storm, and how long the client that behaves waited meanwhile: a client of
    its own for each question, and one that stays."""
    results = multiprocessing.Queue()
    process = multiprocessing.Process(
        target=storm, args=(addresses, seed, count, options.at_once, results))
    steady = Asker(addresses[0], options.answer_limit)
    process.start()
    waits = []
    while process.is_alive() and results.empty():
        waits.append(timed_question(addresses[0], options.answer_limit))
        start = time.monotonic()
        steady.ask()
        waits.append(time.monotonic() - start)
        time.sleep(0.02)  # not to be a storm of its own
    counts = results.get(timeout=CLIENT_LIMIT)
    process.join()
    steady.close()
    return counts, waits


def report_storm(counts, waits, seconds):
    for (deed, outcome), count in sorted(counts.items()):
        print(f"  {deed:28} {outcome:20} {count:6}")
    waits.sort()
    print(f"{sum(counts.values())} connections in {seconds:.1f} s; {len(waits)} questions "
          f"meanwhile answered within {waits[-1]:.3f} s (median {waits[len(waits) // 2]:.3f} s)")


def run(options, directory, host):
    addresses = await_addresses(host, directory)
    idle = await_idle(host, 1 << 20, 1 << 20)
    print(f"before any connection: {idle}")
    timed_question(addresses[0], options.answer_limit)
    # The first few hundred fill the allocator's arenas and caches.
    weather(addresses, options, options.seed + 1, options.warm_up)
    await_idle(host, idle.threads, idle.descriptors)
    crowd(addresses[0], options)
    before = await_idle(host, idle.threads, idle.descriptors)
    print(f"after {options.warm_up} connections: {before}")
    silent = [SilentClient(addresses[0]) for _ in range(4)]
    start = time.monotonic()
    counts, waits = weather(addresses, options, options.seed, options.connections)
    report_storm(counts, waits, time.monotonic() - start)
    if any(outcome == "TIMED OUT" for _, outcome in counts):
        raise HostError(f"a client waited {CLIENT_LIMIT} s for the host")
    await_idle(host, idle.threads, idle.descriptors)
    for client in silent:  # the host has given them up by now
        client.close()
    crowd(addresses[0], options)
    after = await_idle(host, idle.threads, idle.descriptors)
    print(f"after the storm: {after}")
    last = timed_question(addresses[0], options.answer_limit)
    print(f"a last question was answered within {last:.3f} s")
    if after.memory > before.memory + options.memory_margin:
        raise HostError(f"memory grew by {after.memory - before.memory:.1f} MiB; "
                        f"expected at most {options.memory_margin} MiB")


def stop(host, directory):
    if host.poll() is not None:
        raise HostError(f"olt_host ended with status {host.returncode}")
    host.terminate()
    status = host.wait(120)
    errors = [line for line in (directory / "standard_error").read_text().splitlines()
              if not line.startswith("olt_host: operators may ")]
    if status != 0 or errors:
        raise HostError(f"olt_host ended with status {status} and said\n" + "\n".join(errors))


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n\n")[0])
    parser.add_argument("--host", required=True)
    parser.add_argument("--catalogue", required=True, type=pathlib.Path)
    parser.add_argument("--reports", required=True, type=pathlib.Path)
    parser.add_argument("--connections", type=int, default=10000)
    parser.add_argument("--warm-up", type=int, default=600)
    parser.add_argument("--at-once", type=int, default=24)
    # Well above --at-once: a session works off what its client had sent before it left.
    parser.add_argument("--sessions", type=int, default=160, help="the host's own limit")
    parser.add_argument("--seed", type=int, default=random.randrange(1 << 30))
    parser.add_argument("--answer-limit", type=float, default=10.0, metavar="SECONDS",
                        help="on a machine that does nothing else, 1 is enough")
    parser.add_argument("--memory-margin", type=float, default=8.0, metavar="MIB")
    options = parser.parse_args()
    print(f"seed {options.seed}", flush=True)
    with tempfile.TemporaryDirectory(prefix="olt_storm_") as name:
        directory = pathlib.Path(name)
        host = start_host(options, directory)
        try:
            run(options, directory, host)
            stop(host, directory)
        except (HostError, OSError) as error:
            print((directory / "standard_error").read_text())
            sys.exit(f"seed {options.seed}: {error}")
        finally:
            if host.poll() is None:
                host.kill()
                host.wait()


if __name__ == "__main__":
    main()
