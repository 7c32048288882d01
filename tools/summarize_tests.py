#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Adds up the reports of all test programs and closes the run with one line.

Usage: summarize_tests.py FOLDER. The folder holds one GoogleTest JSON report for each program that
ran, and a file "failures" when one ended with an error. Exit status 1 when anything failed.
"""

import json
import sys
from pathlib import Path


def count(report: dict) -> tuple[int, int, int]:
    """Returns how many tests passed, failed and were skipped."""
    failed = report["failures"] + report["errors"]
    skipped = sum(
        test.get("result") == "SKIPPED"
        for suite in report["testsuites"]
        for test in suite["testsuite"]
    )
    return report["tests"] - failed - skipped - report["disabled"], failed, skipped


def main(folder: Path) -> int:
    totals = [0, 0, 0]
    for path in sorted(folder.glob("*.json")):
        counts = count(json.loads(path.read_text(encoding="utf-8")))
        print(f"{path.stem:32} {counts[0]:5} passed {counts[1]:3} failed {counts[2]:3} skipped")
        totals = [total + more for total, more in zip(totals, counts)]
    ended_badly = (folder / "failures").exists()
    if ended_badly:
        print((folder / "failures").read_text(encoding="utf-8"), end="")
        # A program that crashed wrote no report, so its failure would not be counted.
        totals[1] = max(totals[1], 1)
    print("tests: {} passed, {} failed, {} skipped".format(*totals))
    return 1 if totals[1] or not totals[0] else 0


if __name__ == "__main__":
    sys.exit(main(Path(sys.argv[1])))
