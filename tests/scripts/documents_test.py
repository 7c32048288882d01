# SPDX-License-Identifier: GPL-3.0-or-later
"""Tests that the documents tell the truth: what they show is run, what they name is looked for.

Needs the module, wysim and the test programs built by the preset "linux".
"""

import contextlib
import itertools
import json
import re
import shlex
import subprocess
import tempfile
import unittest
from pathlib import Path

from example_tables import CODE, examples

PROJECT = Path(__file__).resolve().parents[2]
BUILD = PROJECT / "build/linux"
WYSIM = "build/linux/wysim/wysim"
VERSION = re.search(r"project\(\w+ VERSION ([\d.]+)", (PROJECT / "CMakeLists.txt").read_text())[1]
GUIDES = ["README.md", "README.ja.md", "CONTRIBUTING.md"]
DOCUMENTS = subprocess.run(["git", "ls-files", "*.md"], cwd=PROJECT, check=True,
                           capture_output=True, text=True).stdout.split()

LINK = re.compile(r"\]\(([^)]+)\)")
TEST_NAME = re.compile(r"`([A-Z]\w*\.[A-Z]\w*)`")
PROMPT = "wysim> "
FENCED = re.compile(r"^```.*?^```$", re.MULTILINE | re.DOTALL)
# What stands for a name in a path or in a command.
PLACEHOLDER = re.compile(r"\b(TARGET|NAME)\b")
# What may stand in front of a command.
BEFORE_COMMAND = re.compile(r"\w+=.*|nohup|nice|-n|\d+")
PROGRAMS = {"make", "cmake", "ctest", "awk", "node", "run-clang-tidy-19", WYSIM,
            *(f"build/linux/tests/{name}_tests" for name in ("unit", "module", "wysim"))}


def read(document: str) -> str:
    return (PROJECT / document).read_text(encoding="utf-8")


def shown_blocks() -> list[list[str]]:
    """Returns the indented blocks of the documents, without the indentation."""
    blocks = [block for document in DOCUMENTS
              for block in re.findall(r"(?:^    .*\n)+", FENCED.sub("", read(document)), re.MULTILINE)]
    return [[line[4:] for line in block.splitlines()] for block in blocks]


def commands_of(block: list[str]) -> list[list[str]]:
    """Returns the words of each command of a block; some go on in the next line."""
    found, text = [], ""
    for line in block:
        text += line.removesuffix("\\") + "\n"
        if not line.endswith("\\"):
            with contextlib.suppress(ValueError):  # a quotation that is not closed yet
                found.append(shlex.split(text, comments=True))
                text = ""
    assert not text, f"expected a command, found no end of it: {text}"
    return found


def commands() -> list[list[str]]:
    """Returns the words of every command that the documents show, or name in their text."""
    shown = [command for block in shown_blocks() if not block[0].startswith("$ ")
             for command in commands_of(block)]
    named = [shlex.split(code) for document in DOCUMENTS for code in CODE.findall(read(document))
             if re.match(r"(make|cmake|ctest) |tools/\w", code)]
    return [list(itertools.dropwhile(BEFORE_COMMAND.fullmatch, words)) for words in shown + named]


def run(*command: object, folder: Path = PROJECT, typed: str = "",
        statuses: tuple[int, ...] = (0,)) -> str:
    """Runs a command that has to end with one of the statuses, and returns what it prints."""
    result = subprocess.run([str(word) for word in command], cwd=folder, input=typed.encode(),
                            stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
    output = result.stdout.decode()
    assert result.returncode in statuses, f"{shlex.join(map(str, command))} failed:\n{output}"
    return output


def track_of_empty_notes(count: int) -> dict:
    notes = [{"start": start, "length": 1, "pitch": 60, "lyric": "", "typed": False}
             for start in range(count)]
    return {"format": "wysim song 1", "title": "", "beats": 4, "beatType": 4, "pickup": 0,
            "tracks": [{"name": "", "notes": notes}]}


def built_tests() -> set[str]:
    """Returns the names of all tests of the test programs, those of a family without its cases."""
    names = set()
    for program in ("unit_tests", "module_tests", "wysim_tests"):
        for line in run(f"tests/{program}", "--gtest_list_tests", folder=BUILD).splitlines():
            if not line.startswith(" "):
                suite = line.split(".")[0].rpartition("/")[2]
            else:
                names.add(f"{suite}.{re.split('[ /]', line.strip())[0]}")
    return names


class DocumentTest(unittest.TestCase):
    def setUp(self) -> None:
        """Makes a folder to run commands in, where the paths of the documents lead to the files."""
        scratch = tempfile.TemporaryDirectory()
        self.addCleanup(scratch.cleanup)
        self.folder = Path(scratch.name)
        for name in ("build", "wysim"):
            (self.folder / name).symlink_to(PROJECT / name)
        (self.folder / "docs").mkdir()


class Examples(DocumentTest):
    def test_give_in_the_module_what_their_tables_say(self) -> None:
        rows = examples("README.md") + examples("README.ja.md")
        (self.folder / "song.json").write_text(json.dumps(track_of_empty_notes(12)))
        script = "".join(f"type 1 {typed}\nsave {number}.json\nundo\n"
                         for number, (typed, _) in enumerate(rows))
        run(WYSIM, "song.json", "--script", "-", folder=self.folder, typed=script)
        for number, (typed, carried) in enumerate(rows):
            song = json.loads((self.folder / f"{number}.json").read_text(encoding="utf-8"))
            lyrics = [note["lyric"] for note in song["tracks"][0]["notes"] if note["lyric"]]
            self.assertEqual(lyrics, carried, f"typed: {typed}")

    def test_are_the_same_in_both_languages(self) -> None:
        self.assertEqual(examples("README.ja.md"), examples("README.md"))

    def test_are_every_row_that_begins_with_a_typed_lyric(self) -> None:
        for document in ("README.md", "README.ja.md"):
            rows = re.findall(r"^\| `", read(document), re.MULTILINE)
            self.assertGreater(len(rows), 30)
            self.assertEqual(len(rows), len(examples(document)))


class Commands(DocumentTest):
    def test_of_make_are_targets_of_the_makefile(self) -> None:
        for command in {tuple(command) for command in commands() if command[0] == "make"}:
            # What make says of a folder for which it has no rule.
            self.assertNotIn("Nothing to be done", run("make", "-n", *command[1:]))

    def test_of_wysim_succeed(self) -> None:
        for command in commands():
            if command[0] == WYSIM:
                run(*command, folder=self.folder)

    def test_of_other_kinds_are_scripts_of_the_project(self) -> None:
        scripts = {f"tools/{path.name}" for path in (PROJECT / "tools").iterdir()}
        self.assertEqual({command[0] for command in commands()} - PROGRAMS - scripts, set())

    def test_name_presets(self) -> None:
        presets = {preset["name"] for preset in
                   json.loads(read("CMakePresets.json"))["configurePresets"]
                   if not preset.get("hidden")}
        named = {after for command in commands() for word, after in itertools.pairwise(command)
                 if word in ("--preset", "tools/build.sh")}
        self.assertGreater(len(named), 3)
        self.assertEqual(named - presets, set())

    def test_print_what_a_session_shows(self) -> None:
        sessions = [block for block in shown_blocks() if block[0].startswith("$ ")]
        self.assertTrue(sessions)
        for command, *shown in sessions:
            typed = "".join(line.removeprefix(PROMPT) + "\n"
                            for line in shown if line.startswith(PROMPT))
            # Without a terminal there is no hint, and the typed lines are told with another mark.
            expected = [re.sub(f"^{PROMPT}", "> ", line)
                        for line in shown if not line.startswith("'help' lists")]
            # What is shown may also tell of words that are left.
            output = run(*shlex.split(command)[1:], folder=self.folder, typed=typed,
                         statuses=(0, 3))
            self.assertEqual(output.splitlines(), expected)


class Picture(DocumentTest):
    def test_is_what_the_simulator_draws(self) -> None:
        run(WYSIM, "wysim/songs/two-bars.json", "--svg", "docs/hello-sakura.svg",
            folder=self.folder)
        drawn = (self.folder / "docs/hello-sakura.svg").read_bytes()
        self.assertTrue(drawn == (PROJECT / "docs/hello-sakura.svg").read_bytes())


class Names(unittest.TestCase):
    def test_of_tests_are_those_of_built_tests(self) -> None:
        named = {name for document in DOCUMENTS for name in TEST_NAME.findall(read(document))}
        self.assertGreater(len(named), 20)
        self.assertEqual(named - built_tests(), set())

    def test_of_files_lead_to_files(self) -> None:
        words = [word for document in DOCUMENTS for code in CODE.findall(read(document))
                 for word in code.split()]
        words += [word for command in commands() for word in command]
        folders = {path.name for path in PROJECT.iterdir() if path.is_dir()} - {"build", "dist"}
        paths = {word for word in words
                 if re.fullmatch(r"[\w./-]+", word) and word.partition("/")[0] in folders
                 and not PLACEHOLDER.search(word)}
        self.assertEqual({path for path in paths if not (PROJECT / path).exists()}, set())

    def test_of_packages_bear_the_version(self) -> None:
        name = f"wy-beta-{VERSION}-windows-x64"
        for document in ("README.md", "README.ja.md"):
            packages = set(re.findall(r"wy-beta-[\w.-]+", read(document)))
            self.assertEqual(packages, {f"{name}.zip", f"{name}-setup.exe"})

    def test_in_links_lead_to_files(self) -> None:
        # In a release, the page lies beside the documents.
        links = [(PROJECT / document).parent / link
                 for document in DOCUMENTS for link in LINK.findall(read(document))
                 if link != "try-wy-beta.html"]
        self.assertTrue(links)
        self.assertEqual([link for link in links if not link.is_file()], [])


class Changelog(unittest.TestCase):
    def test_begins_with_this_version_and_goes_back_in_time(self) -> None:
        headings = re.findall(r"^## (.*)$", read("CHANGELOG.md"), re.MULTILINE)
        # What is done since the last release may stand first.
        if headings[0] == "[Unreleased]":
            headings = headings[1:]
        released = [re.fullmatch(r"\[([\d.]+)\] - (\d{4}-\d\d-\d\d)", line) for line in headings]
        self.assertTrue(all(released), headings)
        self.assertEqual(released[0][1], VERSION)
        dates = [heading[2] for heading in released]
        self.assertEqual(dates, sorted(dates, reverse=True))

    def test_tells_changes_of_known_kinds(self) -> None:
        kinds = {"Added", "Changed", "Deprecated", "Removed", "Fixed", "Security"}
        found = set(re.findall(r"^### (.*)$", read("CHANGELOG.md"), re.MULTILINE))
        self.assertTrue(found)
        self.assertEqual(found - kinds, set())


if __name__ == "__main__":
    unittest.main()
