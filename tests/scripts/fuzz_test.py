# SPDX-License-Identifier: GPL-3.0-or-later
"""Tests of fuzz.sh, where a script stands for the fuzzer: what is told, counted and kept."""

import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

PROJECT = Path(__file__).resolve().parents[2]

# Runs and merges say what the files "run" and "merge" hold; a merge keeps one input of two.
FUZZER = """#!/usr/bin/env bash
kind=run
[[ $* != *-merge=1* ]] || kind=merge
cat $kind
[ $kind = run ] || echo short >"build/fuzz/merged/$1/short"
! grep -q ERROR $kind || [ $kind = merge ]
"""
STATISTICS = "stat::number_of_executed_units: 7\n"
FAULT = ("INFO: Seed: 1\n#2\tINITED cov: 3\nfuzz: expected\n  'x'\nfound nothing\n"
         "==1== ERROR: libFuzzer: deadly signal\n" + "    #0 somewhere\n" * 60 +
         "artifact_prefix='f/'; Test unit written to f/crash-1\n" + STATISTICS)


class FuzzRuns(unittest.TestCase):
    def setUp(self) -> None:
        scratch = tempfile.TemporaryDirectory()
        self.addCleanup(scratch.cleanup)
        self.folder = Path(scratch.name)
        for name in ("tools", "fuzz", "build/fuzz/corpus/kana"):
            (self.folder / name).mkdir(parents=True)
        shutil.copy(PROJECT / "tools/fuzz.sh", self.folder / "tools")
        self.write("tools/build.sh", "#!/bin/sh\n")
        self.write("tools/fuzz_target.sh", FUZZER)
        self.write("fuzz/CMakeLists.txt", "add_fuzz_target(kana Kana.cpp)\n")
        self.write("run", STATISTICS)
        self.write("merge", "")
        for name in ("long", "longer"):
            self.write(f"build/fuzz/corpus/kana/{name}", name)

    def write(self, name: str, text: str) -> None:
        (self.folder / name).write_text(text)
        (self.folder / name).chmod(0o755)

    def fuzz(self, *arguments: str) -> tuple[int, str]:
        """Returns the exit status and what is printed."""
        result = subprocess.run(["tools/fuzz.sh", *arguments], cwd=self.folder, text=True,
                                stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        return result.returncode, result.stdout

    def corpus(self) -> set[str]:
        return {path.name for path in (self.folder / "build/fuzz/corpus/kana").iterdir()}

    def crashes(self) -> str:
        return (self.folder / "build/fuzz/runs.tsv").read_text().split()[-1]

    def test_without_a_fault_keep_the_merged_inputs(self) -> None:
        self.assertEqual(self.fuzz()[0], 0)
        self.assertEqual((self.corpus(), self.crashes()), ({"short"}, "0"))

    def test_with_a_fault_begin_with_what_the_check_said(self) -> None:
        self.write("run", FAULT)
        status, output = self.fuzz("5", "kana")
        self.assertEqual(status, 1)
        self.assertTrue(output.startswith("fuzz: expected\n  'x'\nfound nothing\n"), output)
        self.assertLess(output.count("\n"), 50)

    def test_with_a_fault_count_it_and_keep_all_inputs(self) -> None:
        self.write("run", FAULT)
        self.fuzz()
        self.assertEqual((self.corpus(), self.crashes()), ({"long", "longer"}, "1"))

    def test_with_a_fault_when_merged_tell_it_once_and_keep_all_inputs(self) -> None:
        self.write("merge", FAULT * 74)
        status, output = self.fuzz()
        self.assertEqual((status, self.corpus(), self.crashes()), (1, {"long", "longer"}, "1"))
        self.assertTrue(output.startswith("fuzz: expected\n"), output)

    def test_that_end_for_another_reason_tell_how(self) -> None:
        self.write("tools/fuzz_target.sh", "#!/bin/sh\necho no such program; exit 127\n")
        status, output = self.fuzz()
        self.assertEqual((status, self.corpus()), (1, {"long", "longer"}))
        self.assertTrue(output.startswith("no such program\n"), output)

    def test_refuse_what_is_no_number_of_seconds(self) -> None:
        for word in ("ten", "kana", "0", "-5", "1.5", ""):
            self.assertEqual(
                self.fuzz(word, "kana"),
                (2, f"fuzz: expected a number of seconds, found '{word}'.\n"))


if __name__ == "__main__":
    unittest.main()
