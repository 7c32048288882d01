# SPDX-License-Identifier: GPL-3.0-or-later
"""Reads the example tables of a document: what is typed into a note, and what the notes then carry.

For tests in other languages: example_tables.py DOCUMENT prints the rows as JSON.
"""

import json
import re
import sys
from pathlib import Path

PROJECT = Path(__file__).resolve().parents[2]

# A row of code alone.
EXAMPLE = re.compile(r"^\| `([^`]+)` \| ((?:`[^`]+` )+)\|$", re.MULTILINE)
CODE = re.compile(r"`([^`\n]+)`")


def examples(document: str) -> list[tuple[str, list[str]]]:
    """Returns the rows of all tables: a typed lyric, and the lyrics that come of it."""
    text = (PROJECT / document).read_text(encoding="utf-8")
    return [(typed, CODE.findall(carried)) for typed, carried in EXAMPLE.findall(text)]


if __name__ == "__main__":
    json.dump(examples(sys.argv[1]), sys.stdout)
