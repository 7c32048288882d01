#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Compares the first proposal for unknown words with how many syllables composers give them.

measure_proposals.py FILE: the file has a line for each word: the word, how often it is sung, and its number
of syllables, with tabs between; lines that begin with # are passed over. Expects wysim in build/linux.
"""

import csv
import json
import subprocess
import sys
from collections import Counter
from pathlib import Path

WYSIM = Path(__file__).resolve().parents[1] / "build/linux/wysim/wysim"


def check(lines: list[str]) -> list[dict]:
    """Returns what `wysim check` says of each line."""
    result = subprocess.run([WYSIM, "check", "--json", "-"], input="\n".join(lines), text=True,
                            stdout=subprocess.PIPE, encoding="utf-8")
    if result.returncode not in (0, 3):
        sys.exit(f"measure_proposals: expected wysim to check the words, it ended with {result.returncode}.")
    return json.loads(result.stdout)["lines"]


def first_of(line: dict) -> dict:
    """Returns the first proposal for a word that is a line of its own; else the word."""
    unsung = [finding for finding in line["findings"] if not finding["sung"]]
    proposals = unsung[0]["suggestions"] if unsung else []
    return proposals[0] if proposals else {"text": line["text"]}


def kind_of(proposal: dict, line: dict) -> str:
    if proposal["text"] == line["text"]:
        return "none"
    if proposal.get("guess"):
        return "guess"
    return "another spelling" if proposal["text"].endswith("]") else "another text"


def main() -> None:
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    with open(sys.argv[1], encoding="utf-8") as file:
        rows = [row for row in csv.reader(file, delimiter="\t", quoting=csv.QUOTE_NONE)
                if row and not row[0].startswith("#")]
    lines = check([word for word, _, _ in rows])
    proposals = [first_of(line) for line in lines]
    sung = check([proposal["text"] for proposal in proposals])
    words, times, alike, alike_times = Counter(), Counter(), Counter(), Counter()
    for (_, count, syllables), line, proposal, found in zip(rows, lines, proposals, sung):
        for kind in (kind_of(proposal, line), "all"):
            words[kind] += 1
            times[kind] += int(count)
            if found["syllables"] == int(syllables):
                alike[kind] += 1
                alike_times[kind] += int(count)
    for kind in words:
        print(f"{kind}: {words[kind]} words, {alike[kind]} with as many syllables "
              f"({alike[kind] / words[kind]:.1%}); "
              f"as often as they are sung: {alike_times[kind] / times[kind]:.1%}")


if __name__ == "__main__":
    main()
