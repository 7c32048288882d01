# SPDX-License-Identifier: GPL-3.0-or-later
"""Tests of bench_table.py: which rows it wants, and when it fails."""

import contextlib
import io
import json
import re
import sys
import tempfile
import unittest
from collections.abc import Callable
from pathlib import Path

PROJECT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(PROJECT / "tools"))
import bench_table  # noqa: E402


class Noted(dict):
    """Has whatever it is asked for, and holds it from then on."""

    def __init__(self, make: Callable[[str], object], **values: str) -> None:
        super().__init__(**values)
        self.make = make

    def __missing__(self, key: str) -> object:
        return self.setdefault(key, self.make(key))


def every_run() -> dict[str, dict]:
    """Returns a run of each benchmark that the table names, with figures of 0 and yardsticks of 1."""

    def run_with(value: float) -> Callable[[str], list[dict]]:
        return lambda name: [Noted(lambda _: value, run_name=name, run_type="iteration", time_unit="ns")]

    figures, yardsticks = Noted(run_with(0)), Noted(run_with(1))
    for _, figure, yardstick, _, _ in bench_table.ROWS:
        figure(figures)
        yardstick(yardsticks)
    for _, name in bench_table.LYRICS:
        bench_table.counter(f"typedLyric/{name}", "needlessAllocations")(figures)
        bench_table.time_of(f"typedLyric/{name}")(figures)
    return {name: run for name, [run] in (figures | yardsticks).items()}


class BenchTable(unittest.TestCase):
    def table_of(self, runs: dict[str, dict], is_filtered: bool = False) -> tuple[int, str]:
        """Returns the exit status and the complaints."""
        with tempfile.TemporaryDirectory() as folder, \
                contextlib.redirect_stdout(io.StringIO()), \
                contextlib.redirect_stderr(io.StringIO()) as errors:
            path = Path(folder) / "bench.json"
            path.write_text(json.dumps({"benchmarks": list(runs.values())}))
            return bench_table.main(path, [], is_filtered), errors.getvalue()

    def test_accepts_figures_within_their_bars(self) -> None:
        self.assertEqual(self.table_of(every_run()), (0, ""))

    def test_names_a_row_above_its_bar(self) -> None:
        runs = every_run()
        runs["undoAndRedo"]["cpu_time"] = 4
        status, complaints = self.table_of(runs)
        self.assertEqual((status, complaints.count("\n")), (1, 1))
        self.assertIn("found more: undo and redo", complaints)

    def test_refuses_a_file_without_runs(self) -> None:
        with tempfile.NamedTemporaryFile() as file, self.assertRaises(SystemExit) as ended:
            bench_table.main(Path(file.name), [], True)
        self.assertIn("found none", str(ended.exception))

    def test_names_the_rows_whose_benchmarks_did_not_run(self) -> None:
        for name in ("constructExtension", "decodeAlone/kana", "typedLyric/bracket"):
            runs = every_run()
            runs["renamed"] = runs.pop(name) | {"run_name": "renamed"}
            self.assertEqual(self.table_of(runs)[0], 1, name)
        self.assertIn("found none or no counter: a bracket with 5 syllables", self.table_of(runs)[1])

    def test_names_the_rows_whose_counters_are_missing(self) -> None:
        runs = every_run()
        del runs["constructExtension"]["heapKept"]
        status, complaints = self.table_of(runs)
        self.assertEqual((status, complaints.count("\n")), (1, 1))
        self.assertIn("bytes of heap kept", complaints)

    def test_names_every_row_of_an_empty_run(self) -> None:
        status, complaints = self.table_of({})
        rows = len(bench_table.ROWS) + len(bench_table.LYRICS)
        self.assertEqual((status, complaints.count("\n")), (1, rows))

    def test_leaves_out_what_a_filter_left_out(self) -> None:
        self.assertEqual(self.table_of({}, is_filtered=True), (0, ""))

    def test_names_benchmarks_of_the_project(self) -> None:
        sources = "".join(path.read_text() for path in (PROJECT / "bench").glob("*.cpp"))
        made = set(re.findall(r"^BENCHMARK\w*\((\w+)", sources, re.MULTILINE))
        self.assertEqual({name.partition("/")[0] for name in every_run()} - made, set())


if __name__ == "__main__":
    unittest.main()
