#!/usr/bin/python3
"""Prints the table of a run of onu_ability_bench, and draws its plot.

    report.py RESULTS.json [--plot FILE.svg] [--before RESULTS.json]

Figures are ratios of medians, measured in one run against references named in the
table. A row without a bar is reported. --before takes the results of an older
library, for the rows with every level on.
"""

import argparse
import json
import statistics
import sys

SIZES = [10, 200, 2000, 10000]
PATTERNS = [200, 2000, 10000]
USUAL = 2000
UNITS = {"ns": 1.0, "us": 1e3, "ms": 1e6, "s": 1e9}
# Rows that a wall clock measures: the rest counts processor time.
WALL_CLOCK = ("storm",)

LOOKUPS = [
    # Row of the library, what it is called, the floor's row, times the floor.
    ("number_by_key", "number by key, C", "number", 2.0),
    ("number_by_key_manager", "number by key, manager", "number", 2.0),
    ("any_number_by_key", "any number by key, C", "any_number", 2.0),
    ("number_by_real_type", "number by real type", "number", 2.0),
    ("search_by_real_type", "search by real type", "number", 2.0),
    ("key_exists", "key exists", "number", 2.0),
    ("name_by_key", "type name by key", "name", 2.5),
    ("name_by_real_type", "type name by real type", "name", 2.5),
    ("lamps_by_key", "lamp total by key", "lamps", 1.0),
    ("lamps_by_real_type", "lamp total by real type", "lamps", None),
]
RECOGNITION = [("recognise_middle", "recognition, hit in middle"),
               ("recognise_none", "recognition, no hit")]
PERFORM = [("perform_by_abilities", "Perform, by abilities"),
           ("perform_by_type", "Perform, by reported type")]
LOADING = [("load_default", "loading, default source"),
           ("load_external", "loading, external source")]


class Results:
    """Nanoseconds of each repetition of each row, by (work, contender, size)."""

    def __init__(self, path):
        self.times = {}
        self.counters = {}
        with open(path, encoding="utf-8") as file:
            document = json.load(file)
        for run in document["benchmarks"]:
            if run["run_type"] != "iteration":
                continue
            work, contender, size = run["run_name"].split("/")[:3]
            is_manual = run["run_name"].endswith("/manual_time")
            time = run["real_time" if is_manual else "cpu_time"] * UNITS[run["time_unit"]]
            row = (work, contender, int(size))
            self.times.setdefault(row, []).append(time)
            for counter in ("waited_share", "table_bytes", "bare_bytes"):
                if counter in run:
                    self.counters.setdefault(row + (counter,), []).append(run[counter])

    def time(self, work, contender, size):
        """The median, or None when the row was not measured."""
        times = self.times.get((work, contender, size))
        return statistics.median(times) if times else None

    def counter(self, work, contender, size, name):
        values = self.counters.get((work, contender, size, name))
        return statistics.median(values) if values else None

    def ratio(self, row, reference):
        """How many times as long `row` takes as `reference`."""
        time, other = self.time(*row), self.time(*reference)
        return time / other if time and other else None

    def spread(self):
        """Half of the middle half of the repetitions, over the median, by row."""
        spreads = []
        for row, times in self.times.items():
            if len(times) >= 4:
                low, _, high = statistics.quantiles(times, n=4)
                spreads.append(((high - low) / 2 / statistics.median(times), "/".join(map(str, row))))
        return sorted(spreads, reverse=True)


def three_digits(value):
    if value is None:
        return ""
    if value >= 99.5:
        return f"{value:,.0f}"
    return f"{value:.1f}" if value >= 9.95 else f"{value:.2f}"


def duration(nanoseconds):
    if nanoseconds is None:
        return ""
    for limit, unit in ((1e3, "ns"), (1e6, "us"), (1e9, "ms"), (float("inf"), "s")):
        if nanoseconds < limit * 0.9995:
            return f"{nanoseconds / limit * 1e3 if unit != 's' else nanoseconds / 1e9:.3g} {unit}"
    return ""


class Table:
    """Lines of 80 columns: work, against what, a column a size, bar, met."""

    def __init__(self):
        self.missed = 0
        self.work = None

    def head(self, title, columns):
        cells = "".join(f"{column:>8}" for column in columns)
        print(f"\n{title:<26} {'':<8}{cells:<32} {'bar':<7}met")
        print("-" * 80)
        self.work = None

    def line(self, work, against, cells, bar=None, met=None):
        shown = "" if work == self.work else work
        self.work = work
        text = "".join(f"{cell:>8}" for cell in cells)
        verdict = "" if met is None else ("yes" if met else "NO")
        self.missed += met is False
        print(f"{shown:<26} {against:<8}{text:<32} {bar or '':<7}{verdict}".rstrip())

    def ratios(self, work, against, values, at_most=None, at_least=None):
        """A line of ratios; all of them have to keep the bar."""
        if all(value is None for value in values):
            return
        known = [value for value in values if value is not None]
        bar = met = None
        if at_most is not None:
            bar, met = f"<={at_most:g}", max(known) <= at_most
        if at_least is not None:
            bar, met = f">={at_least:g}", min(known) >= at_least
        self.line(work, against, [three_digits(value) for value in values], bar, met)


def lookups(table, results):
    table.head("LOOKUPS", [f"{size:,}" for size in SIZES])
    for reference, name in (("number", "floor, number"), ("any_number", "floor, any number"),
                            ("name", "floor, name"), ("lamps", "floor, lamps")):
        times = [results.time(reference, "floor", size) for size in SIZES]
        table.line(name, "time", [duration(time) for time in times])
    for work, name, floor, at_most in LOOKUPS:
        table.line(name, "time", [duration(results.time(work, "library", s)) for s in SIZES])
        table.ratios(name, "floor", [results.ratio((work, "library", s), (floor, "floor", s))
                                     for s in SIZES], at_most=at_most)
        growth = [results.ratio((work, "library", 10000), (work, "library", 10)),
                  results.ratio((floor, "floor", 10000), (floor, "floor", 10))]
        if all(growth):
            table.ratios(name, "growth", [None, None, None, growth[0] / growth[1]],
                         at_most=1.5 if at_most else None)
        usual = (work, "library", USUAL)
        if floor != "lamps":
            # Only the lookups of numbers have bars here.
            bars = (None, None) if floor == "name" else (10, 3)
            for contender, bar in zip(("sqlite", "lmdb"), bars):
                faster = results.ratio((floor, contender, USUAL), usual)
                table.ratios(name, {"sqlite": "SQLite", "lmdb": "LMDB"}[contender],
                             [None, None, faster], at_least=bar)
        table.ratios(name, "walk", [results.ratio((work, "walk", s), (work, "library", s))
                                    for s in SIZES])


def recognition(table, results):
    table.head("RECOGNITION", [""] + [f"{size:,}" for size in PATTERNS])
    for work, name in RECOGNITION:
        times = [results.time(work, "library", size) for size in PATTERNS]
        table.line(name, "time", [""] + [duration(time) for time in times])
        for contender, shown in (("sqlite", "SQLite"), ("walk", "walk")):
            faster = [results.ratio((work, contender, s), (work, "library", s)) for s in PATTERNS]
            if faster[1] is not None:
                table.line(name, shown, [""] + [three_digits(value) for value in faster], ">=20",
                           faster[1] >= 20)
        table.ratios(name, "growth", [None, None, None, results.ratio(
            (work, "library", 10000), (work, "library", 200))], at_most=3)


def confirmation(table, results):
    table.head("CONFIRMATION", ["", "", f"{USUAL:,}"])
    for work, name in PERFORM:
        time = results.time(work, "library", USUAL)
        table.line(name, "time", ["", "", duration(time)], "20 us")
        table.ratios(name, "walk", [None, None, results.ratio(
            (work, "walk", USUAL), (work, "library", USUAL))], at_least=50)
    table.head("RESTART STORM, 8,192 ONUS", ["", "1", "2", "4"])
    threads = [1, 2, 4]
    times = [results.time("storm", "library", count) for count in threads]
    table.line("threads", "time", [""] + [duration(time) for time in times])
    shares = [results.counter("storm", "library", count, "waited_share") for count in threads]
    table.line("threads", "waiting", [""] + [f"{share:.1%}" if share is not None else ""
                                             for share in shares])


def loading(table, results):
    table.head("LOADING AND MEMORY", ["", "", f"{USUAL:,}"])
    table.line("bare insertion", "time", ["", "", duration(results.time("load", "bare", USUAL))])
    for work, name in LOADING:
        table.line(name, "time", ["", "", duration(results.time(work, "library", USUAL))])
        table.ratios(name, "bare", [None, None, results.ratio(
            (work, "library", USUAL), ("load", "bare", USUAL))], at_most=4)
        table.ratios(name, "walk", [None, None, results.ratio(
            (work, "walk", USUAL), (work, "library", USUAL))])
    for work, name in (("memory_real", "bytes a real profile"),
                       ("memory_match", "bytes a match profile")):
        held = results.counter(work, "library", USUAL, "table_bytes")
        bare = results.counter(work, "library", USUAL, "bare_bytes")
        if held and bare:
            table.line(name, "heap", ["", f"{bare:,.0f}", f"{held:,.0f}"])
            table.ratios(name, "bare", [None, None, held / bare], at_most=1.15)


def log_levels(table, results, before):
    nothing, line = (results.time("log_line", who, 1) for who in ("floor", "library"))
    columns = ["off", "prod.", "on", "before"]
    table.head("LOG LEVELS", columns)
    if nothing is not None and line is not None:
        table.line("a line that is off, ns", "nothing", [f"{line - nothing:.2f}"], "<=1",
                   line - nothing <= 1)
    if before and None in (both.time("number", "floor", 10) for both in (before, results)):
        sys.exit("--before needs the row number/floor/10 of both runs: BENCH_FILTER with |floor")
    works = LOOKUPS + RECOGNITION + PERFORM + LOADING[:1]
    for work, name in (row[:2] for row in works):
        times = [results.time(work, who, USUAL) for who in ("all_off", "library", "all_on")]
        old = before.time(work, "all_on", USUAL) if before else None
        if times[2] is not None:
            # Machines differ from run to run: the smallest floor, which is in the caches,
            # says by how much.
            met = None
            if old is not None:
                faster = before.time("number", "floor", 10) / results.time("number", "floor", 10)
                old /= faster
                met = times[2] <= old * 1.05
            table.line(name, f"{USUAL:,}", [duration(time) for time in times + [old]],
                       "before" if old else None, met)


def handed_out(table, results):
    table.head("RECORDS HANDED OUT", ["trusted", "handed", "ratio"])
    for work, name in (row[:2] for row in LOOKUPS + RECOGNITION + PERFORM + LOADING):
        row, usual = (work, "handed_out", USUAL), (work, "library", USUAL)
        if results.time(*row) is not None:
            table.line(name, f"{USUAL:,}", [duration(results.time(*usual)),
                                            duration(results.time(*row)),
                                            three_digits(results.ratio(row, usual))])


def curve(axes, results, rows, sizes):
    styles = {"floor": ("floor", "0.45", "--"), "library": ("library", "C0", "-"),
              "walk": ("walk", "C3", "-"), "sqlite": ("SQLite", "C1", "-"),
              "lmdb": ("LMDB", "C2", "-")}
    for work, contender in rows:
        label, colour, line = styles[contender]
        points = [(size, results.time(work, contender, size)) for size in sizes]
        points = [(size, time / 1e3) for size, time in points if time]
        if points:
            axes.plot(*zip(*points), line, color=colour, marker="o", markersize=3, label=label)
    axes.set_xscale("log")
    axes.set_yscale("log")
    axes.grid(True, which="major", linewidth=0.3)
    axes.legend(fontsize=8, frameon=False)


def plot(results, path):
    import matplotlib
    matplotlib.use("Agg")
    matplotlib.rcParams["svg.hashsalt"] = "onu_ability_bench"
    matplotlib.rcParams["svg.fonttype"] = "none"
    matplotlib.rcParams["font.size"] = 9
    from matplotlib import pyplot
    figure, (left, right) = pyplot.subplots(1, 2, figsize=(9, 3.6))
    curve(left, results, [("number_by_key", "walk"), ("number", "sqlite"), ("number", "lmdb"),
                          ("number_by_key", "library"), ("number", "floor")], SIZES)
    left.set_title("A number by key value")
    left.set_xlabel("profiles")
    left.set_ylabel("microseconds")
    curve(right, results, [("recognise_none", "walk"), ("recognise_none", "sqlite"),
                           ("recognise_none", "library")], PATTERNS)
    right.set_title("An ONU that no pattern fits")
    right.set_xlabel("patterns")
    figure.tight_layout()
    metadata = {"Date": None} if path.endswith(".svg") else None
    figure.savefig(path, metadata=metadata)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("results")
    parser.add_argument("--plot")
    parser.add_argument("--before")
    arguments = parser.parse_args()
    try:
        results = Results(arguments.results)
    except json.JSONDecodeError:  # what the program leaves when its filter matches nothing
        sys.exit(f"{arguments.results}: no row was measured; onu_ability_bench "
                 "--benchmark_list_tests names them all")
    table = Table()
    print("Medians of one run. floor, bare: times as long as the reference; SQLite, LMDB, walk:")
    print("times as fast as it. growth: from the smallest size to the largest.")
    lookups(table, results)
    recognition(table, results)
    confirmation(table, results)
    loading(table, results)
    log_levels(table, results, Results(arguments.before) if arguments.before else None)
    handed_out(table, results)
    spreads = results.spread()
    if spreads:
        median = statistics.median(spread for spread, _ in spreads)
        print(f"\nQuartiles are {median:.1%} from the median of their row in the middle, "
              f"{spreads[0][0]:.0%} at worst\n({spreads[0][1]}).")
    print(f"Bars missed: {table.missed}." if table.missed else "Every bar is met.")
    if arguments.plot:
        plot(results, arguments.plot)
        print(f"Plot: {arguments.plot}")
    return 0


if __name__ == "__main__":
    sys.exit(main())
