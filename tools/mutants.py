#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Changes the extension in one place at a time and lists the changes that no test notices.

Works on copies of the sources in build/mutants/, as they are when it begins. What became of each change
is kept in results.tsv there, and the change not tried again. May be paused, or ended by Ctrl-C and run
again, at any time: programs are limited by their CPU time, not by the clock. Exit status 1 when there is
a change that no test notices and that docs/mutants.md does not have, 2 for a mistake in the arguments.
"""

import argparse
import contextlib
import fcntl
import hashlib
import json
import math
import os
import re
import signal
import subprocess
import sys
import threading
import time
from collections import Counter
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path
from typing import Any, Iterator, NamedTuple

PROJECT = Path(__file__).resolve().parents[1]
FOLDER = PROJECT / "build/mutants"
MODULE = "WyBeta.vst3/Contents/*/WyBeta.so"

NOT_CODE = re.compile(
    r"""//[^\n]*|/\*.*?\*/|^[ ]*\#(?:\\\n|[^\n])*|"(?:\\.|[^"\\\n])*"|(?<![0-9A-Fa-f])'(?:\\.|[^'\\\n])+'
      |\bstatic_assert\b[^;]*;|^[ ]*\{[^;\n]*\},?$|\)[\w ]*=[ ]0;""", re.M | re.S | re.X)
SWAPS = [("<", "<="), (">", ">="), ("==", "!="), ("&&", "||"), ("+", "-"), ("+=", "-=")]
SWAPPED = dict(SWAPS) | {after: before for before, after in SWAPS} | {
    "++": "--", "--": "++", "true": "false", "false": "true", "continue;": "break;",
    "break;": "continue;", "return;": ";", "!": "", "else ": ""}
TOKEN = re.compile(r"(?<= )(?:[<>]=?|[=!]=|&&|\|\||[+-]=?)(?=\s)|\+\+|--|\b(?:true|false|continue;"
                   r"|break;|return;)|\belse |(?<![\w!])!(?!=)")
NUMBER = re.compile(r"(?<![\w.'])(0[xX][\dA-Fa-f']+|\d[\d']*)([uUlL]*)(?![\w.'])")
CONDITION = re.compile(r"\b(?:if|while) (?=\()")
DECLARATION = re.compile(r"const auto\*? ?(?:const )?(\w+) = ")
# Of these, the changes above make the opposite already.
SIMPLE = re.compile(r"!\S+|[^&|<>]+ [=!]= [^&|<>]+")
# No declaration of a constructor.
STATEMENT = re.compile(r"(?![A-Z]\w*\()(?:[\w.:>*[\]-]+\(.*\)|(?:\+\+|--).*|[\w.>-]+(?:\+\+|--)"
                       r"|[\w.:>*&+[\]-]+(?:\([^;={}]*\))? [-+|&]?= (?!default|delete).*)", re.S)


class Mutant(NamedTuple):
    file: str
    line: int
    column: int
    before: str  # the lines that change, as one, and what is above where there are others like them
    after: str
    text: str  # the whole file

    def key(self) -> str:
        return f"{self.file}:{self.line}:{self.column}\t{self.before}\t{self.after}"

    def place_in_line(self, seed: int) -> str:
        """What the mutants are put in order by: by chance, but not by what else is in the sources."""
        text = f"{seed} {self.file} {self.column} {self.before} {self.after}"
        return hashlib.sha256(text.encode()).hexdigest()


def closing(code: str, start: int, ends: str) -> int:
    """Returns where the first of the characters stands that is in no bracket opened after `start`."""
    depth = 0
    for i in range(start, len(code)):
        if depth == 0 and code[i] in ends:
            return i
        depth += (code[i] in "([{") - (code[i] in ")]}")
        if depth < 0:
            break
    return start


def changes(code: str) -> Iterator[tuple[int, int, str]]:
    """Yields the changes as places in the code and what is written there instead."""
    for token in TOKEN.finditer(code):
        yield *token.span(), SWAPPED[token[0]]
    for number in NUMBER.finditer(code):
        base, layout = (16, "0x{:X}{}") if number[1][:2].lower() == "0x" else (10, "{}{}")
        for step in (1, -1):
            value = int(number[1].replace("'", ""), base) + step
            yield *number.span(), layout.format(value, number[2])
    for found in CONDITION.finditer(code):
        start = found.end() + 1
        end = closing(code, start, ")")
        declared = DECLARATION.match(code, start, end)
        if declared:
            if found[0] == "if ":
                yield end, end, f"; !{declared[1]}"
        elif not SIMPLE.fullmatch(code, start, end):
            yield start, end, f"!({code[start:end]})"
    for found in re.finditer(r"(?<=[;{}])\s+(?=[\w*+-])", code):
        end = closing(code, found.end(), ";")
        if STATEMENT.fullmatch(code, found.end(), end):
            yield found.end(), end, ""
    for found in re.finditer(r"\breturn (?!(?:\{\}|nullptr|true|false|0);)", code):
        end = closing(code, found.end(), ";")
        yield found.end(), end, "{}"
        if re.search(r" (?:[=!<>]=|[<>]|&&|\|\|) ", code[found.end():end]):
            yield found.end(), end, "true"


def mutants_of(file: str, text: str) -> list[Mutant]:
    code = NOT_CODE.sub(lambda found: re.sub(r"[^\n]", "_" if found[0][0] in "\"'" else " ", found[0]),
                        text)
    mutants = []
    for start, end, after in sorted(set(changes(code))):
        # Conditions are repeated in what is written, with the strings that are in them.
        after = after.replace(code[start:end], text[start:end]) if end > start else after
        first, last = text.rfind("\n", 0, start) + 1, text.find("\n", end)
        while first > 0 and text.count(text[first - 1:last + 1]) > 1:
            first = text.rfind("\n", 0, first - 1) + 1
        mutants.append(Mutant(
            file, text.count("\n", 0, start) + 1, start - text.rfind("\n", 0, start),
            " ".join(text[first:last].split()),
            " ".join((text[first:start] + after + text[end:last]).split()),
            text[:start] + after + text[end:]))
    return mutants


def known_ones(document: str) -> set[tuple[str, str, str]]:
    """Returns the file and the text before and after of the rows of docs/mutants.md."""
    cells = [[cell.strip().strip("`").replace("\\|", "|") for cell in re.split(r"(?<!\\)\|", row)[1:4]]
             for row in document.splitlines() if row.startswith("| `")]
    return {(file, before, after) for file, before, after in cells}


class Stopped(Exception):
    """The user ended the run: what the change under way came to means nothing."""


class Tree:
    """A copy of the sources with a build of its own, in which mutants are tried one after another."""

    def __init__(self, folder: Path) -> None:
        self.folder, self.build, self.mutated = folder, folder / "build/linux", ""
        self.is_stopped = False
        (folder / "build").mkdir(parents=True, exist_ok=True)
        listed = subprocess.check_output(["git", "ls-files", "-co", "--exclude-standard"],
                                         cwd=PROJECT, text=True).splitlines()
        self.originals = {name: (PROJECT / name).read_bytes()
                          for name in listed if (PROJECT / name).is_file()}
        self.remove_others()
        for name in self.originals:
            self.restore(name)
        if not (folder / ".deps").exists() and (PROJECT / ".deps").exists():
            (folder / ".deps").symlink_to(PROJECT / ".deps")
        self.check("cmake", "--preset", "linux", "-DCCACHE_PROGRAM=OFF", "-DCMAKE_BUILD_TYPE=Mutants",
                   "-DCMAKE_CXX_FLAGS=-O1 -w", "-DCMAKE_COMPILE_WARNING_AS_ERROR=OFF")
        self.check("ninja", "-C", str(self.build), "wybeta_module", "unit_tests", "module_tests")
        self.module = self.module_hash()
        self.built = (self.build / "build.ninja").read_text()
        self.times = {program: self.times_of(program) for program in ("unit_tests", "module_tests")}

    def remove_others(self) -> None:
        """Removes the files of an earlier run that are sources no more: tests are found by their names."""
        for folder, folders, files in os.walk(self.folder):
            folders[:] = [name for name in folders if Path(folder, name) != self.folder / "build"]
            for file in (Path(folder, name) for name in files):
                if file.relative_to(self.folder).as_posix() not in self.originals:
                    file.unlink()

    def restore(self, name: str) -> None:
        """Writes a file as it was, if it differs: what has not changed is not to be built again."""
        copy = self.folder / name
        if not (copy.exists() and copy.read_bytes() == self.originals[name]):
            copy.parent.mkdir(parents=True, exist_ok=True)
            copy.write_bytes(self.originals[name])
            copy.chmod((PROJECT / name).stat().st_mode)

    def run(self, command: list[str], seconds: float, **options: Any) -> tuple[int, str]:
        """Returns the status of a program and what it wrote. Raises Stopped when the run is to end."""
        output = self.folder / "build/output.txt"
        # In a session of its own: ended by Ctrl-C as well, it would look as if it had failed.
        with output.open("wb") as file:
            process = subprocess.Popen(command, stdout=file, stderr=file, start_new_session=True, **options)
        try:
            # For a program that waits and takes no time. Counted, since a pause makes the clock jump.
            while process.poll() is None and seconds > 0 and not self.is_stopped:
                try:
                    process.wait(1)
                except subprocess.TimeoutExpired:
                    seconds -= 1
        finally:
            if process.poll() is None:
                os.killpg(process.pid, signal.SIGKILL)
            status = process.wait()
        if self.is_stopped:
            raise Stopped
        return status, output.read_text(errors="replace")

    def check(self, *command: str) -> None:
        status, output = self.run([*command], math.inf, cwd=self.folder)
        if status != 0:
            sys.exit(f"{output}mutants: '{' '.join(command)}' failed, see above.")

    def module_hash(self) -> str:
        return hashlib.sha256(next(self.build.glob(MODULE)).read_bytes()).hexdigest()

    def times_of(self, program: str) -> dict[str, float]:
        report = self.folder / "build/report.json"
        noticed = self.run_tests(program, "*", 600, f"--gtest_output=json:{report}")
        if noticed:
            sys.exit(f"mutants: expected the tests to pass without a change, {noticed} failed.")
        return {f"{suite['name']}.{test['name']}": float(test["time"].rstrip("s"))
                for suite in json.loads(report.read_text())["testsuites"]
                for test in suite["testsuite"]}

    def run_tests(self, program: str, tests: str, seconds: int, *options: str) -> str:
        """Returns which test failed or how the program ended, nothing when all tests passed."""
        limits = [f"--cpu={seconds}", f"--as={2 << 30}", f"--fsize={64 << 20}", "--core=0"]
        status, output = self.run(
            ["prlimit", *limits, f"tests/{program}", "--gtest_brief=1", *options],
            max(120, 40 * seconds), cwd=self.build,
            env=os.environ | {"GTEST_FAIL_FAST": "1", "GTEST_FILTER": tests})
        if status in (126, 127):
            sys.exit(f"{output}mutants: expected to run tests/{program}, see above.")
        failed = re.search(r"\[  FAILED  \] ([\w/.]+)", output)
        if status == 0:
            return ""
        return failed[1] if failed else f"status {status}"

    def stages(self, file: str) -> Iterator[tuple[str, str, int]]:
        """Yields what to run, what is likely to notice a change of the file and quick first."""
        text = "".join(path.read_text() for path in
                       (self.folder / "tests/unit" / Path(file).parent.name).glob("*.cpp"))
        near = {suite for suite in re.findall(r"^TEST(?:_F|_P)?\((\w+)", text, re.M)}
        parts: dict[tuple[str, str], list[str]] = {}
        for program, times in self.times.items():
            for test, seconds in times.items():
                is_near = test.split(".")[0].rpartition("/")[2] in near
                part = "slow" if seconds > 0.03 else "near" if is_near else "quick"
                parts.setdefault((program, part), []).append(test)
        order = [("unit_tests", "near"), ("module_tests", "quick"), ("unit_tests", "quick"),
                 ("unit_tests", "slow"), ("module_tests", "slow")]
        if file.endswith(".h"):
            # Takes the module only; unit_tests would be compiled anew.
            order.sort(key=lambda part: part[0])
        for program, part in order:
            tests = parts.get((program, part), [])
            if tests:
                seconds = sum(self.times[program][test] for test in tests)
                yield program, ":".join(tests), math.ceil(5 * seconds) + 2

    def made(self, target: str) -> bool:
        return self.run(["ninja", "-C", str(self.build), "-j1", target], math.inf)[0] == 0

    def attempt(self, mutant: Mutant) -> tuple[str, str]:
        """Returns what became of the mutant, and which test noticed it."""
        if mutant.file.endswith(".cpp") and mutant.file not in self.built:
            return "not of this system", ""
        if self.mutated not in ("", mutant.file):
            self.restore(self.mutated)
        self.mutated = mutant.file
        (self.folder / mutant.file).write_text(mutant.text)
        if not self.made("wybeta_module"):
            return "not compiled", ""
        if self.module_hash() == self.module:
            return "same module", ""
        for program, tests, seconds in self.stages(mutant.file):
            if program == "unit_tests" and not self.made(program):
                return "not compiled", ""
            noticed = self.run_tests(program, tests, seconds)
            if noticed:
                return "noticed", noticed
        return "unnoticed", ""


def try_all(mutants: list[Mutant], results: dict[str, str], jobs: int) -> None:
    """Tries the mutants, and adds what became of them to the results."""
    waiting, lock = iter(enumerate(mutants, 1)), threading.Lock()

    def work(tree: Tree) -> None:
        while True:
            with lock:
                count, mutant = next(waiting, (0, None))
            if mutant is None:
                return
            begin = time.monotonic()
            result, test = tree.attempt(mutant)
            with lock, (FOLDER / "results.tsv").open("a") as file:
                results[mutant.key()] = result
                file.write(f"{mutant.key()}\t{result}\t{test}\t{time.monotonic() - begin:.1f}\n")
                if count % 10 == 0:
                    print(f"{count} of {len(mutants)} tried", flush=True)

    if mutants:
        print(f"{len(mutants)} to try; all is built and tested without a change first", flush=True)
    trees = [Tree(FOLDER / f"tree{number}") for number in range(min(jobs, len(mutants)))]
    with ThreadPoolExecutor(max(1, len(trees))) as pool:
        try:
            list(pool.map(work, trees))
        except BaseException:
            for tree in trees:
                tree.is_stopped = True
            raise


@contextlib.contextmanager
def only_run() -> Iterator[None]:
    """Holds build/mutants for this run alone; ends the program where another has it."""
    FOLDER.mkdir(parents=True, exist_ok=True)
    with (FOLDER / "lock").open("w") as lock:
        try:
            fcntl.flock(lock, fcntl.LOCK_EX | fcntl.LOCK_NB)
        except BlockingIOError:
            sys.exit("mutants: expected no other run in build/mutants, found one.")
        yield


def results_so_far() -> dict[str, str]:
    """Returns what became of which mutant in the runs before."""
    (FOLDER / "results.tsv").touch()
    rows = [row.rsplit("\t", 3) for row in (FOLDER / "results.tsv").read_text().splitlines()]
    return {row[0]: row[1] for row in rows if len(row) == 4}


def positive(text: str) -> int:
    number = int(text)
    if number < 1:
        raise argparse.ArgumentTypeError(f"expected a number from 1 on, found {text}")
    return number


def main() -> int:
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("paths", nargs="*", default=["src"],
                        help="files or folders to change, src without any")
    parser.add_argument("--count", type=positive, default=100, help="how many at the most")
    parser.add_argument("--seed", type=int, default=1, help="which ones")
    parser.add_argument("--jobs", type=positive, default=1, help="how many at the same time")
    parser.add_argument("--again", action="store_true", help="try those anew that were not noticed")
    options = parser.parse_args()

    folders = [(PROJECT / path).resolve() for path in options.paths]
    files = sorted({file.relative_to(PROJECT).as_posix() for folder in folders
                    for file in ([folder] if folder.is_file() else folder.rglob("*"))
                    if file.suffix in (".cpp", ".h") and file.is_relative_to(PROJECT)})
    if not files:
        parser.error(f"expected files or folders with C++, found none in {' '.join(options.paths)}")
    found = [mutant for file in files for mutant in mutants_of(file, (PROJECT / file).read_text())]
    chosen = sorted(found, key=lambda mutant: mutant.place_in_line(options.seed))[:options.count]
    known = known_ones((PROJECT / "docs/mutants.md").read_text())
    mutants = [mutant for mutant in chosen
               if (mutant.file, mutant.before, mutant.after) not in known]
    # One file after another, and headers last: whatever is restored has to be compiled again.
    mutants.sort(key=lambda mutant: (mutant.file.endswith(".h"), mutant.file))

    open_ones = (None, "unnoticed") if options.again else (None,)
    try:
        with only_run():
            results = results_so_far()
            try_all([mutant for mutant in mutants if results.get(mutant.key()) in open_ones],
                    results, options.jobs)
    except KeyboardInterrupt:
        print("mutants: ended; the same command goes on from here.", file=sys.stderr)
        return 130

    for mutant in mutants:
        if results[mutant.key()] == "unnoticed":
            print(f"{mutant.file}:{mutant.line}\n  - {mutant.before}\n  + {mutant.after}")
    counts = Counter(results[mutant.key()] for mutant in mutants)
    print(f"{len(chosen)} of {len(found)} changes: {len(chosen) - len(mutants)} in docs/mutants.md, "
          + ", ".join(f"{count} {result}" for result, count in sorted(counts.items())))
    return 1 if counts["unnoticed"] else 0


if __name__ == "__main__":
    sys.exit(main())
