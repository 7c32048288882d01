# SPDX-License-Identifier: GPL-3.0-or-later
"""Tests that a sanitized build is sanitized throughout, third-party code too: a wild access in code
that is not instrumented would go unnoticed."""

import json
import os
import unittest
from pathlib import Path

COMMANDS = Path(os.environ["WYBETA_BUILD"]) / "compile_commands.json"
SANITIZERS = os.environ["WYBETA_SANITIZE"]


class SanitizedBuild(unittest.TestCase):
    def setUp(self) -> None:
        self.commands = [entry for entry in json.loads(COMMANDS.read_text())
                         if Path(entry["file"]).suffix in (".cpp", ".cc", ".cxx", ".c")]

    def test_compiles_every_file_with_its_sanitizers(self) -> None:
        bare = [entry["file"] for entry in self.commands
                if f" -fsanitize={SANITIZERS} " not in entry["command"]]
        self.assertEqual(bare, [])

    def test_has_the_sdk_and_googletest_among_its_files(self) -> None:
        names = {Path(entry["file"]).name for entry in self.commands}
        self.assertLessEqual({"gtest-all.cc", "fobject.cpp", "pugixml.cpp"}, names)


if __name__ == "__main__":
    unittest.main()
