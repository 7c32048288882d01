#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Tests each fuzz target, and writes what came of it in the JSON form that GoogleTest writes.

Usage: fuzz_tests.py REPORT TARGET... A target passes when it replays its corpus and the inputs that
once broke something, and when it finds nothing more in ten seconds. Two targets run at once. Exit
status 1 when a test failed.
"""

import json
import subprocess
import sys
import tempfile
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

SECONDS = 10


def run(target: str, arguments: list[str]) -> str:
    """Returns the end of what the target says when it fails, nothing when it does not."""
    done = subprocess.run(
        ["tools/fuzz_target.sh", target, *arguments],
        stdout=subprocess.PIPE,
        stderr=subprocess.STDOUT,
        check=False,
    )
    lines = done.stdout.decode("utf-8", "backslashreplace").splitlines()
    return "\n".join(lines[-30:]) if done.returncode else ""


def corpus_of(target: str) -> list[Path]:
    folders = [Path("fuzz", kind, target) for kind in ("corpus", "found")]
    return [folder for folder in folders if folder.is_dir()]


def replay(target: str) -> str:
    inputs = [str(path) for folder in corpus_of(target) for path in sorted(folder.iterdir())]
    return run(target, inputs) if inputs else "no inputs to replay"


def search(target: str) -> str:
    found = Path("build/fuzz/found", target)
    found.mkdir(parents=True, exist_ok=True)
    with tempfile.TemporaryDirectory() as new_inputs:
        return run(
            target,
            [f"-max_total_time={SECONDS}", f"-artifact_prefix={found}/", new_inputs]
            + [str(folder) for folder in corpus_of(target)],
        )


def suite_of(target: str) -> dict[str, object]:
    entries = []
    for name, test in (
        ("ReplaysItsCorpusAndWhatWasFound", replay),
        ("RunsTenSecondsAndFindsNothing", search),
    ):
        entry = {"name": name, "result": "COMPLETED"}
        if failure := test(target):
            print(f"{target}.{name}\n{failure}")
            entry["failures"] = [{"failure": failure}]
        entries.append(entry)
    return {"name": target, "testsuite": entries}


def main(report: Path, targets: list[str]) -> int:
    with ThreadPoolExecutor(max_workers=2) as pool:
        suites = list(pool.map(suite_of, targets))
    entries = [entry for suite in suites for entry in suite["testsuite"]]
    failures = sum("failures" in entry for entry in entries)
    summary = {
        "tests": len(entries),
        "failures": failures,
        "errors": 0,
        "disabled": 0,
        "testsuites": suites,
    }
    report.write_text(json.dumps(summary, indent=2), encoding="utf-8")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main(Path(sys.argv[1]), sys.argv[2:]))
