#!/usr/bin/python3
"""Measures olt_host on a whole network: a million generated ONUs of a thousand
OLTs against 2,000 match profiles.

  scripts/measure_network.py [HOST] [--onus N] [--keep FOLDER]

HOST is build/src/olt_host/olt_host by default. Prints how long each job takes
beside the time that reading the file alone takes, in the same run, and the peak of
memory beside that for a hundredth of the ONUs: of the largest process, and of all
together with shared pages counted once (sampled). Also holds ten merged shards
against one run. Takes some minutes and a gigabyte of disk.
"""

import argparse
import os
import pathlib
import random
import subprocess
import sys
import tempfile
import time

import yaml

TYPES = 2000
COUNTS = ["FE_PORTS", "POTS_PORTS", "RF_PORTS", "GE_PORTS", "VEIP", "GE10_PORTS", "GE2_5_PORTS",
          "PON_KIND", "SFP_FORM", "WIFI_2G4_SSIDS", "WIFI_5G_SSIDS", "ONU_CAPA"]
SHIPPED = pathlib.Path(__file__).resolve().parent.parent / "data" / "catalogue.yaml"


def write_catalogue(path, seed):
    """The shipped codes with TYPES types, whose patterns name some abilities each."""
    dice = random.Random(seed)
    with open(SHIPPED, encoding="utf-8") as file:
        catalogue = yaml.safe_load(file)
    real, match = [], []
    for key in range(2000, 2000 + TYPES):
        name = f"M-{key}"
        abilities = {code: dice.randrange(4) for code in COUNTS if dice.randrange(4)}
        pattern = {"REAL_TYPE": key, "REPORT_TYPE": key, **abilities}
        pattern["VENDOR_ID"] = f"V{dice.randrange(60):03}"
        if dice.randrange(2):
            pattern["TYPE_NAME"] = name
        real.append({"key": key, "abilities": {"REAL_TYPE": key, "TYPE_NAME": name}})
        match.append({"key": key, "abilities": pattern})
    catalogue["real_profiles"], catalogue["match_profiles"] = real, match
    with open(path, "w", encoding="utf-8") as file:
        yaml.safe_dump(catalogue, file, sort_keys=False, default_flow_style=None, width=1000)


def pss_of_group(leader):
    """Kilobytes of all processes of the group, shared pages counted once."""
    total = 0
    for entry in os.listdir("/proc"):
        if not entry.isdigit():
            continue
        try:
            if os.getpgid(int(entry)) != leader:
                continue
            with open(f"/proc/{entry}/smaps_rollup", encoding="ascii") as file:
                total += sum(int(line.split()[1]) for line in file if line.startswith("Pss:"))
        except OSError:
            pass  # gone meanwhile
    return total


class Run:
    """One run of a command: seconds, processor seconds, peaks in megabytes."""

    def __init__(self, command, output=subprocess.DEVNULL):
        started = time.monotonic()
        process = subprocess.Popen(command, stdout=output, stderr=subprocess.DEVNULL,
                                   start_new_session=True)
        together = 0
        while True:
            pid, status, usage = os.wait4(process.pid, os.WNOHANG)
            if pid:
                break
            together = max(together, pss_of_group(process.pid))
            time.sleep(0.02)
        self.seconds = time.monotonic() - started
        self.processor = usage.ru_utime + usage.ru_stime
        self.largest = usage.ru_maxrss / 1000
        self.together = together / 1000
        process.returncode = os.waitstatus_to_exitcode(status)
        if process.returncode not in (0, 1):
            sys.exit(f"{' '.join(map(str, command))}: status {process.returncode}")


def row(name, run, onus, reading, small=None):
    text = (f"{name:24}{run.seconds:7.1f} s {run.processor:7.1f} s{onus / run.seconds:11,.0f}"
            f"{run.seconds / reading:8.0f} x{run.largest:8.1f}{run.together:8.1f}")
    if small:
        text += f"{run.largest / small.largest:7.2f}{run.together / small.together:6.2f}"
    print(text, flush=True)


def shards_agree(host, catalogue, reports, folder):
    parts = []
    for number in range(1, 11):
        parts.append(folder / f"shard{number}.json")
        with open(parts[-1], "wb") as file:
            Run([host, "confirm", catalogue, reports, "--json", "--shard", f"{number}/10"], file)
    merged = subprocess.run([host, "merge", "--json", *parts], capture_output=True, check=False)
    whole = subprocess.run([host, "confirm", catalogue, reports, "--json"], capture_output=True,
                           check=False)
    return merged.stdout == whole.stdout and len(whole.stdout) > 0


def measure(host, onus, folder):
    old, new = folder / "old.yaml", folder / "new.yaml"
    write_catalogue(old, 1)
    write_catalogue(new, 2)
    large, small = folder / "large.jsonl", folder / "small.jsonl"
    made = {}
    for path, number in ((small, onus // 100), (large, onus)):
        made[path] = Run([host, "generate", old, "--onus", str(number), "--olts", "1000",
                          "--faults", "all=5", "--seed", "1", "--output", path])
    Run(["cat", large])  # into the page cache
    reading = min(Run(["wc", "-l", large]).seconds for _ in range(3))
    print(f"{onus:,} ONUs of 1,000 OLTs, {large.stat().st_size / 1e6:,.0f} MB, {TYPES:,} match "
          f"profiles, {len(os.sched_getaffinity(0))} cores;\nreading the file and counting its "
          f"lines alone (wc -l): {reading:.2f} s\n")
    print(f"{'':24}{'wall':>9}{'processor':>10}{'ONUs a s':>10}{'reading':>10}"
          f"{'largest':>8}{'all':>8}{'  beside 1 %':>13}\n"
          f"{'':24}{'':39}{'MB':>8}{'MB':>8}{'lrgst':>7}{'all':>6}")
    row("generate", made[large], onus, reading, made[small])
    for name, job in (("confirm", ["confirm", old]), ("confirm --json", ["confirm", old, "--json"]),
                      ("diff", ["diff", old, new])):
        few, many = (Run([host, job[0], *job[1:], path]) for path in (small, large))
        row(name, many, onus, reading, few)
    agrees = shards_agree(host, old, large, folder)
    print(f"\nTen shards merged and one run: {'the same bytes' if agrees else 'THEY DIFFER'}")
    return 0 if agrees else 1


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("host", nargs="?", default="build/src/olt_host/olt_host")
    parser.add_argument("--onus", type=int, default=1000000)
    parser.add_argument("--keep", help="work in this folder and leave the files there")
    options = parser.parse_args()
    if options.keep:
        folder = pathlib.Path(options.keep)
        folder.mkdir(parents=True, exist_ok=True)
        return measure(options.host, options.onus, folder)
    with tempfile.TemporaryDirectory() as folder:
        return measure(options.host, options.onus, pathlib.Path(folder))


if __name__ == "__main__":
    sys.exit(main())
