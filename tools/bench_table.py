#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Prints the figures of a benchmark run beside their yardsticks, as a table in Markdown.

Usage: bench_table.py [--filtered] BENCH_JSON [WINDOWS_MODULE DICTIONARY_TEXT]. Times are CPU times, the
median where a benchmark was repeated: the machine may be busy with other work. The module is to be
stripped. Exit status 1 when a ratio is above its bar by more than the noise that the table allows for, and
when a row's benchmarks did not run, or do not report its counter; --filtered leaves such rows out instead.
"""

import argparse
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


# What is measured, its figure, the yardstick's, the bar: the most that the ratio should be, and the
# share by which it may exceed that from run to run.
ROWS: list[tuple[str, Figure, Figure, float, float]] = [
    ("extension constructed, ns (plain map loaded)",
     time_of("constructExtension"), time_of("loadPlainly"), 0.07, 0.25),
    ("extension constructed, bytes of heap kept",
     counter("constructExtension", "heapKept"), counter("loadPlainly", "heapKept"), 0.035, 0),
    ("extension constructed, bytes of heap at the most",
     counter("constructExtension", "heapPeak"), counter("loadPlainly", "heapPeak"), 0.035, 0),
] + [
    (f"walk, {notes:,} notes, nothing changed, ns (host calls alone)",
     time_of(f"walkNothingChanged/{notes}"), time_of(f"hostCallsAlone/{notes}"), 2.5, 0.25)
    for notes in (1_000, 10_000, 100_000, 1_000_000)
] + [
    (f"walk, {what}, ns per note of 1,000,000 (of 1,000)",
     time_of(f"{name}/1000000", 1_000_000), time_of(f"{name}/1000", 1_000), bar, 0.25)
    for what, name, bar in (("every note flagged", "walkAllFlagged", 1.5),
                            ("every note changed", "walkAllChanged", 4))
] + [
    (f"{what}, bytes of heap at the most, per note (plain list)",
     counter(f"{name}/iterations:1", "bytesPerNote"),
     counter("listPlainly/iterations:1", "bytesPerNote"), bar, 0)
    for what, name, bar in (("first walk over a track", "firstWalk", 2.1),
                            ("second walk", "secondWalk", 1.4),
                            ("each walk after that", "thirdWalk", 0.01),
                            ("edit of every note, and its step", "editOfEveryNote", 1.3))
] + [
    (f"1,000,000 characters of {what}, ns (decoding alone)",
     time_of(f"longLyric/{name}"), time_of(f"decodeAlone/{name}"), bar, 0.25)
    for what, name, bar in (("kana", "kana", 20), ("English words", "words", 25),
                            ("one word", "oneWord", 20), ("other script", "other", 20))
] + [
    ("undo and redo of 100,000 notes, ns (attribute writes)",
     time_of("undoAndRedo"), time_of("writeAttributesAlone"), 2.5, 0.25),
]

# Typed lyrics, which have no yardstick.
LYRICS = [("5 kana", "fiveKana"), ("3 English words", "threeWords"),
          ("a bracket with 5 syllables", "bracket")]


def read_runs(path: Path) -> Runs:
    """The runs of each benchmark; sums over repetitions are left out."""
    runs: Runs = {}
    text = path.read_text(encoding="utf-8")
    if not text:
        sys.exit(f"bench: expected the runs of benchmarks in {path}, found none: does the filter fit any?")
    for run in json.loads(text)["benchmarks"]:
        if run["run_type"] == "iteration":
            runs.setdefault(run["run_name"], []).append(run)
    return runs


def print_ratio(what: str, value: float, base: float, bar: float, noise: float) -> bool:
    """Prints one row of the table of ratios; returns whether the ratio is too high."""
    ratio = value / base
    places = 3 if bar < 0.1 else 2
    allowed = f"{bar:.{places}f} + {noise:.0%}" if noise else f"{bar:.{places}f}"
    print(f"| {what} | {value:,.0f} | {base:,.0f} | {ratio:.{places}f} | {allowed} |")
    return ratio > bar * (1 + noise)


def main(path: Path, sizes: list[Path], is_filtered: bool) -> int:
    runs = read_runs(path)
    too_high = []
    missing = []
    print("\n| what (yardstick) | figure | yardstick | ratio | bar + noise |\n|---|--:|--:|--:|--:|")
    for what, figure, yardstick, bar, noise in ROWS:
        try:
            if print_ratio(what, figure(runs), yardstick(runs), bar, noise):
                too_high.append(what)
        except KeyError:
            missing.append(what)
    if sizes:
        module, text = (file.stat().st_size for file in sizes)
        if print_ratio("Windows module, bytes (dictionary text)", module, text, 1.25, 0):
            too_high.append("Windows module")

    print("\n| one typed lyric | ns | allocations that the result does not need |\n|---|--:|--:|")
    for what, name in LYRICS:
        key = f"typedLyric/{name}"
        try:
            needless = counter(key, "needlessAllocations")(runs)
            print(f"| {what} | {time_of(key)(runs):,.0f} | {needless:.0f} |")
            if needless > 0:
                too_high.append(what)
        except KeyError:
            missing.append(what)

    if is_filtered:
        missing.clear()
    for what in too_high:
        print(f"bench: expected at most the bar and its noise, found more: {what}", file=sys.stderr)
    for what in missing:
        print(f"bench: expected the benchmarks of a row, found none or no counter: {what}", file=sys.stderr)
    return 1 if too_high or missing else 0


if __name__ == "__main__":
    parser = argparse.ArgumentParser()
    parser.add_argument("--filtered", action="store_true")
    parser.add_argument("json", type=Path)
    parser.add_argument("sizes", type=Path, nargs="*")
    arguments = parser.parse_args()
    sys.exit(main(arguments.json, arguments.sizes, arguments.filtered))
