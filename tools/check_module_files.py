#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Tests of the two module files as they lie on the disk: format, exports, imports, dictionary text,
and what they do against someone who makes an editor run over a buffer.

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
    FOR_LOADER, STACK, READ_ONLY_ONCE_LOADED = 2, 0x6474E551, 0x6474E552
    EXECUTABLE = 1
    FLAGS, BIND_NOW = 30, 8

    def defined_symbols(self) -> list[str]:
        """Returns the names that the dynamic loader can find in the file."""
        return [name for name, is_defined in self.symbols() if is_defined]

    def needed_symbols(self) -> list[str]:
        """Returns the names that the dynamic loader has to find elsewhere."""
        return [name for name, is_defined in self.symbols() if not is_defined]

    def symbols(self) -> Iterator[tuple[str, bool]]:
        """Yields the names that the dynamic loader deals with, and whether the file defines them."""
        for section in self.sections():
            _, kind, _, _, offset, size, link, _, _, entry_size = self.numbers("IIQQQQIIQQ", section)
            if kind != self.DYNAMIC_SYMBOLS:
                continue
            (names,) = self.numbers("Q", self.sections()[link] + 24)
            for symbol in range(offset + entry_size, offset + size, entry_size):
                name, _, _, defined_in = self.numbers("IBBH", symbol)
                yield self.text(names + name), defined_in != 0

    def segments(self) -> dict[int, int]:
        """Returns the flags of the segments by their kinds."""
        return dict(self.numbers("II", header) for header in self.segment_headers())

    def loader_entries(self) -> dict[int, int]:
        """Returns what the file tells the dynamic loader, by tag."""
        for header in self.segment_headers():
            kind, _, offset, _, _, size = self.numbers("IIQQQQ", header)
            if kind == self.FOR_LOADER:
                return dict(self.numbers("QQ", entry) for entry in range(offset, offset + size, 16))
        return {}

    def segment_headers(self) -> range:
        """Returns the offsets of the segment headers."""
        (first,) = self.numbers("Q", 32)
        size, count = self.numbers("HH", 54)
        return range(first, first + count * size, size)

    def sections(self) -> range:
        """Returns the offsets of the section headers."""
        (first,) = self.numbers("Q", 40)
        size, count = self.numbers("HH", 58)
        return range(first, first + count * size, size)


class PeFile(Image):
    """A library for Windows. Addresses are counted from where the file is loaded."""

    EXPORTS, IMPORTS, RELOCATIONS, DELAYED_IMPORTS = 0, 1, 5, 13
    HIGH_ENTROPY_ADDRESS, ANY_ADDRESS, DATA_IS_NOT_CODE = 0x20, 0x40, 0x100
    RELOCATIONS_STRIPPED = 0x1
    ADDRESS_OF_64_BITS = 10

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

    def base(self) -> int:
        """Returns the address that the file is loaded at when it is free and may not vary."""
        return self.numbers("Q", self.header() + 24 + 24)[0]

    def characteristics(self) -> int:
        """Returns the flags that say what kind of file it is."""
        return self.numbers("H", self.header() + 22)[0]

    def time_stamp(self) -> int:
        """Returns when the file was made, in seconds since 1970; 0 when it does not say."""
        return self.numbers("I", self.header() + 8)[0]

    def loading_characteristics(self) -> int:
        """Returns the flags that say how the file may be loaded."""
        return self.numbers("H", self.header() + 24 + 70)[0]

    def loaded_size(self) -> int:
        """Returns how many bytes the file takes when it is loaded."""
        return self.numbers("I", self.header() + 24 + 56)[0]

    def relocations(self) -> Iterator[int]:
        """Yields where an address lies that changes with where the file is loaded."""
        block = self.offset(self.directory(self.RELOCATIONS))
        end = block + self.numbers("I", self.header() + 24 + 112 + 8 * self.RELOCATIONS + 4)[0]
        while block < end:
            page, size = self.numbers("II", block)
            for entry in self.numbers(f"{(size - 8) // 2}H", block + 8):
                # The rest only fills a block up.
                if entry >> 12 == self.ADDRESS_OF_64_BITS:
                    yield page + (entry & 0xFFF)
            block += size

    def symbols(self) -> set[str]:
        """Returns the names in the symbol table that the linker leaves for debuggers."""
        first, count = self.numbers("II", self.header() + 12)
        names = first + 18 * count
        symbols, index = set(), 0
        while index < count:
            symbol = first + 18 * index
            is_short, name = self.numbers("II", symbol)
            if is_short:
                symbols.add(self.data[symbol : symbol + 8].rstrip(b"\0").decode("ascii"))
            else:
                symbols.add(self.text(names + name))
            index += 1 + self.data[symbol + 17]
        return symbols

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

    def test_it_is_at_most_a_quarter_larger_than_the_dictionary_text(self) -> None:
        self.assertLessEqual(len(self.file.data), 1.25 * DICTIONARY_SIZE)


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

    def test_its_tables_of_addresses_are_read_only_once_it_is_loaded(self) -> None:
        self.assertIn(self.file.READ_ONLY_ONCE_LOADED, self.file.segments(), "found no such part")

    def test_it_finds_every_function_when_it_is_loaded_and_none_later(self) -> None:
        flags = self.file.loader_entries().get(self.file.FLAGS, 0)
        self.assertTrue(flags & self.file.BIND_NOW, f"found the flags {flags:#x}")

    def test_its_stack_cannot_be_executed(self) -> None:
        flags = self.file.segments()[self.file.STACK]
        self.assertFalse(flags & self.file.EXECUTABLE, f"found the flags {flags:#x}")

    def test_its_functions_guard_their_buffers(self) -> None:
        is_guarded = "__stack_chk_fail" in self.file.needed_symbols()
        self.assertTrue(is_guarded, "found no call for a broken guard")

    def test_it_calls_library_functions_that_check_the_sizes_of_buffers(self) -> None:
        # The SDK's code formats texts, so there are some to find.
        symbols = [name for name in self.file.needed_symbols() if name.endswith("_chk")]
        self.assertNotEqual(symbols, [], "found no such function")


class WindowsModule(DictionaryTests, unittest.TestCase):
    """The module for Windows."""

    def setUp(self) -> None:
        self.file = PeFile(modules["windows"])

    def test_it_is_a_library_for_64_bit_x86(self) -> None:
        header = self.file.header()
        self.assertEqual(self.file.data[:2], b"MZ")
        self.assertEqual(self.file.data[header : header + 4], b"PE\0\0")
        self.assertEqual(self.file.numbers("H", header + 4), (0x8664,))
        self.assertTrue(
            self.file.characteristics() & 0x2000, "expected a library, found a program"
        )
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

    def test_it_does_not_say_when_it_was_linked(self) -> None:
        self.assertEqual(self.file.time_stamp(), 0)

    def assert_loaded_with(self, flag: int) -> None:
        flags = self.file.loading_characteristics()
        self.assertTrue(flags & flag, f"expected the flag {flag:#x}, found the flags {flags:#x}")

    def test_it_may_be_loaded_at_any_address(self) -> None:
        self.assert_loaded_with(self.file.ANY_ADDRESS)

    def test_its_address_may_need_all_64_bits(self) -> None:
        self.assert_loaded_with(self.file.HIGH_ENTROPY_ADDRESS)
        self.assertGreaterEqual(self.file.base(), 1 << 32)

    def test_its_stack_and_its_data_cannot_be_executed(self) -> None:
        self.assert_loaded_with(self.file.DATA_IS_NOT_CODE)

    def test_it_knows_all_places_to_correct_at_another_address(self) -> None:
        self.assertFalse(self.file.characteristics() & self.file.RELOCATIONS_STRIPPED)
        self.assertNotEqual(self.file.directory(self.file.RELOCATIONS), 0, "found no table")
        places = list(self.file.relocations())
        self.assertGreater(len(places), 100)
        for place in places:
            (address,) = self.file.numbers("Q", self.file.offset(place))
            self.assertIn(address - self.file.base(), range(self.file.loaded_size()))


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
