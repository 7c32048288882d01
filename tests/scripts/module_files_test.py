# SPDX-License-Identifier: GPL-3.0-or-later
"""Tests of a module file as it lies on the disk: format, exports, imports, dictionary text, and
exploit mitigations. The environment names the file as WYBETA_MODULE."""

import os
import sys
import unittest
from pathlib import Path

import pefile
from elftools.elf.elffile import ELFFile

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "tools"))
import make_dictionary  # noqa: E402

ENTRY_POINTS = ["ExitDll", "GetPluginFactory", "InitDll"]
LINUX_ENTRY_POINTS = ["ModuleEntry", "ModuleExit"]
SYSTEM_DLLS = {"kernel32.dll", "msvcrt.dll", "ole32.dll"}

DICTIONARY_START = b"!exclamation-point\t"
DICTIONARY_SIZE = make_dictionary.EXPECTED_FIGURES["bytes"]
MODULE = Path(os.environ["WYBETA_MODULE"])


class DictionaryTests:
    """What both modules have in common: the text of the pronunciation dictionary."""

    def setUp(self) -> None:
        self.data = MODULE.read_bytes()

    def dictionary_start(self) -> int:
        """Returns where the text begins; the test fails when it is not there."""
        start = self.data.find(DICTIONARY_START)
        self.assertGreaterEqual(start, 0, "expected the text in the file, found none")
        return start

    def test_it_holds_the_dictionary_text_once(self) -> None:
        self.assertEqual(self.data.count(DICTIONARY_START), 1)

    def test_its_dictionary_text_shows_every_figure(self) -> None:
        start = self.dictionary_start()
        text = self.data[start : start + DICTIONARY_SIZE]
        figures = make_dictionary.EXPECTED_FIGURES
        self.assertEqual(make_dictionary.wrong_figures(text, figures), [])

    def test_its_dictionary_text_is_followed_by_a_zero_byte(self) -> None:
        self.assertEqual(self.data[self.dictionary_start() + DICTIONARY_SIZE], 0)

    def test_it_is_at_most_a_quarter_larger_than_the_dictionary_text(self) -> None:
        self.assertLessEqual(len(self.data), 1.25 * DICTIONARY_SIZE)


class LinuxModule(DictionaryTests, unittest.TestCase):
    """The module for Linux."""

    def setUp(self) -> None:
        super().setUp()
        self.elf = ELFFile(MODULE.open("rb"))
        self.addCleanup(self.elf.stream.close)

    def segment(self, kind: str):
        """Returns the one segment of a kind; the test fails when there is none."""
        segments = list(self.elf.iter_segments(kind))
        self.assertEqual(len(segments), 1, kind)
        return segments[0]

    def symbols(self, is_defined: bool) -> list[str]:
        """Returns the names that the loader finds in the file, or has to find elsewhere."""
        return [symbol.name for symbol in self.elf.get_section_by_name(".dynsym").iter_symbols()
                if symbol.name and (symbol["st_shndx"] != "SHN_UNDEF") == is_defined]

    def test_it_is_a_shared_library_for_64_bit_x86(self) -> None:
        self.assertEqual(self.elf.elfclass, 64)
        self.assertEqual((self.elf["e_type"], self.elf["e_machine"]), ("ET_DYN", "EM_X86_64"))

    def test_it_exports_its_five_entry_points_and_nothing_else(self) -> None:
        self.assertEqual(sorted(self.symbols(True)), sorted(ENTRY_POINTS + LINUX_ENTRY_POINTS))

    def test_its_tables_of_addresses_are_read_only_once_it_is_loaded(self) -> None:
        self.segment("PT_GNU_RELRO")

    def test_it_finds_every_function_when_it_is_loaded_and_none_later(self) -> None:
        flags = [tag["d_val"] for tag in self.segment("PT_DYNAMIC").iter_tags("DT_FLAGS")]
        self.assertTrue(flags and flags[0] & 8, f"expected BIND_NOW, found the flags {flags}")

    def test_its_stack_cannot_be_executed(self) -> None:
        self.assertFalse(self.segment("PT_GNU_STACK")["p_flags"] & 1)

    def test_its_functions_guard_their_buffers(self) -> None:
        self.assertIn("__stack_chk_fail", self.symbols(False))

    def test_it_calls_library_functions_that_check_the_sizes_of_buffers(self) -> None:
        # The SDK's code formats texts, so there are some to find.
        self.assertTrue([name for name in self.symbols(False) if name.endswith("_chk")])


class WindowsModule(DictionaryTests, unittest.TestCase):
    """The module for Windows."""

    def setUp(self) -> None:
        super().setUp()
        self.pe = pefile.PE(data=self.data)

    def test_it_is_a_library_for_64_bit_x86(self) -> None:
        self.assertEqual(self.pe.FILE_HEADER.Machine, 0x8664)
        self.assertEqual(self.pe.OPTIONAL_HEADER.Magic, 0x20B)
        self.assertTrue(self.pe.is_dll())

    def test_it_exports_its_three_entry_points_and_nothing_else(self) -> None:
        names = [symbol.name.decode() for symbol in self.pe.DIRECTORY_ENTRY_EXPORT.symbols]
        self.assertEqual(sorted(names), ENTRY_POINTS)

    def test_it_imports_from_system_libraries_only(self) -> None:
        dlls = {entry.dll.decode().lower() for entry in self.pe.DIRECTORY_ENTRY_IMPORT}
        self.assertIn("kernel32.dll", dlls)
        self.assertEqual(dlls - SYSTEM_DLLS, set())
        self.assertFalse(hasattr(self.pe, "DIRECTORY_ENTRY_DELAY_IMPORT"))

    def test_it_does_not_say_when_it_was_linked(self) -> None:
        self.assertEqual(self.pe.FILE_HEADER.TimeDateStamp, 0)

    def test_it_may_be_loaded_at_any_address(self) -> None:
        self.assertTrue(self.pe.OPTIONAL_HEADER.IMAGE_DLLCHARACTERISTICS_DYNAMIC_BASE)

    def test_its_address_may_need_all_64_bits(self) -> None:
        self.assertTrue(self.pe.OPTIONAL_HEADER.IMAGE_DLLCHARACTERISTICS_HIGH_ENTROPY_VA)
        self.assertGreaterEqual(self.pe.OPTIONAL_HEADER.ImageBase, 1 << 32)

    def test_its_stack_and_its_data_cannot_be_executed(self) -> None:
        self.assertTrue(self.pe.OPTIONAL_HEADER.IMAGE_DLLCHARACTERISTICS_NX_COMPAT)

    def test_it_knows_all_places_to_correct_at_another_address(self) -> None:
        self.assertFalse(self.pe.FILE_HEADER.IMAGE_FILE_RELOCS_STRIPPED)
        base = self.pe.OPTIONAL_HEADER.ImageBase
        places = [entry.rva for block in self.pe.DIRECTORY_ENTRY_BASERELOC
                  for entry in block.entries if entry.type == 10]
        self.assertGreater(len(places), 100)
        for place in places:
            address = self.pe.get_qword_at_rva(place)
            self.assertIn(address - base, range(self.pe.OPTIONAL_HEADER.SizeOfImage))


if __name__ == "__main__":
    unittest.main()
