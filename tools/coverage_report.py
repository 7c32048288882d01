#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Reports which lines of the extension a build with gcc's --coverage has run.

Usage, from the top of the project: coverage_report.py BUILD_FOLDER. Prints a table by folder and
each line that was not reached. Those that tools/uncovered.tsv has a reason for are not counted. Nor
is a line with nothing but a closing brace: its code is what the compiler adds for exceptions.

Exit status 1 when less than 98 % of the lines were reached, when one was not reached that has no
reason, or when no line has use for a reason.
"""

import json
import posixpath
import re
import subprocess
import sys
from collections import Counter, defaultdict
from pathlib import Path
from typing import NamedTuple

FOLDERS = ("module", "host", "extension", "lyrics", "dictionary", "editsteps")
LEAST_PERCENT = 98.0
NOT_BUILT = "(all of it)"  # stands for the lines of a source file that this build leaves out

# How often each line with code was run, by the source file and the number of the line.
Counts = dict[str, Counter]


def read_counts(build: Path) -> Counts:
    """Adds up what the objects of all programs counted, those that never ran among them."""
    counts = defaultdict(Counter)
    for notes in sorted(build.rglob("*.gcno")):
        output = subprocess.run(
            ["gcov", "--json-format", "--stdout", notes.resolve()],
            check=True, capture_output=True, cwd=build, text=True,
        ).stdout
        # One document for each object.
        for document in output.splitlines():
            for file in json.loads(document)["files"]:
                # The build names its files as seen from the top of the project.
                name = posixpath.normpath(file["file"])
                if name.startswith(tuple(f"{folder}/" for folder in FOLDERS)):
                    counts[name].update({line["line_number"]: line["count"] for line in file["lines"]})
    return counts


class Line(NamedTuple):
    """A line with code, or by number 0 all lines of a file that this build leaves out."""

    file: str
    number: int
    text: str
    count: int

    def __str__(self) -> str:
        return f"{self.file}:{self.number}: {self.text}" if self.number else f"{self.file}: {self.text}"


class Reason(NamedTuple):
    """Why the lines of a text need not be reached. Stars stand for anything."""

    file: str
    text: str
    why: str

    def covers(self, line: Line) -> bool:
        return matches(line.file, self.file) and matches(line.text, self.text)


def matches(text: str, pattern: str) -> bool:
    return re.fullmatch(".*".join(map(re.escape, pattern.split("*"))), text) is not None


def read_reasons(path: Path) -> list[Reason]:
    lines = path.read_text(encoding="utf-8").splitlines()
    return [Reason(*line.split("\t")) for line in lines if not line.startswith("#")]


def list_lines(counts: Counts) -> list[Line]:
    """Returns the lines that count, in the order of the files."""
    lines = []
    for file, of_file in sorted(counts.items()):
        texts = [text.strip() for text in Path(file).read_text(encoding="utf-8").splitlines()]
        lines += [Line(file, number, texts[number - 1], of_file[number]) for number in sorted(of_file)]
    sources = [file.as_posix() for folder in FOLDERS for file in sorted(Path(folder).glob("*.cpp"))]
    left_out = [Line(file, 0, NOT_BUILT, 0) for file in sources if file not in counts]
    return [line for line in lines if line.text != "}"] + left_out


def print_row(name: str, lines: list[Line], excused: set[Line]) -> float:
    """Prints how many lines were reached; returns the percentage."""
    reached = sum(line.count > 0 for line in lines)
    with_reason = sum(line in excused for line in lines)
    percent = 100 * reached / max(len(lines) - with_reason, 1)
    print(f"{name:12} {len(lines):6} {reached:8} {with_reason:8} {percent:8.2f}")
    return percent


def main(build: Path) -> int:
    lines = list_lines(read_counts(build))
    reasons = read_reasons(Path("tools/uncovered.tsv"))
    unreached = [line for line in lines if line.count == 0]
    excused = {line for line in unreached for reason in reasons if reason.covers(line)}

    print(f"{'folder':12} {'lines':>6} {'reached':>8} {'excused':>8} {'percent':>8}")
    for folder in FOLDERS:
        print_row(folder, [line for line in lines if line.file.startswith(f"{folder}/")], excused)
    percent = print_row("total", lines, excused)

    for reason in reasons:
        print(f"not reached, {reason.why}:")
        print("".join(f"    {line}\n" for line in unreached if reason.covers(line)), end="")

    mistakes = [f"not reached: {line}" for line in unreached if line not in excused]
    mistakes += [
        f"tools/uncovered.tsv: nothing has use for {reason.file}: {reason.text}"
        for reason in reasons
        if not any(reason.covers(line) for line in unreached)
    ]
    if percent < LEAST_PERCENT:
        mistakes.append(f"expected {LEAST_PERCENT} % of the lines to be reached")
    print("".join(f"coverage: {mistake}\n" for mistake in mistakes), end="", file=sys.stderr)
    return 1 if mistakes else 0


if __name__ == "__main__":
    sys.exit(main(Path(sys.argv[1])))
