# SPDX-License-Identifier: GPL-3.0-or-later
"""Tests of make_dictionary.py; they need neither the CMU dictionary nor a network."""

import contextlib
import hashlib
import io
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path
from unittest import mock

PROJECT = Path(__file__).resolve().parents[2]
TOOLS = PROJECT / "tools"
sys.path.insert(0, str(TOOLS))
import make_dictionary  # noqa: E402

COMMITTED_TEXT = PROJECT / "src/resources/cmudict-0.7b-utf8-spll"

CMU_LINES = b""";;; a comment
ABANDON  AH0 B AE1 N D AH0 N
D\xc9J\xc0  D EY2 JH AA1
A(1)  EY1
GORGEOUS  G AO1 R JH AH0 S
"""
DIVISION_LINES = b"gorgeous\tgo . rgeous . s\n"
TEXT = (
    b"abandon\tah0 . b ae1 n . d ah0 n\ta . ba . ndo . n\r\n"
    b"a(1)\tey1\ta . (1)\r\n"
    b"gorgeous\tg ao1 r . jh ah0 s\tgo . rgeous . s\r\n"
)


def syllables(phonemes: str) -> str:
    parts = make_dictionary.phoneme_syllables(phonemes.split())
    return " . ".join(" ".join(part) for part in parts)


def written(word: str) -> str:
    return " . ".join(make_dictionary.written_syllables(word))


class OnsetMaximisation(unittest.TestCase):
    def test_each_vowel_is_the_nucleus_of_one_syllable(self) -> None:
        self.assertEqual(syllables("iy0 aa1 n ow2"), "iy0 . aa1 . n ow2")

    def test_consonants_at_both_ends_stay_with_the_outer_syllables(self) -> None:
        self.assertEqual(syllables("s f ih1 ng k s t s"), "s f ih1 ng k s t s")

    def test_a_single_consonant_opens_the_next_syllable(self) -> None:
        self.assertEqual(syllables("l ey1 d iy0"), "l ey1 . d iy0")

    def test_ng_never_opens_a_syllable(self) -> None:
        self.assertEqual(syllables("s ih1 ng er0"), "s ih1 ng . er0")

    def test_the_longest_legal_tail_opens_the_next_syllable(self) -> None:
        self.assertEqual(syllables("eh1 k s t r ah0"), "eh1 k . s t r ah0")
        self.assertEqual(syllables("aa1 k y ah0"), "aa1 . k y ah0")

    def test_a_tail_that_is_no_legal_onset_is_divided(self) -> None:
        self.assertEqual(syllables("ae1 t l ah0 s"), "ae1 t . l ah0 s")

    def test_no_consonant_opens_the_next_syllable_when_none_legally_can(self) -> None:
        self.assertEqual(syllables("ih1 ng ng ah0"), "ih1 ng ng . ah0")

    def test_phonemes_without_a_vowel_are_one_syllable(self) -> None:
        self.assertEqual(syllables("hh m m"), "hh m m")


class WrittenSyllables(unittest.TestCase):
    def test_a_piece_ends_after_its_vowels_and_the_last_consonants_stand_alone(self) -> None:
        self.assertEqual(written("abandon"), "a . ba . ndo . n")

    def test_a_word_that_ends_in_a_vowel_has_no_piece_of_consonants(self) -> None:
        self.assertEqual(written("trouble"), "trou . ble")

    def test_marks_count_as_consonants(self) -> None:
        self.assertEqual(written("!exclamation-point"), "!e . xcla . ma . tio . n-poi . nt")

    def test_neighbouring_vowels_share_a_piece(self) -> None:
        self.assertEqual(written("queue"), "queue")

    def test_the_second_letter_of_aa_ii_and_uu_starts_a_piece(self) -> None:
        self.assertEqual(written("aaron"), "a . a . ro . n")
        self.assertEqual(written("hawaii"), "ha . wai . i")
        self.assertEqual(written("vacuum"), "va . cu . u . m")

    def test_the_second_letter_of_ee_and_oo_starts_none(self) -> None:
        self.assertEqual(written("beechwood"), "bee . chwoo . d")

    def test_each_digit_is_a_vowel_of_its_own(self) -> None:
        self.assertEqual(written("a42128"), "a . 4 . 2 . 1 . 2 . 8")
        self.assertEqual(written("3-d"), "3 . -d")

    def test_y_is_a_vowel_away_from_vowels(self) -> None:
        self.assertEqual(written("gym"), "gy . m")
        self.assertEqual(written("yttrium"), "y . ttriu . m")
        self.assertEqual(written("city"), "ci . ty")

    def test_y_is_a_consonant_beside_a_vowel(self) -> None:
        self.assertEqual(written("yes"), "ye . s")
        self.assertEqual(written("days"), "da . ys")

    def test_w_ends_a_vowel_before_it(self) -> None:
        self.assertEqual(written("town"), "tow . n")
        self.assertEqual(written("how"), "how")

    def test_w_is_a_consonant_before_a_vowel_and_before_y(self) -> None:
        self.assertEqual(written("away"), "a . wa . y")
        self.assertEqual(written("flowy"), "flo . wy")

    def test_w_is_a_consonant_after_a_consonant(self) -> None:
        self.assertEqual(written("two"), "two")
        self.assertEqual(written("awwd"), "aw . wd")

    def test_the_suffix_joins_a_last_piece_of_consonants(self) -> None:
        self.assertEqual(written("abandon(2)"), "a . ba . ndo . n(2)")

    def test_the_suffix_stands_alone_after_a_vowel(self) -> None:
        self.assertEqual(written("a(1)"), "a . (1)")
        self.assertEqual(written("how(1)"), "how . (1)")

    def test_a_parenthesis_in_front_of_a_word_is_a_mark(self) -> None:
        self.assertEqual(written("(paren"), "(pa . re . n")

    def test_a_word_without_a_vowel_is_cut_at_its_letters(self) -> None:
        self.assertEqual(written("bmw"), "b . m . w")

    def test_a_mark_joins_the_letter_before_it_in_a_word_without_a_vowel(self) -> None:
        self.assertEqual(written("b.'s"), "b.' . s")

    def test_marks_in_front_join_the_first_letter_of_a_word_without_a_vowel(self) -> None:
        self.assertEqual(written("'m"), "'m")
        self.assertEqual(written("--mr"), "--m . r")

    def test_the_suffix_joins_the_last_piece_of_a_word_without_a_vowel(self) -> None:
        self.assertEqual(written("mr(1)"), "m . r(1)")


class FigureChecks(unittest.TestCase):
    def wrong_names(self, text: bytes) -> set[str]:
        messages = make_dictionary.wrong_figures(text, make_dictionary.measure(TEXT))
        return {message.partition(":")[0] for message in messages}

    def test_a_text_agrees_with_its_own_figures(self) -> None:
        self.assertEqual(self.wrong_names(TEXT), set())

    def test_the_figures_of_a_small_text_are_counted(self) -> None:
        figures = make_dictionary.measure(TEXT)
        self.assertEqual(figures.pop("SHA-256"), hashlib.sha256(TEXT).hexdigest())
        self.assertEqual(
            figures,
            {
                "bytes": 113,
                "bytes above 0x7F": 0,
                "lines": 3,
                "lines of three TAB-separated fields ended by CR LF": 3,
                'words with "(1)"': 1,
                'words with "(2)"': 0,
                'words with "(3)"': 0,
                "words with a hyphen": 0,
                "bytes of the longest word": 8,
                "bytes of the longest line with its CR LF": 50,
                "phoneme symbols with their stress digits": 11,
                "entries with one written syllable more than phoneme syllables": 3,
                "entries with as many written syllables as phoneme syllables": 0,
                "least difference of written and phoneme syllables": 1,
                "greatest difference of written and phoneme syllables": 1,
                "entries whose written syllables carry one extra letter": 1,
            },
        )

    def test_every_expected_figure_is_measured(self) -> None:
        figures = make_dictionary.measure(b"")
        self.assertEqual(list(figures), list(make_dictionary.EXPECTED_FIGURES))

    def test_one_changed_letter_is_told_by_the_checksum(self) -> None:
        self.assertEqual(self.wrong_names(TEXT.replace(b"a . ba", b"a . bo")), {"SHA-256"})

    def test_a_byte_above_0x7f_is_told(self) -> None:
        self.assertIn("bytes above 0x7F", self.wrong_names(TEXT.replace(b"ndo", b"nd\x85")))

    def test_a_missing_line_is_told(self) -> None:
        self.assertIn("lines", self.wrong_names(TEXT[TEXT.index(b"a(1)") :]))

    def test_a_lone_line_feed_is_told(self) -> None:
        name = "lines of three TAB-separated fields ended by CR LF"
        self.assertIn(name, self.wrong_names(TEXT.replace(b"\r\n", b"\n", 1)))

    def test_a_fourth_field_is_told(self) -> None:
        name = "lines of three TAB-separated fields ended by CR LF"
        self.assertIn(name, self.wrong_names(TEXT.replace(b"ey1", b"ey1\tey1")))

    def test_changed_suffixes_are_told(self) -> None:
        names = self.wrong_names(TEXT.replace(b"a(1)", b"a(2)"))
        self.assertEqual(names, {'words with "(1)"', 'words with "(2)"', "SHA-256"})
        self.assertIn('words with "(3)"', self.wrong_names(TEXT.replace(b"a(1)", b"a(3)")))

    def test_a_hyphen_too_many_is_told(self) -> None:
        names = self.wrong_names(TEXT.replace(b"gorgeous", b"gor-eous"))
        self.assertIn("words with a hyphen", names)

    def test_a_longer_word_and_line_are_told(self) -> None:
        names = self.wrong_names(TEXT.replace(b"gorgeous", b"gorgeousgorgeous"))
        self.assertIn("bytes of the longest word", names)
        self.assertIn("bytes of the longest line with its CR LF", names)

    def test_an_unknown_phoneme_symbol_is_told(self) -> None:
        name = "phoneme symbols with their stress digits"
        self.assertIn(name, self.wrong_names(TEXT.replace(b"jh", b"zh j")))

    def test_a_changed_number_of_syllables_is_told(self) -> None:
        names = self.wrong_names(TEXT.replace(b"a . (1)", b"a(1)"))
        self.assertIn("entries with one written syllable more than phoneme syllables", names)
        self.assertIn("entries with as many written syllables as phoneme syllables", names)
        self.assertIn("least difference of written and phoneme syllables", names)
        names = self.wrong_names(TEXT.replace(b"a . (1)", b"a . ( . 1)"))
        self.assertIn("greatest difference of written and phoneme syllables", names)

    def test_a_missing_extra_letter_is_told(self) -> None:
        name = "entries whose written syllables carry one extra letter"
        self.assertIn(name, self.wrong_names(TEXT.replace(b"go . rgeous . s", b"go . rgeou . s")))

    def test_a_message_names_the_figure_and_both_values(self) -> None:
        messages = make_dictionary.wrong_figures(TEXT, {"lines": 4})
        self.assertEqual(messages, ["lines: expected 4, found 3"])


class Generator(unittest.TestCase):
    def setUp(self) -> None:
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.cmudict = Path(folder.name, "cmudict")
        self.divisions = Path(folder.name, "divisions.tsv")
        self.output = Path(folder.name, "text")
        self.cmudict.write_bytes(CMU_LINES)
        self.divisions.write_bytes(DIVISION_LINES)

    def run_with(self, *arguments: object) -> tuple[int, str]:
        errors = io.StringIO()
        with contextlib.redirect_stderr(errors):
            status = make_dictionary.main([str(argument) for argument in arguments])
        return status, errors.getvalue()

    def run_on_files(self) -> tuple[int, str]:
        return self.run_with(self.cmudict, "--divisions", self.divisions, "--output", self.output)

    def test_writes_one_line_for_each_7_bit_entry_in_the_order_of_the_file(self) -> None:
        figures = make_dictionary.measure(TEXT)
        with mock.patch.object(make_dictionary, "EXPECTED_FIGURES", figures):
            self.assertEqual(self.run_on_files(), (0, ""))
        self.assertEqual(self.output.read_bytes(), TEXT)

    def test_writes_nothing_when_a_figure_is_wrong(self) -> None:
        figures = {**make_dictionary.measure(TEXT), "lines": 4, "bytes": 9}
        with mock.patch.object(make_dictionary, "EXPECTED_FIGURES", figures):
            status, message = self.run_on_files()
        self.assertEqual(status, 1)
        self.assertEqual(message, "bytes: expected 9, found 113\nlines: expected 4, found 3\n")
        self.assertFalse(self.output.exists())

    def test_a_malformed_entry_is_reported_with_file_and_line(self) -> None:
        self.cmudict.write_bytes(b";;; a comment\nABANDON AH0\n")
        status, message = self.run_on_files()
        self.assertEqual(status, 2)
        self.assertEqual(
            message,
            "expected a word, two spaces and phonemes, found 'ABANDON AH0'"
            f" in {self.cmudict}, line 2\n",
        )

    def test_a_malformed_division_is_reported_with_file_and_line(self) -> None:
        self.divisions.write_bytes(DIVISION_LINES + b"ca\xc3e\tca . e\n")
        status, message = self.run_on_files()
        self.assertEqual(status, 2)
        self.assertEqual(
            message,
            "expected a word, a TAB and syllables joined by ' . ', found 'ca\\xc3e\tca . e'"
            f" in {self.divisions}, line 2\n",
        )

    def test_a_word_divided_twice_is_reported(self) -> None:
        self.divisions.write_bytes(DIVISION_LINES * 2)
        status, message = self.run_on_files()
        self.assertEqual(status, 2)
        self.assertIn("expected a word not yet divided, found 'gorgeous\t", message)
        self.assertIn(f"{self.divisions}, line 2", message)

    def test_a_missing_file_is_reported(self) -> None:
        self.cmudict.unlink()
        status, message = self.run_on_files()
        self.assertEqual(status, 2)
        self.assertIn(f"expected a readable file at {self.cmudict}, found: No such file", message)

    def test_an_output_that_cannot_be_written_is_reported(self) -> None:
        self.output.mkdir()
        figures = make_dictionary.measure(TEXT)
        with mock.patch.object(make_dictionary, "EXPECTED_FIGURES", figures):
            status, message = self.run_on_files()
        self.assertEqual(status, 2)
        self.assertIn(f"expected a writable file at {self.output}, found: ", message)

    def test_wrong_arguments_are_reported_in_one_sentence(self) -> None:
        status, message = self.run_with("cmudict", "--out", "text")
        self.assertEqual(status, 2)
        self.assertTrue(message.startswith("expected the arguments CMUDICT_FILE "), message)
        self.assertIn(", found cmudict --out text (", message)
        self.assertEqual(message.count("\n"), 1)

    def test_started_as_a_program_it_ends_with_the_exit_status(self) -> None:
        program = [sys.executable, TOOLS / "make_dictionary.py", self.cmudict.with_name("none")]
        result = subprocess.run([*program, "--output", self.output], capture_output=True, text=True)
        self.assertEqual(result.returncode, 2)
        self.assertIn("expected a readable file at ", result.stderr)
        self.assertFalse(self.output.exists())


class CommittedText(unittest.TestCase):
    def test_shows_every_expected_figure(self) -> None:
        text = COMMITTED_TEXT.read_bytes()
        messages = make_dictionary.wrong_figures(text, make_dictionary.EXPECTED_FIGURES)
        self.assertEqual(messages, [])

    def test_is_what_its_words_and_phonemes_make(self) -> None:
        text = COMMITTED_TEXT.read_bytes()
        entries = []
        for line in text.decode("ascii").splitlines():
            word, phonemes, _ = line.split("\t")
            entries.append(make_dictionary.Entry(word, phonemes.replace(" . ", " ").split(" ")))
        divisions = make_dictionary.read_divisions(TOOLS / "divisions.tsv")
        self.assertTrue(make_dictionary.dictionary_text(entries, divisions) == text)


if __name__ == "__main__":
    unittest.main()
