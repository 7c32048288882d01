#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Runs Python tests and writes what came of them in the JSON form that GoogleTest writes.

Usage: unittest_report.py TEST_MODULE REPORT. Exit status 1 when a test failed.
"""

import json
import sys
import unittest
from pathlib import Path


def report_entry(test: unittest.TestCase, failures: dict[str, str]) -> dict[str, object]:
    """Returns what the report says of a test that ran; `failures` goes by the ids of tests."""
    entry = {"name": test.id().rpartition(".")[2], "result": "COMPLETED"}
    if test.id() in failures:
        return entry | {"failures": [{"failure": failures[test.id()]}]}
    return entry


def tests_in(suite: unittest.TestSuite) -> list[unittest.TestCase]:
    """Returns the tests of a suite of suites."""
    return [
        test
        for item in suite
        for test in (tests_in(item) if isinstance(item, unittest.TestSuite) else [item])
    ]


def run(test_module: object, report: Path) -> int:
    """Runs all tests of a module, prints the failures, writes the report; the exit status."""
    tests = tests_in(unittest.defaultTestLoader.loadTestsFromModule(test_module))
    runner = unittest.TextTestRunner(stream=sys.stdout, verbosity=0)
    result = runner.run(unittest.TestSuite(tests))
    failures = {test.id(): message for test, message in result.failures + result.errors}
    suites = {}
    for test in tests:
        suites.setdefault(type(test).__name__, []).append(report_entry(test, failures))
    summary = {
        "tests": len(tests),
        "failures": len(failures),
        "errors": 0,
        "disabled": 0,
        "testsuites": [{"name": name, "testsuite": entries} for name, entries in suites.items()],
    }
    report.write_text(json.dumps(summary, indent=2), encoding="utf-8")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(run(__import__(sys.argv[1]), Path(sys.argv[2])))
