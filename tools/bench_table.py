#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Prints the figures of a benchmark run as ratios to their yardsticks.

Usage: bench_table.py BENCH_JSON. Rows whose benchmarks did not run are left out. Times are CPU times:
the machine may be busy with other work.
"""

import json
import sys
from pathlib import Path

# What is measured, its benchmark and figure, the yardstick's, and the most that the ratio may be.
ROWS = [
    ("dictionary loaded, time", ("loadDictionary", "cpu_time"), ("loadPlainly", "cpu_time"), 0.20),
    ("dictionary loaded, heap kept", ("loadDictionary", "heapKept"), ("loadPlainly", "heapKept"), 0.60),
    ("dictionary loaded, heap peak", ("loadDictionary", "heapPeak"), ("loadPlainly", "heapPeak"), 0.60),
] + [
    (f"walk, {notes:,} notes, nothing changed", (f"walkNothingChanged/{notes}", "cpu_time"),
     (f"hostCallsAlone/{notes}", "cpu_time"), 2.5)
    for notes in (1_000, 10_000, 100_000, 1_000_000)
]


def in_nanoseconds(run: dict, figure: str) -> float:
    """Returns a figure of a run, times in ns and counters as they are."""
    factor = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}[run["time_unit"]] if "time" in figure else 1
    return run[figure] * factor


def main(path: Path) -> None:
    runs = {run["name"]: run for run in json.loads(path.read_text(encoding="utf-8"))["benchmarks"]}
    print(f"\n{'what':42} {'figure':>14} {'yardstick':>14} {'ratio':>6} {'at most':>8}")
    for what, (name, figure), (yardstick, other), most in ROWS:
        if name in runs and yardstick in runs:
            value = in_nanoseconds(runs[name], figure)
            base = in_nanoseconds(runs[yardstick], other)
            print(f"{what:42} {value:14,.0f} {base:14,.0f} {value / base:6.2f} {most:8.2f}")


if __name__ == "__main__":
    main(Path(sys.argv[1]))
