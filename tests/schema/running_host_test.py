#!/usr/bin/python3
"""Several catalogue files, show catalogue and reload, in the built program.

  running_host_test.py OLT_HOST
"""

import json
import pathlib
import select
import subprocess
import sys
import tempfile
import time
import unittest

HERE = pathlib.Path(__file__).resolve().parent
SMALL = HERE.parent / "olt_host" / "fixtures" / "small_catalogue.yaml"
PROGRAM = None
PATIENCE = 60  # seconds: machines are slow and shared
BAD_PROFILES = "".join(f"  - {{key: {key}, abilites: {{}}}}\n" for key in range(100, 300))


class Host:
    """A console whose commands are piped; each answer ends where the next command's begins."""

    def __init__(self, *arguments):
        self._process = subprocess.Popen([PROGRAM, "console", *map(str, arguments)],
                                         stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                         stderr=subprocess.DEVNULL, bufsize=0)

    def type(self, command):
        """What the command wrote, up to the answer of a command that is known."""
        self._process.stdin.write(f"{command}\nshow key_ability_code\n".encode())
        output = b""
        deadline = time.monotonic() + PATIENCE
        while b"ability_name:" not in output:
            if not select.select([self._process.stdout], [], [], deadline - time.monotonic())[0]:
                raise AssertionError(f"no answer to {command}: {output}")
            read = self._process.stdout.read(65536)
            if not read:
                raise AssertionError(f"ended after {command}: {output}")
            output += read
        return output.decode().replace("\r", "").partition("key_ability_code:")[0]

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self._process.stdin.close()
        self._process.stdout.read()
        self._process.stdout.close()
        self._process.wait(PATIENCE)


class RunningHost(unittest.TestCase):
    def setUp(self):
        directory = tempfile.TemporaryDirectory()
        self.addCleanup(directory.cleanup)
        self.directory = pathlib.Path(directory.name)
        self.shipped = self.write("shipped.yaml", SMALL.read_text("utf-8"))
        self.drop_ins = self.directory / "local.d"
        self.drop_ins.mkdir()

    def write(self, name, text):
        path = self.directory / name
        path.write_text(text, encoding="utf-8")
        return path

    def drop_in(self, text):
        return self.write("local.d/10-site.yaml", text)

    def host(self, *options):
        return Host(self.shipped, "--local", self.drop_ins, *options)

    def shown(self, host):
        return json.loads(host.type("show catalogue json"))["catalogue"]

    def test_drop_in_overrides_by_key(self):
        path = self.drop_in("real_profiles: [{key: 1001, abilities: {GE_PORTS: 8}}]\n")
        with self.host() as host:
            shown = self.shown(host)
        self.assertEqual([file["file"] for file in shown["files"]], [str(self.shipped), str(path)])
        self.assertEqual([file["real_profiles"] for file in shown["files"]], [2, 1])
        self.assertEqual(shown["changed_in_memory"], [])

    def test_reload_applies_the_difference(self):
        with self.host() as host:
            self.assertEqual(host.type("reload"), "Nothing changed\n")
            before = self.shown(host)["sha256"]
            self.drop_in("real_profiles: [{key: 7, abilities: {GE_PORTS: 8}}]\n")
            self.assertEqual(host.type("reload"),
                             "Reloaded\n  1 real profile added\n\n  real profile 7: added\n\n"
                             "The catalogue has 1 warning; "
                             "\"lint catalogue\" shows more\n")
            self.assertNotEqual(self.shown(host)["sha256"], before)
            self.assertIn("GE_PORTS", host.type("show onucapa_table real 0 flag 1"))

    def test_reload_keeps_what_operators_made(self):
        with self.host() as host:
            host.type("set onu_common_type sfu 4")
            host.type("set ability_code 5000 name OWN")
            self.drop_in("common_types: {sfu: 5, hgu: 6}\n")
            self.assertIn("1 setting changed", host.type("reload"))
            types = host.type("show onu_common_type").split()
            self.assertEqual([types[0].split(":")[0], types[-1]], ["common_sfu_type", "6"])
            names = [change["name"] for change in self.shown(host)["changed_in_memory"]]
            self.assertEqual(names, ["common SFU type", "OWN"])

    def test_refused_reload_changes_nothing(self):
        with self.host() as host:
            before = self.shown(host)
            path = self.drop_in("common_types: {sfu: 5}\nreal_profiles:\n"
                                "  - {key: 7, abilities: {GE_PORTS: many}}\n")
            answer = host.type("reload")
            self.assertIn(f'% Not reloaded: {path}:3: GE_PORTS is "many"; expected', answer)
            self.assertEqual(self.shown(host), before)

    def test_one_bad_entry_stops_the_start_unless_keeping_going(self):
        path = self.drop_in("real_profiles:\n  - {key: 7, abilities: {GE_PORTS: 8}}\n"
                            + BAD_PROFILES)
        message = (f'{path}:3: "abilites" is not a key of a real profile; '
                   'expected "abilities"')
        result = subprocess.run([PROGRAM, "console", self.shipped, "--local", self.drop_ins],
                                stdin=subprocess.DEVNULL, capture_output=True, text=True,
                                timeout=PATIENCE, check=False)
        self.assertEqual((result.returncode, result.stderr), (2, message + "\n"))
        with self.host("--keep-going") as host:
            shown = self.shown(host)
        self.assertEqual(shown["real_profiles"], 4)
        self.assertEqual(shown["refused_entries"], 200)
        self.assertEqual(shown["refused"], [message + " (and in 199 more places)"])


if __name__ == "__main__":
    PROGRAM = sys.argv.pop(1)
    unittest.main()
