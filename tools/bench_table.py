#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Prints the figures of a benchmark run beside their yardsticks, as a table in Markdown.

Usage: bench_table.py BENCH_JSON [WINDOWS_MODULE DICTIONARY_TEXT]. Rows whose benchmarks did not run
are left out. Times are CPU times, the median where a benchmark was repeated: the machine may be busy
with other work. The module is to be stripped.
"""

import json
import sys
from collections.abc import Callable
from pathlib import Path
from statistics import median

Runs = dict[str, list[dict]]
Figure = Callable[[Runs], float]

NANOSECONDS = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}


def time_of(name: str, divided_by: int = 1) -> Figure:
    """The CPU time of one iteration in ns, or of a part of it."""
    return lambda runs: median(
        run["cpu_time"] * NANOSECONDS[run["time_unit"]] for run in runs[name]) / divided_by


def counter(name: str, key: str) -> Figure:
    """A counter that a benchmark reported."""
    return lambda runs: median(run[key] for run in runs[name])


# What is measured, its figure, the yardstick's, and the most that the ratio may be.
ROWS: list[tuple[str, Figure, Figure, float]] = [
    ("extension constructed, ns (plain map loaded)",
     time_of("constructExtension"), time_of("loadPlainly"), 0.20),
    ("extension constructed, bytes of heap kept",
     counter("constructExtension", "heapKept"), counter("loadPlainly", "heapKept"), 0.60),
    ("extension constructed, bytes of heap at the most",
     counter("constructExtension", "heapPeak"), counter("loadPlainly", "heapPeak"), 0.60),
] + [
    (f"walk, {notes:,} notes, nothing changed, ns (host calls alone)",
     time_of(f"walkNothingChanged/{notes}"), time_of(f"hostCallsAlone/{notes}"), 2.5)
    for notes in (1_000, 10_000, 100_000, 1_000_000)
] + [
    (f"walk, {what}, ns per note of 1,000,000 (of 1,000)",
     time_of(f"{name}/1000000", 1_000_000), time_of(f"{name}/1000", 1_000), 1.5)
    for what, name in (("every note flagged", "walkAllFlagged"),
                       ("every note changed", "walkAllChanged"))
] + [
    (f"1,000,000 characters of {what}, ns (decoding alone)",
     time_of(f"longLyric/{name}"), time_of(f"decodeAlone/{name}"), 20)
    for what, name in (("kana", "kana"), ("English words", "words"), ("one word", "oneWord"),
                       ("other script", "other"))
] + [
    ("undo and redo of 100,000 notes, ns (attribute writes)",
     time_of("undoAndRedo"), time_of("writeAttributesAlone"), 1.5),
]

# Typed lyrics, which have no yardstick.
LYRICS = [("5 kana", "fiveKana"), ("3 English words", "threeWords"),
          ("a bracket with 5 syllables", "bracket")]


def read_runs(path: Path) -> Runs:
    """The runs of each benchmark; sums over repetitions are left out."""
    runs: Runs = {}
    for run in json.loads(path.read_text(encoding="utf-8"))["benchmarks"]:
        if run["run_type"] == "iteration":
            runs.setdefault(run["run_name"], []).append(run)
    return runs


def print_ratio(what: str, value: float, base: float, most: float) -> None:
    """Prints one row of the table of ratios."""
    print(f"| {what} | {value:,.0f} | {base:,.0f} | {value / base:.2f} | {most:.2f} |")


def main(path: Path, sizes: list[Path]) -> None:
    runs = read_runs(path)
    print("\n| what (yardstick) | figure | yardstick | ratio | at most |\n|---|--:|--:|--:|--:|")
    for what, figure, yardstick, most in ROWS:
        try:
            print_ratio(what, figure(runs), yardstick(runs), most)
        except KeyError:
            continue  # one of the two did not run
    if sizes:
        module, text = (file.stat().st_size for file in sizes)
        print_ratio("Windows module, bytes (dictionary text)", module, text, 1.25)

    print("\n| one typed lyric | ns | allocations that the result does not need |\n|---|--:|--:|")
    for what, name in LYRICS:
        key = f"typedLyric/{name}"
        if key in runs:
            needless = counter(key, "needlessAllocations")(runs)
            print(f"| {what} | {time_of(key)(runs):,.0f} | {needless:.0f} |")


if __name__ == "__main__":
    main(Path(sys.argv[1]), [Path(argument) for argument in sys.argv[2:]])
