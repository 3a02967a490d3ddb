#!/usr/bin/python3
"""The schemas that editors use and the reader of olt_host must take and refuse the same.

  schema_test.py OLT_HOST

Validates the shipped data, the fixtures of the tests and the examples of the user
documentation; shows every file under bad/ to schema and reader, which must both refuse it;
compares the keys that both know.
"""

import json
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

import jsonschema
import yaml

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parent.parent
FIXTURES = ROOT / "tests" / "olt_host" / "fixtures"
MODELINE = "# yaml-language-server: $schema=schema/{}.schema.json"
PROGRAM = None
FAR_FROM_EVERY_KEY = "zqzqzqzqzqzqzqzq"


class Loader(yaml.SafeLoader):
    """YAML 1.2 as editors read it: no dates, no yes and no, hexadecimal and decimal numbers."""


Loader.yaml_implicit_resolvers = {}
for tag, pattern, first in [("null", r"^(~|null|Null|NULL|)$", ["~", "n", "N", ""]),
                            ("bool", r"^(true|True|TRUE|false|False|FALSE)$", list("tTfF")),
                            ("int", r"^([-+]?[0-9]+|0x[0-9a-fA-F]+)$", list("-+0123456789")),
                            ("float", r"^[-+]?([0-9]*\.[0-9]+|[0-9]+\.)$", list("-+.0123456789"))]:
    Loader.add_implicit_resolver(f"tag:yaml.org,2002:{tag}", re.compile(pattern), first)


def with_text_keys(value):
    """JSON has no other keys."""
    if isinstance(value, dict):
        return {str(key): with_text_keys(entry) for key, entry in value.items()}
    if isinstance(value, list):
        return [with_text_keys(entry) for entry in value]
    return value


def load(text):
    return with_text_keys(yaml.load(text, Loader))


def schema(kind):
    return json.loads((ROOT / "data" / "schema" / f"{kind}.schema.json").read_text("utf-8"))


def errors(kind, text):
    validator = jsonschema.Draft7Validator(schema(kind))
    return [f"{'/'.join(map(str, error.absolute_path))}: {error.message}"
            for error in validator.iter_errors(load(text))]


def run_reader(kind, path):
    """The message with which olt_host refuses the file, "" when it takes it."""
    files = ([path, FIXTURES / "small_reports.yaml"] if kind == "catalogue"
             else [FIXTURES / "small_catalogue.yaml", path])
    result = subprocess.run([PROGRAM, "confirm", "--summary", *map(str, files)],
                            capture_output=True, text=True, timeout=120, check=False)
    return result.stderr if result.returncode == 2 else ""


def documented():
    """(kind, text) of every YAML example of the documentation; the first line tells the kind."""
    text = (ROOT / "docs" / "catalogue-format.md").read_text("utf-8")
    for block in re.findall(r"^```yaml\n(.*?)^```$", text, re.MULTILINE | re.DOTALL):
        kinds = [kind for kind in ("catalogue", "reports")
                 if block.startswith(MODELINE.format(kind) + "\n")]
        yield (kinds[0] if kinds else None), block


class Schemas(unittest.TestCase):
    def test_are_schemas(self):
        for kind in ("catalogue", "reports"):
            jsonschema.Draft7Validator.check_schema(schema(kind))

    def test_describe_every_key(self):
        def walk(node, path):
            for key, entry in node.get("properties", {}).items():
                self.assertTrue("description" in entry or "$ref" in entry, f"{path}/{key}")
                walk(entry, f"{path}/{key}")
            for key, entry in node.get("definitions", {}).items():
                self.assertIn("description", entry, f"{path}/{key}")
                walk(entry, f"{path}/{key}")

        for kind in ("catalogue", "reports"):
            walk(schema(kind), kind)

    def test_examples_in_them_are_valid(self):
        def walk(node, definitions):
            if isinstance(node, dict):
                for example in node.get("examples", []):
                    jsonschema.Draft7Validator({**node, "definitions": definitions}).validate(example)
                for entry in node.values():
                    walk(entry, definitions)

        for kind in ("catalogue", "reports"):
            root = schema(kind)
            walk(root, root["definitions"])


class GoodFiles(unittest.TestCase):
    def test_shipped_data(self):
        for kind in ("catalogue", "reports"):
            text = (ROOT / "data" / f"{kind}.yaml").read_text("utf-8")
            self.assertEqual(text.splitlines()[0], MODELINE.format(kind))
            self.assertEqual(errors(kind, text), [])

    def test_corpus(self):
        for path in sorted((ROOT / "data" / "corpus").glob("*.yaml")):
            with self.subTest(path.name):
                self.assertEqual(errors("reports", path.read_text("utf-8")), [])

    def test_fixtures(self):
        for path in sorted(FIXTURES.glob("*.yaml")):
            kind = "reports" if "reports" in path.name else "catalogue"
            with self.subTest(path.name):
                self.assertEqual(errors(kind, path.read_text("utf-8")), [])

    def test_documented_examples(self):
        blocks = list(documented())
        self.assertGreaterEqual(len(blocks), 3)
        for kind, block in blocks:
            with self.subTest(block.splitlines()[0]):
                self.assertIsNotNone(kind, "an example must begin with the line for editors")
                self.assertEqual(errors(kind, block), [])


class BadFiles(unittest.TestCase):
    def test_schema_and_reader_both_refuse(self):
        paths = sorted((HERE / "bad").glob("*.yaml"))
        self.assertGreater(len(paths), 30)
        for path in paths:
            kind = path.name.split("_")[0]
            with self.subTest(path.name):
                self.assertNotEqual(errors(kind, path.read_text("utf-8")), [])
                self.assertTrue(run_reader(kind, path).startswith(f"{path}:"), "taken")


# A map of a file: where the schema has it, and a file with an unknown key in it.
CATALOGUE = "catalogue: {name: a, version: b}\nattributes: [{id: 5, name: V}]\ncodes: []\n"
MAPS = [
    ("catalogue", "", CATALOGUE + "@: 1\n"),
    ("catalogue", "properties/catalogue", CATALOGUE.replace("{name: a", "{@: 1")),
    ("catalogue", "properties/common_types", CATALOGUE + "common_types: {@: 1}\n"),
    ("catalogue", "definitions/attribute", CATALOGUE.replace("{id: 5", "{@: 1")),
    ("catalogue", "definitions/code", CATALOGUE.replace("codes: []", "codes: [{@: 1}]")),
    ("catalogue", "definitions/real_profile", "real_profiles"),
    ("catalogue", "definitions/match_profile", "match_profiles"),
    ("reports", "", "@: 1\n"),
    ("reports", "properties/reports", "reports: {@: 1}\nonus: []\n"),
    ("reports", "properties/identify", "identify: {@: 1}\nonus: []\n"),
    ("reports", "properties/identify/properties/default", "identify: {default: {@: 1}}\nonus: []\n"),
    ("reports", "properties/identify/properties/places/items",
     "identify: {places: [{@: 1}]}\nonus: []\n"),
    ("reports", "definitions/onu", "onus: [{@: 1}]\n"),
    ("reports", "definitions/expectation",
     "onus: [{place: 1, onu: 1, reported_type: 1, expect: {@: 1}}]\n"),
    ("reports", "definitions/truth",
     "onus: [{place: 1, onu: 1, reported_type: 1, truth: {@: 1}}]\n"),
]


class Keys(unittest.TestCase):
    def test_schema_and_reader_know_the_same(self):
        for kind, place, text in MAPS:
            with self.subTest(f"{kind}:{place}"):
                self.assertEqual(self.known_to_schema(kind, place), self.known_to_reader(kind, text))

    def test_every_map_with_fixed_keys_is_compared(self):
        def maps(node):
            if isinstance(node, dict):
                return (node.get("additionalProperties") is False) + sum(map(maps, node.values()))
            return sum(map(maps, node)) if isinstance(node, list) else 0

        self.assertEqual(sum(maps(schema(kind)) for kind in ("catalogue", "reports")), len(MAPS))

    @staticmethod
    def known_to_schema(kind, place):
        node = schema(kind)
        for step in filter(None, place.split("/")):
            node = node[step]
        return set(node["properties"])

    def known_to_reader(self, kind, text):
        """An unknown key that resembles none is answered with all that are known."""
        if text.endswith("profiles"):
            text = CATALOGUE.replace("[]", "[{code: 1085, name: K}]") + text + ": [{@: 1}]\n"
        with tempfile.TemporaryDirectory() as directory:
            path = pathlib.Path(directory) / "file.yaml"
            path.write_text(text.replace("@", FAR_FROM_EVERY_KEY), encoding="utf-8")
            message = run_reader(kind, path)
        self.assertIn(f'"{FAR_FROM_EVERY_KEY}" is not a key', message)
        self.assertIn("; expected ", message)
        known = message.split("; expected ", 1)[1].strip()
        return set(known.removeprefix("one of ").split(", "))


if __name__ == "__main__":
    PROGRAM = sys.argv.pop(1)
    unittest.main()
