#!/usr/bin/env python3
"""Derives data/catalogue.yaml, data/reports.yaml and data/onu_types.txt from data/facts/.

  derive_data.py           writes the three files
  derive_data.py --check   compares them with what is there; 1 and the first difference if stale
"""

import collections
import pathlib
import sys

from onu_data import catalogue, facts, matching, rendering, reports

DATA = pathlib.Path(__file__).resolve().parent.parent / "data"


def prove(data, population):
    """Every expectation must be what the rules of recognition give; returns the figures."""
    patterns = [(profile.key, profile.compared()) for profile in data.match]
    figures = collections.Counter()
    for onu in population.onus:
        code, how = matching.recognise(patterns, onu)
        expect = onu.get("expect")
        if expect is None:
            figures["no expectation"] += 1
        elif (expect["real_type"], expect["how"]) != (code or "none", how):
            raise SystemExit(f"place {onu['place']} onu {onu['onu']} ({onu['about']}): expected "
                             f"{expect}, the rules give {code} by {how}")
        else:
            figures[f"by {how}" if code else "unmatched"] += 1
            if code and expect["report_type"] != code:
                figures["translated"] += 1
    return figures


def derive():
    models = facts.read_models(DATA / "facts" / "onu_models.csv")
    unit_types = facts.read_unit_types(DATA / "facts" / "unit_types.csv")
    data = catalogue.build(models)
    population = reports.Population(models, data)
    figures = prove(data, population)
    texts = {
        "catalogue.yaml": rendering.catalogue(data, unit_types),
        "reports.yaml": rendering.reports(population),
        "onu_types.txt": rendering.onu_types(data),
    }
    summary = (f"{len(data.real)} real and {len(data.match)} match profiles, "
               f"{len(population.onus)} ONUs: "
               + ", ".join(f"{count} {what}" for what, count in sorted(figures.items())))
    return texts, summary


def first_difference(name, wanted):
    path = DATA / name
    have = path.read_text(encoding="utf-8").split("\n") if path.exists() else []
    want = wanted.split("\n")
    for n in range(max(len(have), len(want))):
        old, new = (lines[n] if n < len(lines) else "(end of file)" for lines in (have, want))
        if old != new:
            return f"data/{name}:{n + 1}: is stale\n  have: {old}\n  want: {new}"
    return None


def main(arguments):
    if arguments not in ([], ["--check"]):
        print(__doc__, file=sys.stderr)
        return 2
    texts, summary = derive()
    if not arguments:
        for name, text in texts.items():
            (DATA / name).write_text(text, encoding="utf-8")
        print("derived: " + summary)
        return 0
    for name, text in texts.items():
        difference = first_difference(name, text)
        if difference:
            print(difference, file=sys.stderr)
            return 1
    print("data is up to date: " + summary)
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
