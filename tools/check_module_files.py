#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Tests of the two module files as they lie on the disk: format, exports, imports, dictionary text.

Usage: check_module_files.py LINUX_MODULE WINDOWS_MODULE --report FILE

The report is of the JSON form that GoogleTest writes and summarize_tests.py reads.

Exit status: 0 every test passed, 1 a test failed, 2 an argument is wrong.
"""

import argparse
import struct
import sys
import unittest
from collections.abc import Iterator
from pathlib import Path

import make_dictionary
import unittest_report

ENTRY_POINTS = ["ExitDll", "GetPluginFactory", "InitDll"]
LINUX_ENTRY_POINTS = ["ModuleEntry", "ModuleExit"]
SYSTEM_DLLS = {"kernel32.dll", "msvcrt.dll", "ole32.dll"}

DICTIONARY_START = b"!exclamation-point\t"
DICTIONARY_SIZE = make_dictionary.EXPECTED_FIGURES["bytes"]

# The files under test, by the system that they are for.
modules: dict[str, Path] = {}


class Image:
    """The bytes of a file."""

    def __init__(self, path: Path) -> None:
        self.data = path.read_bytes()

    def numbers(self, layout: str, offset: int) -> tuple[int, ...]:
        """Returns the numbers at an offset, laid out as `struct` says; the lowest byte is first."""
        return struct.unpack_from("<" + layout, self.data, offset)

    def text(self, offset: int) -> str:
        """Returns the zero-terminated text at an offset."""
        return self.data[offset : self.data.index(b"\0", offset)].decode("ascii")


class ElfFile(Image):
    """A shared library for Linux."""

    DYNAMIC_SYMBOLS = 11

    def defined_symbols(self) -> Iterator[str]:
        """Yields the names that the dynamic loader can find in the file."""
        for section in self.sections():
            _, kind, _, _, offset, size, link, _, _, entry_size = self.numbers("IIQQQQIIQQ", section)
            if kind != self.DYNAMIC_SYMBOLS:
                continue
            (names,) = self.numbers("Q", self.sections()[link] + 24)
            for symbol in range(offset + entry_size, offset + size, entry_size):
                name, _, _, defined_in = self.numbers("IBBH", symbol)
                if defined_in != 0:
                    yield self.text(names + name)

    def sections(self) -> range:
        """Returns the offsets of the section headers."""
        (first,) = self.numbers("Q", 40)
        size, count = self.numbers("HH", 58)
        return range(first, first + count * size, size)


class PeFile(Image):
    """A library for Windows. Addresses are counted from where the file is loaded."""

    EXPORTS, IMPORTS, DELAYED_IMPORTS = 0, 1, 13

    def header(self) -> int:
        """Returns the offset of the header, which begins with a signature."""
        return self.numbers("I", 0x3C)[0]

    def exports(self) -> tuple[list[str], int]:
        """Returns the names of the exports, and how many exports there are in all."""
        directory = self.offset(self.directory(self.EXPORTS))
        functions, named, _, names = self.numbers("IIII", directory + 20)
        addresses = self.numbers(f"{named}I", self.offset(names))
        return [self.text(self.offset(address)) for address in addresses], functions

    def imported_dlls(self) -> Iterator[str]:
        """Yields the names of the libraries that are loaded together with the file."""
        entry = self.offset(self.directory(self.IMPORTS))
        while name := self.numbers("I", entry + 12)[0]:
            yield self.text(self.offset(name))
            entry += 20

    def directory(self, index: int) -> int:
        """Returns the address of a directory, 0 when the file has none of this kind."""
        return self.numbers("I", self.header() + 24 + 112 + 8 * index)[0]

    def offset(self, address: int) -> int:
        """Returns where in the file the byte for an address lies."""
        (count,) = self.numbers("H", self.header() + 6)
        (optional_size,) = self.numbers("H", self.header() + 20)
        first = self.header() + 24 + optional_size
        for section in range(first, first + 40 * count, 40):
            _, start, size, offset = self.numbers("IIII", section + 8)
            if start <= address < start + size:
                return offset + address - start
        raise ValueError(f"expected the address {address:#x} in a section, found it in none")


class DictionaryTests:
    """What both modules have in common: the text of the pronunciation dictionary."""

    def dictionary_start(self) -> int:
        """Returns where the text begins; the test fails when it is not there."""
        start = self.file.data.find(DICTIONARY_START)
        self.assertGreaterEqual(start, 0, "expected the text in the file, found none")
        return start

    def test_it_holds_the_dictionary_text_once(self) -> None:
        self.assertEqual(self.file.data.count(DICTIONARY_START), 1)

    def test_its_dictionary_text_shows_every_figure(self) -> None:
        start = self.dictionary_start()
        text = self.file.data[start : start + DICTIONARY_SIZE]
        figures = make_dictionary.EXPECTED_FIGURES
        self.assertEqual(make_dictionary.wrong_figures(text, figures), [])

    def test_its_dictionary_text_is_followed_by_a_zero_byte(self) -> None:
        self.assertEqual(self.file.data[self.dictionary_start() + DICTIONARY_SIZE], 0)


class LinuxModule(DictionaryTests, unittest.TestCase):
    """The module for Linux."""

    def setUp(self) -> None:
        self.file = ElfFile(modules["linux"])

    def test_it_is_a_shared_library_for_64_bit_x86(self) -> None:
        self.assertEqual(self.file.data[:6], b"\x7fELF\x02\x01")
        self.assertEqual(self.file.numbers("HH", 16), (3, 62))

    def test_it_exports_its_five_entry_points_and_nothing_else(self) -> None:
        symbols = sorted(self.file.defined_symbols())
        self.assertEqual(symbols, sorted(ENTRY_POINTS + LINUX_ENTRY_POINTS))


class WindowsModule(DictionaryTests, unittest.TestCase):
    """The module for Windows."""

    def setUp(self) -> None:
        self.file = PeFile(modules["windows"])

    def test_it_is_a_library_for_64_bit_x86(self) -> None:
        header = self.file.header()
        self.assertEqual(self.file.data[:2], b"MZ")
        self.assertEqual(self.file.data[header : header + 4], b"PE\0\0")
        self.assertEqual(self.file.numbers("H", header + 4), (0x8664,))
        (characteristics,) = self.file.numbers("H", header + 22)
        self.assertTrue(characteristics & 0x2000, "expected a library, found a program")
        self.assertEqual(self.file.numbers("H", header + 24), (0x20B,))

    def test_it_exports_its_three_entry_points_and_nothing_else(self) -> None:
        names, count = self.file.exports()
        self.assertEqual(sorted(names), ENTRY_POINTS)
        self.assertEqual(count, len(ENTRY_POINTS))

    def test_it_imports_from_system_libraries_only(self) -> None:
        dlls = {name.lower() for name in self.file.imported_dlls()}
        self.assertIn("kernel32.dll", dlls)
        self.assertEqual(dlls - SYSTEM_DLLS, set())
        self.assertEqual(self.file.directory(self.file.DELAYED_IMPORTS), 0)


def main() -> int:
    """Reads the command line, runs the tests and writes the report; returns the exit status."""
    parser = argparse.ArgumentParser(description="Tests the two module files.")
    parser.add_argument("linux", type=Path, metavar="LINUX_MODULE")
    parser.add_argument("windows", type=Path, metavar="WINDOWS_MODULE")
    parser.add_argument("--report", type=Path, required=True, metavar="FILE")
    arguments = parser.parse_args()
    modules.update(linux=arguments.linux, windows=arguments.windows)
    return unittest_report.run(sys.modules[__name__], arguments.report)


if __name__ == "__main__":
    sys.exit(main())
