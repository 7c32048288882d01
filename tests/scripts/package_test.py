# SPDX-License-Identifier: GPL-3.0-or-later
"""Tests of what users get: packs it twice, in this folder and in a copy, and looks into the package.

Needs the Windows test programs built by the preset "windows".
"""

import os
import re
import shutil
import subprocess
import tempfile
import time
import unittest
import zipfile
from pathlib import Path

import pefile

PROJECT = Path(__file__).resolve().parents[2]
VERSION = re.search(r"project\(\w+ VERSION ([\d.]+)", (PROJECT / "CMakeLists.txt").read_text())[1]
NAME = f"wy-beta-{VERSION}-windows-x64"
FILES = ["LICENSE", "README.ja.md", "README.md", "THIRD-PARTY-NOTICES", "WyBeta.vst3"]
SDK = Path(os.environ["WYBETA_SDK"])
DATE = 1700000000

# Where the packages of this run lie, and the copy of the project.
scratch = Path()


def copy_project(copy: Path) -> None:
    """Copies all but what is built. What others made is reached from the copy by other paths too."""
    not_sources = shutil.ignore_patterns("__pycache__")
    built = {"build", "dist", ".deps", ".git"}
    for item in PROJECT.iterdir():
        if item.is_dir() and item.name not in built:
            shutil.copytree(item, copy / item.name, ignore=not_sources)
        elif item.is_file():
            shutil.copy2(item, copy)
    (copy / ".deps").mkdir()
    (copy / ".deps/vst3sdk").symlink_to(SDK)
    for library in ("pugixml", "zlib"):
        (copy / ".deps" / library).symlink_to(PROJECT / ".deps" / library)


def pack(project: Path, folder: Path, **environment: str) -> Path:
    """Runs the packing script of a project; returns the package."""
    environment = {
        **{name: value for name, value in os.environ.items() if name != "SOURCE_DATE_EPOCH"},
        "VST3_SDK_DIR": str(project / ".deps/vst3sdk" if project != PROJECT else SDK),
        **environment,
    }
    script = [project / "tools/dist.sh", folder]
    subprocess.run(script, env=environment, check=True, stdout=subprocess.DEVNULL)
    return folder / f"{NAME}.zip"


def setUpModule() -> None:
    global scratch
    scratch = Path(tempfile.mkdtemp(prefix="wy-beta-"))
    unittest.addModuleCleanup(shutil.rmtree, scratch)
    copy = scratch / "in-a-folder-with-a-longer-path/copy"
    copy.mkdir(parents=True)
    copy_project(copy)
    pack(PROJECT, scratch / "here", SOURCE_DATE_EPOCH=str(DATE))
    pack(copy, scratch / "there", SOURCE_DATE_EPOCH=str(DATE))
    pack(copy, scratch / "no-history", GIT_DIR=os.devnull)


class Package(unittest.TestCase):
    """What `make dist` makes."""

    def setUp(self) -> None:
        self.path = scratch / "here" / f"{NAME}.zip"
        self.archive = zipfile.ZipFile(self.path)
        self.addCleanup(self.archive.close)

    def test_it_has_the_same_bytes_when_made_in_another_folder(self) -> None:
        there = scratch / "there" / self.path.name
        self.assertTrue(self.path.read_bytes() == there.read_bytes(), "found different bytes")

    def test_it_holds_the_module_and_the_texts_in_one_folder(self) -> None:
        self.assertEqual(self.archive.namelist(), [f"{NAME}/{file}" for file in FILES])

    def test_its_texts_are_those_of_the_project(self) -> None:
        for file in FILES[:-1]:
            self.assertEqual(self.archive.read(f"{NAME}/{file}"), (PROJECT / file).read_bytes(), file)

    def test_its_files_can_be_read_by_all_and_bear_the_date_that_was_given(self) -> None:
        for entry in self.archive.infolist():
            self.assertEqual(entry.external_attr >> 16, 0o100644, entry.filename)
            self.assertEqual(entry.date_time, time.gmtime(DATE)[:6], entry.filename)

    def test_its_files_bear_a_fixed_date_where_there_is_no_history(self) -> None:
        with zipfile.ZipFile(scratch / "no-history" / self.path.name) as archive:
            dates = {entry.date_time for entry in archive.infolist()}
        self.assertEqual(dates, {(2026, 1, 1, 0, 0, 0)})

    def test_its_files_name_no_folder_of_the_machine_that_built_them(self) -> None:
        folders = {PROJECT, scratch, SDK, Path.home(), Path("/usr"), Path("/tmp")}
        for name in self.archive.namelist():
            data = self.archive.read(name)
            for folder in folders:
                self.assertFalse(f"{folder}/".encode() in data, f"found {folder} in {name}")


class PackedModule(unittest.TestCase):
    """The module in the package, once it is unpacked."""

    def setUp(self) -> None:
        with zipfile.ZipFile(scratch / "here" / f"{NAME}.zip") as archive:
            archive.extractall(scratch / "unpacked")
        self.path = scratch / "unpacked" / NAME / "WyBeta.vst3"
        self.file = pefile.PE(self.path)
        self.addCleanup(self.file.close)

    def test_it_has_no_symbol_table(self) -> None:
        self.assertEqual(self.file.FILE_HEADER.NumberOfSymbols, 0)

    def test_it_bears_the_date_that_was_given(self) -> None:
        self.assertEqual(self.file.FILE_HEADER.TimeDateStamp, DATE)

    def test_it_does_what_the_module_that_was_built_does(self) -> None:
        tests = "Factory.*:VersionResource.*:Dividing.*:Story.*"
        run = subprocess.run(
            ["tools/wine.sh", "build/windows/tests/module_tests.exe", f"--module={self.path}",
             f"--gtest_filter={tests}", "--gtest_brief=1"],
            cwd=PROJECT, capture_output=True, text=True,
        )  # fmt: skip
        self.assertEqual(run.returncode, 0, run.stdout)
        self.assertIn("PASSED", run.stdout)


if __name__ == "__main__":
    unittest.main()
