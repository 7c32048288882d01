# SPDX-License-Identifier: GPL-3.0-or-later
"""Tests that every file has a licence: that of its first lines, or that which .reuse/dep5 names."""

import fnmatch
import subprocess
import unittest
from pathlib import Path

PROJECT = Path(__file__).resolve().parents[2]
# In two parts, since this is not the licence line of this file.
LICENCE_LINE = "SPDX-License-" + "Identifier: GPL-3.0-or-later"

# Texts for people, data, and formats that have no comments; .reuse/dep5 tells of them.
WITHOUT_LINE = [
    ".reuse/dep5", "LICENSE", "LICENSES/*", "THIRD-PARTY-NOTICES", "*.md", "*.svg",
    "*.json", "*.png", "web/.npmrc", "src/resources/cmudict-0.7b-utf8-spll", "tools/divisions.tsv", "wysim/songs/*",
    "tests/wysim/data/*", "fuzz/corpus/*", "fuzz/found/*",
]  # fmt: skip


def run(*command: str) -> subprocess.CompletedProcess:
    return subprocess.run(command, cwd=PROJECT, capture_output=True, text=True)


def files() -> list[str]:
    """Returns the paths of all files under version control, those that are not yet added included."""
    listed = run("git", "ls-files", "--cached", "--others", "--exclude-standard", "-z").stdout
    return [name for name in listed.split("\0") if (PROJECT / name).is_file()]


def has_line(name: str) -> bool:
    start = (PROJECT / name).read_text(encoding="utf-8", errors="replace")[:200]
    return LICENCE_LINE in "".join(start.splitlines()[:3])


class Licences(unittest.TestCase):
    def test_are_known_for_every_file(self) -> None:
        lint = run("reuse", "lint")
        self.assertEqual(lint.returncode, 0, lint.stdout + lint.stderr)

    def test_stand_in_the_first_lines_of_every_source(self) -> None:
        sources = [name for name in files()
                   if not any(fnmatch.fnmatch(name, pattern) for pattern in WITHOUT_LINE)]
        self.assertGreater(len(sources), 300)
        self.assertEqual([name for name in sources if not has_line(name)], [])

    def test_of_data_made_by_others_are_told_apart(self) -> None:
        told = run("reuse", "spdx").stdout
        for name, licence in {
            "src/resources/cmudict-0.7b-utf8-spll": "LicenseRef-CMUdict",
            "wysim/songs/sakura.musicxml": "CC0-1.0",
            "src/lyrics/LyricConversion.cpp": "GPL-3.0-or-later",
        }.items():
            entry = told.partition(f"FileName: ./{name}\n")[2].partition("\n\n")[0]
            self.assertIn(f"LicenseInfoInFile: {licence}\n", entry, name)

    def test_texts_are_those_that_come_with_the_release(self) -> None:
        licence = (PROJECT / "LICENSE").read_text()
        self.assertEqual((PROJECT / "LICENSES/GPL-3.0-or-later.txt").read_text(), licence)
        dictionary = (PROJECT / "LICENSES/LicenseRef-CMUdict.txt").read_text()
        self.assertIn(dictionary, (PROJECT / "THIRD-PARTY-NOTICES").read_text())


if __name__ == "__main__":
    unittest.main()
