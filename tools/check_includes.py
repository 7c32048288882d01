#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Checks that each folder includes only what the table in docs/architecture.md allows it.

Run from the top of the project. Prints a line for each include that is not allowed; exit status 1
when there is one.
"""

import re
import sys
from pathlib import Path

ROW = re.compile(r"^\| `(\w+)/` \|[^|]*\|([^|]*)\|$", re.MULTILINE)
INCLUDE = re.compile(r'^#include "([^"]+)"', re.MULTILINE)


def read_rules(text: str) -> dict[str, list[str]]:
    """Returns for each folder the beginnings of the paths that it may include."""
    return {
        folder: [f"{folder}/"] + re.findall(r"`([^`]+)`", allowed)
        for folder, allowed in ROW.findall(text)
    }


def main() -> int:
    rules = read_rules(Path("docs/architecture.md").read_text(encoding="utf-8"))
    own = tuple(f"{folder}/" for folder in rules)
    wrong = [
        f'{source}: {folder}/ may not include "{path}"'
        for folder, allowed in rules.items()
        for source in sorted(Path(folder).rglob("*.[hc]*"))
        for path in INCLUDE.findall(source.read_text(encoding="utf-8"))
        if path.startswith(own) and not path.startswith(tuple(allowed))
    ]
    print("\n".join(wrong), end="\n" if wrong else "")
    return 1 if wrong or not rules else 0


if __name__ == "__main__":
    sys.exit(main())
