# SPDX-License-Identifier: GPL-3.0-or-later
"""Tests of what users get, which lies packed in the folder "package" of the build: looks into it, and
packs it a second time in a copy of the project.

Needs the Windows test programs built by the preset "windows".
"""

import hashlib
import json
import os
import re
import shutil
import subprocess
import sys
import tempfile
import time
import unittest
import zipfile
from pathlib import Path

import pefile

PROJECT = Path(__file__).resolve().parents[2]
VERSION = re.search(r"project\(\w+ VERSION ([\d.]+)", (PROJECT / "CMakeLists.txt").read_text())[1]
NAME = f"wy-beta-{VERSION}-windows-x64"
FILES = ["CHANGELOG.md", "LICENSE", "README.ja.md", "README.md", "THIRD-PARTY-NOTICES",
         "WyBeta.vst3", "try-wy-beta.html", "wysim.exe"]  # fmt: skip
PROGRAMS = ["WyBeta.vst3", "wysim.exe"]
RELEASE = [f"{NAME}-setup.exe", f"{NAME}.cdx.json", f"{NAME}.zip"]
SDK = Path(os.environ["WYBETA_SDK"])
PACKAGE = Path(os.environ["WYBETA_BUILD"]) / "package"
# That of the environment in which the package was made.
DATE = 1700000000

# The copy of the project. It stays, so that only what has changed since is built in it again.
COPY = PACKAGE.with_name("package-copy") / "in-a-folder-with-a-longer-path"

# Where the packages of the copy lie, and what is unpacked.
scratch = Path()


def read(file: str) -> str:
    return (PROJECT / file).read_text(encoding="utf-8")


def copy_project() -> None:
    """Copies all but what is built. What others made is reached from the copy by other paths too."""
    COPY.mkdir(parents=True, exist_ok=True)
    for item in COPY.iterdir():
        if item.is_file():
            item.unlink()
        elif item.name != "build":
            shutil.rmtree(item)
    not_sources = shutil.ignore_patterns("__pycache__")
    for item in PROJECT.iterdir():
        if item.is_file():
            shutil.copy2(item, COPY)
        elif item.name not in {"build", "dist", ".deps", ".git"}:
            shutil.copytree(item, COPY / item.name, ignore=not_sources)
    (COPY / ".deps").mkdir()
    (COPY / ".deps/vst3sdk").symlink_to(SDK)
    for library in ("flite", "pugixml", "zlib"):
        (COPY / ".deps" / library).symlink_to(PROJECT / ".deps" / library)


def pack_copy(folder: Path, **environment: str) -> None:
    """Runs the packing script of the copy."""
    environment = {
        **{name: value for name, value in os.environ.items() if name != "SOURCE_DATE_EPOCH"},
        "VST3_SDK_DIR": str(COPY / ".deps/vst3sdk"),
        # To build the page anew would take longer than all else.
        "WYBETA_PAGE": str(PROJECT / "build/web/wy-beta.html"),
        **environment,
    }
    script = [COPY / "tools/dist.sh", folder]
    subprocess.run(script, env=environment, check=True, stdout=subprocess.DEVNULL)


def run_under_wine(*command: object, typed: str = "") -> str:
    """Runs a Windows program that has to succeed, and returns what it prints."""
    words = [str(word) for word in ("tools/wine.sh", *command)]
    result = subprocess.run(words, cwd=PROJECT, input=typed.encode(), stdout=subprocess.PIPE)
    output = result.stdout.decode().replace("\r", "")
    assert result.returncode == 0, f"{words} failed:\n{output}"
    return output


def setUpModule() -> None:
    global scratch
    scratch = Path(tempfile.mkdtemp(prefix="wy-beta-"))
    unittest.addModuleCleanup(shutil.rmtree, scratch)
    copy_project()
    pack_copy(scratch / "there", SOURCE_DATE_EPOCH=str(DATE))
    pack_copy(scratch / "no-history", GIT_DIR=os.devnull)
    with zipfile.ZipFile(PACKAGE / f"{NAME}.zip") as archive:
        archive.extractall(scratch / "unpacked")


class Release(unittest.TestCase):
    """What `make dist` makes."""

    def test_it_is_a_zip_file_a_setup_program_and_a_bill_of_materials(self) -> None:
        # Earlier versions may lie there as well.
        self.assertEqual(sorted(path.name for path in PACKAGE.glob(f"{NAME}*")), RELEASE)

    def test_it_has_the_same_bytes_when_made_in_another_folder(self) -> None:
        for name in [*RELEASE, "SHA256SUMS"]:
            here, there = PACKAGE / name, scratch / "there" / name
            self.assertTrue(here.read_bytes() == there.read_bytes(), f"found different {name}")

    def test_its_checksums_are_those_of_its_files(self) -> None:
        lines = (PACKAGE / "SHA256SUMS").read_text().splitlines()
        found = {name: checksum for checksum, name in (line.split("  ") for line in lines)}
        for name in RELEASE:
            data = (PACKAGE / name).read_bytes()
            self.assertEqual(found.pop(name), hashlib.sha256(data).hexdigest(), name)
        self.assertEqual(found, {})


class Zip(unittest.TestCase):
    """The zip file."""

    def setUp(self) -> None:
        self.archive = zipfile.ZipFile(PACKAGE / f"{NAME}.zip")
        self.addCleanup(self.archive.close)

    def test_it_holds_the_programs_and_the_texts_in_one_folder(self) -> None:
        self.assertEqual(self.archive.namelist(), [f"{NAME}/{file}" for file in FILES])

    def test_its_texts_are_those_of_the_project(self) -> None:
        for file in set(FILES) - {*PROGRAMS, "try-wy-beta.html"}:
            self.assertEqual(self.archive.read(f"{NAME}/{file}").decode(), read(file), file)

    def test_its_files_can_be_read_by_all_and_bear_the_date_that_was_given(self) -> None:
        for entry in self.archive.infolist():
            self.assertEqual(entry.external_attr >> 16, 0o100644, entry.filename)
            self.assertEqual(entry.date_time, time.gmtime(DATE)[:6], entry.filename)

    def test_its_files_bear_a_fixed_date_where_there_is_no_history(self) -> None:
        with zipfile.ZipFile(scratch / "no-history" / f"{NAME}.zip") as archive:
            dates = {entry.date_time for entry in archive.infolist()}
        self.assertEqual(dates, {(2026, 1, 1, 0, 0, 0)})

    def test_its_files_name_no_folder_of_the_machine_that_built_them(self) -> None:
        folders = {PROJECT, COPY, SDK, Path.home(), Path("/usr"), Path("/tmp")}
        for name in self.archive.namelist():
            data = self.archive.read(name)
            for folder in folders:
                self.assertFalse(f"{folder}/".encode() in data, f"found {folder} in {name}")


class Unpacked(unittest.TestCase):
    """The programs of the zip file, once it is unpacked."""

    def setUp(self) -> None:
        self.folder = scratch / "unpacked" / NAME

    def test_they_have_no_symbol_table_and_bear_the_date_that_was_given(self) -> None:
        for name in PROGRAMS:
            with pefile.PE(self.folder / name, fast_load=True) as file:
                self.assertEqual(file.FILE_HEADER.NumberOfSymbols, 0, name)
                self.assertEqual(file.FILE_HEADER.TimeDateStamp, DATE, name)

    def test_the_module_does_what_the_one_that_was_built_does(self) -> None:
        tests = "Factory.*:VersionResource.*:Dividing.*:Story.*"
        output = run_under_wine("build/windows/tests/module_tests.exe", "--gtest_brief=1",
                                f"--module={self.folder / 'WyBeta.vst3'}", f"--gtest_filter={tests}")
        self.assertIn("PASSED", output)

    def test_wysim_finds_the_module_beside_it_and_sings_its_example(self) -> None:
        output = run_under_wine(self.folder / "wysim.exe", typed="type 1 good morning\n")
        self.assertIn("Hello さくら: 1 track, 8 notes", output)
        self.assertIn('"good morning[g uh d]"', output)

    def test_wysim_tells_its_version_and_helps(self) -> None:
        wysim = self.folder / "wysim.exe"
        self.assertEqual(run_under_wine(wysim, "--version"), f"wysim {VERSION}\n")
        self.assertIn("compare", run_under_wine(wysim, "--help"))


class BillOfMaterials(unittest.TestCase):
    """The list of what others made."""

    def setUp(self) -> None:
        bill = json.loads((PACKAGE / f"{NAME}.cdx.json").read_text(encoding="utf-8"))
        self.release = bill["metadata"]["component"]
        self.components = {item["bom-ref"]: item for item in bill["components"]}

    def test_it_is_of_this_version(self) -> None:
        self.assertEqual((self.release["name"], self.release["version"]), ("WY Beta", VERSION))

    def test_it_lists_every_third_party_target_of_cmake(self) -> None:
        targets = re.findall(r"^ *add_(?:third_party|header_package)\((\w+)",
                             read("cmake/ThirdParty.cmake"), re.MULTILINE)
        self.assertIn("vst3sdk", targets)
        self.assertEqual(set(targets) - set(self.components), set())

    def test_it_lists_what_the_tools_add_and_the_dictionary(self) -> None:
        added = {"libstdc++", "mingw-w64", "winpthreads", "nsis", "cmudict", "zlib"}
        self.assertEqual(added - set(self.components), set())

    def test_it_names_the_versions_that_are_fetched(self) -> None:
        sdk = re.search(r"version=([\d.]+)", read("tools/fetch-sdk.sh"))[1]
        self.assertTrue(sdk.startswith(self.components["vst3sdk"]["version"]))
        libraries = read("tools/fetch-library.sh")
        for name in ("flite", "pugixml", "zlib"):
            version = re.search(rf"tarball={name}_([\d.]+\d)\.", libraries)[1]
            self.assertEqual(self.components[name]["version"], version)

    def test_its_entries_have_versions_licences_and_notices(self) -> None:
        notices = read("THIRD-PARTY-NOTICES")
        for item in self.components.values():
            self.assertRegex(item["version"], r"^\d+\.\d", item["name"])
            self.assertTrue(item["licenses"][0]["expression"], item["name"])
            self.assertIn(item["name"], notices)

    def test_it_is_not_written_for_a_library_of_which_nothing_is_known(self) -> None:
        (scratch / "third-party.tsv").write_text("unheard_of\t/usr/include\n")
        run = subprocess.run(
            [sys.executable, "tools/make_bom.py", VERSION, scratch / "third-party.tsv",
             scratch / "bom.json"], cwd=PROJECT, capture_output=True, text=True,
        )  # fmt: skip
        self.assertEqual(run.returncode, 1)
        self.assertIn("expected the third-party target 'unheard_of' in TARGETS", run.stderr)
        self.assertFalse((scratch / "bom.json").exists())


class Notices(unittest.TestCase):
    def test_are_those_of_the_sources(self) -> None:
        notices = " ".join(read("THIRD-PARTY-NOTICES").split())
        for file in (".deps/pugixml/LICENSE.md", ".deps/zlib/LICENSE"):
            # Without the heading.
            licence = " ".join(read(file).split("\n", 1)[1].split())
            self.assertIn(licence, notices, file)

    def test_have_the_licence_of_flite_as_a_collection(self) -> None:
        licences = " ".join(read(".deps/flite/COPYING").split())
        # Between what it says of itself and of single files.
        begin = licences.index("Language Technologies Institute")
        licence = licences[begin:licences.index(" All files within this distribution")]
        self.assertIn(licence, " ".join(read("THIRD-PARTY-NOTICES").split()))


if __name__ == "__main__":
    unittest.main()
