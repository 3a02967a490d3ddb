#!/usr/bin/python3
"""Writes docs/ability-codes.md: the codes and attributes with a fixed meaning.

    ability_codes.py           writes the page
    ability_codes.py --check   fails when the page is not what it would write

Names and numbers come from the header, meanings from docs/ability_codes.yaml, names of the
shipped catalogue from data/catalogue.yaml, and who names a code from the sources. A code
without a meaning fails, and so does a meaning without a code.
"""

import re
import sys

import yaml

import reference_check

HEADER = "src/onu_ability_common/onu_ability_common_global/ability_values.h"
CODE = re.compile(r"\b(ONU_ABILITY_CODE_\w+)\s*=\s*(\d+);")
ATTRIBUTE = re.compile(r"\b(ONU_ABILITY_ATTR_\w+)\s*=\s*(\d+),")

HEAD = """\
# Ability codes and attributes with a fixed meaning

Which abilities there are is the host's to say: it registers codes, names and attributes.
Some numbers mean something to the library itself. They are constants of
`onu_ability_common_global.h`; the page is written by `scripts/ability_codes.py` from that
header, from `docs/ability_codes.yaml` and from the sources.

An ability value is a number of 32 bits or a string, and says which by a tag: 2 a number, 3 a
string, 0 nothing stored yet. The number 0xFFFFFFFF and the empty string are wildcards in
patterns. A profile takes values of registered codes alone, these codes' like any other's; only
the derived ones and the key are written whether or not they are registered.

## Codes

| Code | Constant | Shipped as | Value | It means | Read by | Written by |
|---|---|---|---|---|---|---|
"""

MIDDLE = """
A host that defines one of them otherwise, a string as a number or the reverse, gets
"not found" where the library reads it; the reference host refuses
[such a catalogue](catalogue-format.md#the-catalogue).

## Attributes

Each ability code has a value of 16 bits for every attribute that was registered when it was
defined, or read since; 65535 stands for none. Ids 1, 3, 4 and 5 have a meaning, all others
are the host's.

| Id | Constant | Shipped as | It means | Values | Read by |
|---|---|---|---|---|---|
"""

END = """
## Where the sources name them

| Constant | Sources of `src/onu_ability_common` |
|---|---|
"""


def named_in(root, constants):
    """The library's sources that name each constant."""
    places = {name: [] for name in constants}
    for path in sorted((root / "src/onu_ability_common").rglob("*.cpp")):
        words = set(re.findall(r"\w+", path.read_text()))
        for name in constants:
            if name in words:
                places[name].append(path.name)
    return places


def row(*cells):
    return "| " + " | ".join(str(cell) for cell in cells) + " |\n"


def join(numbers, meanings, fields, complaints):
    """The constants by number; every one must have a meaning, and no meaning may be left."""
    for name in numbers:
        for field in fields:
            if not meanings.get(name, {}).get(field):
                complaints.append(f"{name} has no \"{field}\" in docs/ability_codes.yaml")
    for name in meanings:
        if name not in numbers:
            complaints.append(f"docs/ability_codes.yaml knows {name}, {HEADER} does not")
    return [(number, name, {field: meanings.get(name, {}).get(field, "") for field in fields})
            for name, number in sorted(numbers.items(), key=lambda entry: entry[1])]


def page(root, complaints):
    header = (root / HEADER).read_text()
    codes = {name: int(number) for name, number in CODE.findall(header)}
    attributes = {name: int(number) for name, number in ATTRIBUTE.findall(header)}
    if not codes or not attributes:
        complaints.append(f"{HEADER} has no codes or no attributes")
    meanings = yaml.safe_load((root / "docs/ability_codes.yaml").read_text())
    shipped = yaml.safe_load((root / "data/catalogue.yaml").read_text())
    shipped_codes = {entry["code"]: entry for entry in shipped["codes"]}
    shipped_attributes = {entry["id"]: entry["name"] for entry in shipped["attributes"]}

    text = HEAD
    for number, name, known in join(codes, meanings["codes"], ("kind", "means", "read", "written"),
                                    complaints):
        entry = shipped_codes.get(number, {})
        kind = entry.get("attributes", {}).get("VALUE_TYPE", "number")
        if entry and kind != known["kind"]:
            complaints.append(f"{name} is a {known['kind']} here, a {kind} in data/catalogue.yaml")
        text += row(number, f"`{name}`", f"`{entry['name']}`" if entry else "-", known["kind"],
                    known["means"], known["read"], known["written"])
    text += MIDDLE
    for number, name, known in join(attributes, meanings["attributes"], ("means", "values", "read"),
                                    complaints):
        shipped_name = shipped_attributes.get(number)
        text += row(number, f"`{name}`", f"`{shipped_name}`" if shipped_name else "-",
                    known["means"], known["values"], known["read"])
    text += END
    for name, places in named_in(root, [*codes, *attributes]).items():
        text += row(f"`{name}`", ", ".join(f"`{place}`" for place in places) or "none")
    return text, len(codes), len(attributes)


def main():
    options = reference_check.arguments(__doc__.split("\n\n")[0]).parse_args()
    complaints = []
    text, codes, attributes = page(options.root, complaints)
    reference_check.write_or_compare(options, "docs/ability-codes.md", text, "ability_codes.py",
                                     complaints)
    return reference_check.conclude("ability codes", complaints,
                                    f"{codes} ability codes, {attributes} attributes")


if __name__ == "__main__":
    sys.exit(main())
