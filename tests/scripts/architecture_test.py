# SPDX-License-Identifier: GPL-3.0-or-later
"""Tests that no include leads up: the table in docs/architecture.md says what each folder may include,
a folder only what stands below it."""

import re
import unittest
from pathlib import Path

PROJECT = Path(__file__).resolve().parents[2]
ROW = re.compile(r"^\| `([\w/]+)/` \|[^|]*\|([^|]*)\|$", re.MULTILINE)
INCLUDE = re.compile(r'^#include "([^"]+)"', re.MULTILINE)


def allowed_folders() -> dict[str, set[str]]:
    """Returns for each folder of the table, from the top down, the folders that it may include."""
    table = (PROJECT / "docs/architecture.md").read_text(encoding="utf-8")
    return {folder: set(re.findall(r"`([\w/]+)/`", below)) for folder, below in ROW.findall(table)}


def folder_of(path: Path) -> str:
    """Returns the folder of the table that a file, named from the top of the project, lies in."""
    return path.parent.as_posix() if path.parts[0] in ("src", "wysim") else path.parts[0]


def included_folders(file: Path) -> set[str]:
    """Returns the folders of the project that a file includes from, without its own."""
    found = set()
    for name in INCLUDE.findall(file.read_text(encoding="utf-8")):
        for root in ("", "src/"):
            if (PROJECT / root / name).is_file() or name == "module/Identity.h":
                found.add(folder_of(Path(root or ("src/" if "Identity" in name else ""), name)))
                break
    return found - {folder_of(file.relative_to(PROJECT))}


class Architecture(unittest.TestCase):
    def test_includes_go_where_the_table_allows(self) -> None:
        allowed = allowed_folders()
        for top in {folder.split("/")[0] for folder in allowed}:
            for file in (PROJECT / top).rglob("*.[hc]*"):
                folder = folder_of(file.relative_to(PROJECT))
                self.assertIn(folder, allowed, "a folder that the table does not have")
                self.assertLessEqual(included_folders(file), allowed[folder], file)

    def test_the_table_goes_down_only(self) -> None:
        above: set[str] = set()
        for folder, below in allowed_folders().items():
            above.add(folder)
            self.assertEqual(below & above, set(), folder)


if __name__ == "__main__":
    unittest.main()
