# SPDX-License-Identifier: GPL-3.0-or-later
"""Tests of the setup program: installs, replaces and removes under Wine, in a prefix of its own.

Needs what lies packed in the folder "package" of the build.
"""

import contextlib
import os
import re
import shutil
import struct
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
BUILD = Path(os.environ["WYBETA_BUILD"])
SETUP = BUILD / "package" / f"{NAME}-setup.exe"

DEFAULT_FOLDER = r"C:\Program Files\Common Files\VST3"
PROGRAM_FOLDER = r"C:\Program Files\WY Beta"
OWN_FOLDER = r"C:\歌うもの\My VST 3 files"
TEXTS = ["LICENSE.txt", "README.ja.txt", "README.txt", "THIRD-PARTY-NOTICES.txt"]
ENTRY = r"HKLM\Software\Microsoft\Windows\CurrentVersion\Uninstall\WY Beta"

DONE, CANNOT_WRITE, IN_USE, NEWER_IS_THERE = 0, 2, 3, 4

# Where the prefix of Wine lies, and the programs of the zip file.
scratch = Path()
prefix = Path()


def copy_prefix(filled: Path, copy: Path) -> None:
    """Copies a prefix that nothing was installed into. What a program may write to is copied, the
    many files of Wine's own are linked."""
    def link_or_copy(source: str, target: str) -> None:
        if source.endswith((".dll", ".exe", ".drv", ".sys", ".ttf")):
            os.link(source, target)
        else:
            shutil.copy2(source, target)

    shutil.copytree(filled, copy, symlinks=True, copy_function=link_or_copy)


def setUpModule() -> None:
    global scratch, prefix
    wine("cmd", "/c", "exit")
    # Beside the filled prefix, so that files can be linked.
    scratch = Path(tempfile.mkdtemp(prefix="setup-", dir=PROJECT / "build"))
    unittest.addModuleCleanup(shutil.rmtree, scratch, ignore_errors=True)
    copy_prefix(PROJECT / "build/wine", scratch / "wine")
    prefix = scratch / "wine"
    unittest.addModuleCleanup(lambda: (wine_server("--kill"), wine_server("--wait")))
    # Kept running, since it would end and start again between the programs.
    wine_server("--persistent")
    with zipfile.ZipFile(BUILD / "package" / f"{NAME}.zip") as archive:
        archive.extractall(scratch)


def wine_server(option: str) -> None:
    """Tells Wine's server of the prefix to do something."""
    server = shutil.which("wineserver", path=f"/usr/lib/wine:{os.environ['PATH']}")
    subprocess.run([server, option], env={**os.environ, "WINEPREFIX": str(prefix)})


def command_line(*words: object) -> list[str]:
    return [str(PROJECT / "tools/wine.sh"), *map(str, words)]


def environment() -> dict[str, str]:
    return {**os.environ, "WYBETA_WINE_PREFIX": str(prefix)} if prefix.parts else dict(os.environ)


def wine(*words: object, typed: str = "") -> tuple[int, str]:
    """Runs a program in the prefix; returns its exit status and what it prints. It prints to a file,
    since parts of Wine that it starts would hold a pipe open for longer than it runs."""
    with tempfile.TemporaryFile() as output:
        status = subprocess.run(command_line(*words), env=environment(), input=typed.encode(),
                                stdout=output, stderr=output, timeout=120).returncode
        output.seek(0)
        return status, output.read().decode()


def path_of(windows_path: str) -> Path:
    """Returns where a file of drive C lies on the build machine."""
    return prefix / "drive_c" / windows_path.removeprefix("C:\\").replace("\\", "/")


def last_word(option: str) -> list[str]:
    """Returns the words of an option that setup wants without quotation marks, at the end."""
    return option.split(" ")


def install(*options: str, folder: str = "") -> int:
    """Installs silently, and returns the exit status."""
    named = last_word(f"/D={folder}") if folder else []
    status, output = wine(SETUP, "/S", *options, *named)
    assert status != 1, f"expected setup to run to its end, found it cancelled: {output}"
    return status


def uninstall() -> int:
    """Removes silently what is installed, and returns the exit status. Without the last option, the
    uninstaller would go on in a copy of itself for which nobody waits."""
    copy = scratch / "uninstall.exe"
    shutil.copy2(path_of(PROGRAM_FOLDER) / "uninstall.exe", copy)
    return wine(copy, "/S", *last_word(f"_?={PROGRAM_FOLDER}"))[0]


def wait_until(condition) -> None:
    end = time.monotonic() + 60
    while not condition():
        assert time.monotonic() < end, "expected it within a minute"
        time.sleep(0.02)


def entry() -> dict[str, str | int]:
    """Returns what Windows knows under Apps; empty when there is nothing."""
    file = scratch / "entry.reg"
    file.unlink(missing_ok=True)
    wine("reg", "export", ENTRY, f"Z:{file}", "/y")
    if not file.exists():
        return {}
    values = re.findall(r'^"(\w+)"=(?:"(.*)"|dword:(\w+))$', file.read_text("utf-16"), re.MULTILINE)
    return {name: int(number, 16) if number else re.sub(r"\\(.)", r"\1", text)
            for name, text, number in values}  # fmt: skip


def files_on_drive() -> set[str]:
    """Returns all files and folders of drive C but Wine's own, and those that are there for a while,
    as the copy in which an uninstaller runs."""
    drive = prefix / "drive_c"
    folders = [folder for folder in drive.iterdir() if folder.name != "windows"]
    paths = {path for folder in folders for path in [folder, *folder.rglob("*")]}
    names = {path.relative_to(drive).as_posix() for path in paths}
    return {name for name in names if "/Temp" not in name and "/~nsu" not in name}


def module() -> bytes:
    return (scratch / NAME / "WyBeta.vst3").read_bytes()


def module_of_version(major: int, minor: int, patch: int) -> bytes:
    """Returns the module with another version in its resource."""
    with pefile.PE(data=module()) as file:
        place = file.VS_FIXEDFILEINFO[0].get_field_absolute_offset("FileVersionMS")
    data = bytearray(module())
    struct.pack_into("<HHHH", data, place, minor, major, 0, patch)
    return bytes(data)


def put(folder: str, data: bytes) -> Path:
    """Puts a module file into a folder by hand."""
    path_of(folder).mkdir(parents=True, exist_ok=True)
    file = path_of(folder) / "WyBeta.vst3"
    file.write_bytes(data)
    return file


@contextlib.contextmanager
def open_editor(folder: str):
    """An editor that has loaded the module from a folder, until the end of the block."""
    sign = scratch / "loaded.json"
    sign.unlink(missing_ok=True)
    words = command_line(scratch / NAME / "wysim.exe", "--module", folder + r"\WyBeta.vst3")
    with subprocess.Popen(words, env=environment(), stdin=subprocess.PIPE,
                          stdout=subprocess.DEVNULL) as editor:  # fmt: skip
        editor.stdin.write(f"save Z:{sign}\n".encode())
        editor.stdin.flush()
        wait_until(sign.exists)
        yield
        editor.stdin.close()
        assert editor.wait(60) == 0


class SetupTest(unittest.TestCase):
    """Begins and ends with nothing installed."""

    folder = DEFAULT_FOLDER

    def setUp(self) -> None:
        self.files_before = files_on_drive()
        self.addCleanup(self.remove_all)

    def remove_all(self) -> None:
        if (path_of(PROGRAM_FOLDER) / "uninstall.exe").exists():
            uninstall()
        for folder in (DEFAULT_FOLDER, OWN_FOLDER):
            shutil.rmtree(path_of(folder), ignore_errors=True)
        shutil.rmtree(path_of(PROGRAM_FOLDER), ignore_errors=True)
        shutil.rmtree(path_of(OWN_FOLDER).parent, ignore_errors=True)

    def install(self, *options: str) -> int:
        return install(*options, folder="" if self.folder == DEFAULT_FOLDER else self.folder)

    def assert_installed(self, folder: str) -> None:
        self.assertEqual((path_of(folder) / "WyBeta.vst3").read_bytes(), module())
        self.assertEqual(sorted(path.name for path in path_of(PROGRAM_FOLDER).iterdir()),
                         [*TEXTS, "uninstall.exe"])
        self.assertEqual(entry().get("InstallLocation"), folder)

    def assert_nothing_is_there(self) -> None:
        self.assertEqual(files_on_drive() - self.files_before, set())
        self.assertEqual(entry(), {})


class InDefaultFolder(SetupTest):
    def test_the_module_divides_a_lyric_once_it_is_installed(self) -> None:
        self.assertEqual(self.install(), DONE)
        self.assert_installed(self.folder)
        status, output = wine(scratch / NAME / "wysim.exe", "--module",
                              self.folder + r"\WyBeta.vst3", typed="type 1 good morning\n")
        self.assertEqual(status, 0)
        self.assertIn('"good morning[g uh d]"', output)

    def test_an_older_version_is_replaced(self) -> None:
        put(self.folder, module_of_version(3, 0, 2))
        self.assertEqual(self.install(), DONE)
        self.assert_installed(self.folder)

    def test_the_same_version_is_replaced_and_the_folder_goes_with_it_in_the_end(self) -> None:
        self.assertEqual(self.install(), DONE)
        self.assertEqual(self.install(), DONE)
        self.assert_installed(self.folder)
        self.assertEqual(uninstall(), DONE)
        self.assert_nothing_is_there()

    def test_a_file_that_is_no_module_is_replaced(self) -> None:
        put(self.folder, b"cut off")
        self.assertEqual(self.install(), DONE)
        self.assert_installed(self.folder)

    def test_a_newer_version_stays_unless_an_option_asks_to_replace_it(self) -> None:
        for newer in ((3, 0, 4), (3, 1, 0), (4, 0, 0)):
            file = put(self.folder, module_of_version(*newer))
            files = files_on_drive()
            self.assertEqual(self.install(), NEWER_IS_THERE)
            self.assertEqual(file.read_bytes(), module_of_version(*newer))
            self.assertEqual(files_on_drive(), files)
        self.assertEqual(entry(), {})
        self.assertEqual(self.install("/DOWNGRADE"), DONE)
        self.assert_installed(self.folder)

    def test_nothing_is_written_while_an_editor_uses_the_module(self) -> None:
        file = put(self.folder, module_of_version(3, 0, 2))
        files = files_on_drive()
        with open_editor(self.folder):
            self.assertEqual(self.install(), IN_USE)
        self.assertEqual(file.read_bytes(), module_of_version(3, 0, 2))
        self.assertEqual(files_on_drive(), files)
        self.assertEqual(entry(), {})
        self.assertEqual(self.install(), DONE)

    def test_nothing_is_removed_while_an_editor_uses_the_module(self) -> None:
        self.assertEqual(self.install(), DONE)
        with open_editor(self.folder):
            self.assertEqual(uninstall(), IN_USE)
        self.assert_installed(self.folder)

    def test_nothing_is_left_behind_when_it_is_removed(self) -> None:
        self.assertEqual(self.install(), DONE)
        self.assertEqual(uninstall(), DONE)
        self.assert_nothing_is_there()

    def test_nothing_else_goes_when_it_is_removed(self) -> None:
        others = [path_of(self.folder) / "Other.vst3", path_of(PROGRAM_FOLDER) / "notes.txt"]
        self.assertEqual(self.install(), DONE)
        for other in others:
            other.write_bytes(b"of someone else")
        self.assertEqual(uninstall(), DONE)
        self.assertEqual({path for path in path_of(self.folder).iterdir()}, {others[0]})
        self.assertEqual({path for path in path_of(PROGRAM_FOLDER).iterdir()}, {others[1]})
        self.assertEqual(entry(), {})

    def test_a_folder_that_was_there_before_stays(self) -> None:
        path_of(self.folder).mkdir(parents=True)
        self.assertEqual(self.install(), DONE)
        self.assertEqual(uninstall(), DONE)
        self.assertEqual(list(path_of(self.folder).iterdir()), [])


class InFolderOfOnesOwn(InDefaultFolder):
    """The same in a folder with spaces and Japanese letters."""

    folder = OWN_FOLDER

    def test_the_folder_is_remembered(self) -> None:
        self.assertEqual(self.install(), DONE)
        put(self.folder, module_of_version(3, 0, 2))
        self.assertEqual(install(), DONE)
        self.assert_installed(self.folder)

    def test_the_module_moves_when_another_folder_is_chosen(self) -> None:
        self.assertEqual(self.install(), DONE)
        self.assertEqual(install(folder=DEFAULT_FOLDER), DONE)
        self.assert_installed(DEFAULT_FOLDER)
        self.assertFalse(path_of(self.folder).parent.exists())

    def test_the_module_does_not_move_while_an_editor_uses_it(self) -> None:
        self.assertEqual(self.install(), DONE)
        with open_editor(self.folder):
            self.assertEqual(install(folder=DEFAULT_FOLDER), IN_USE)
        self.assert_installed(self.folder)
        self.assertFalse(path_of(DEFAULT_FOLDER).exists())


class Setup(SetupTest):
    def test_shows_under_apps_what_is_installed(self) -> None:
        self.assertEqual(install(), DONE)
        shown = entry()
        uninstaller = PROGRAM_FOLDER + r"\uninstall.exe"
        self.assertEqual(shown["DisplayName"], "WY Beta")
        self.assertEqual(shown["DisplayVersion"], VERSION)
        self.assertEqual(shown["UninstallString"], f'"{uninstaller}"')
        size = sum(path.stat().st_size for folder in (DEFAULT_FOLDER, PROGRAM_FOLDER)
                   for path in path_of(folder).iterdir())  # fmt: skip
        self.assertAlmostEqual(shown["EstimatedSize"], size / 1024, delta=200)

    def test_is_undone_by_the_command_that_windows_knows(self) -> None:
        self.assertEqual(install(), DONE)
        command = entry()["QuietUninstallString"]
        self.assertEqual(command, f'"{PROGRAM_FOLDER}\\uninstall.exe" /S')
        wine(PROGRAM_FOLDER + r"\uninstall.exe", "/S")
        wait_until(lambda: not path_of(PROGRAM_FOLDER).exists() and not entry())
        self.assert_nothing_is_there()

    def test_gives_up_without_a_trace_where_it_cannot_write(self) -> None:
        file = path_of(r"C:\taken")
        file.write_bytes(b"no folder")
        self.addCleanup(file.unlink)
        self.files_before = files_on_drive()
        for folder in (r"C:\taken\VST3", r"Q:\VST3"):
            self.assertEqual(install(folder=folder), CANNOT_WRITE)
            self.assert_nothing_is_there()

    def test_gives_up_without_a_trace_where_a_folder_has_the_name_of_the_module(self) -> None:
        bundle = path_of(DEFAULT_FOLDER) / "WyBeta.vst3"
        bundle.mkdir(parents=True)
        self.files_before = files_on_drive()
        self.assertEqual(install(), CANNOT_WRITE)
        self.assert_nothing_is_there()
        self.assertTrue(bundle.exists())

    def test_is_of_this_version_and_asks_for_the_rights_of_an_administrator(self) -> None:
        with pefile.PE(SETUP) as file:
            texts = file.FileInfo[0][0].StringTable[0].entries
        self.assertEqual(texts[b"ProductName"], b"WY Beta")
        self.assertEqual(texts[b"ProductVersion"], VERSION.encode())
        self.assertIn(b'level="requireAdministrator"', SETUP.read_bytes())

    def test_installs_texts_that_any_windows_program_shows_in_lines(self) -> None:
        self.assertEqual(install(), DONE)
        for name in TEXTS:
            text = (path_of(PROGRAM_FOLDER) / name).read_bytes()
            self.assertEqual(text.count(b"\r\n"), text.count(b"\n"), name)
            source = PROJECT / name.replace(".txt", ".md" if name.startswith("README") else "")
            self.assertEqual(text.replace(b"\r", b""), source.read_bytes(), name)


if __name__ == "__main__":
    unittest.main()
