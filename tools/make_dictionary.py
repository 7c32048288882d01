#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Makes the pronunciation dictionary text that is compiled into the module.

Reads the CMU Pronouncing Dictionary 0.7b (fetch-cmudict.sh gets it) and the written divisions that
follow no rule (divisions.tsv). Writes one line per entry, each ended by CR LF:

    word TAB phoneme syllables TAB written syllables

The result is checked against known figures before it is written.

Exit status: 0 the text is written, 1 a figure is wrong, 2 an argument or an input is wrong.
"""

import argparse
import hashlib
import re
import shlex
import sys
from collections import Counter
from collections.abc import Sequence
from pathlib import Path
from typing import NamedTuple, NoReturn

USAGE = "CMUDICT_FILE [--divisions FILE] --output FILE"
SEPARATOR = " . "

CMU_ENTRY = re.compile(r"(?P<word>[!-~]+)  (?P<phonemes>[A-Z]+[0-2]?(?: [A-Z]+[0-2]?)*)")
DIVISION = re.compile(r"(?P<word>[!-~]+)\t(?P<spelling>[!-~]+(?: \. [!-~]+)*)")
ALTERNATIVE_SUFFIX = re.compile(r"\([0-9]\)$")

VOWEL_LETTERS = frozenset("aeiou")
# English writes one vowel with "ee" and "oo", but meets two in "aa", "ii" and "uu".
SPLIT_PAIRS = frozenset({"aa", "ii", "uu"})

LEGAL_ONSETS = """
    p, t, k, b, d, g, f, v, th, dh, s, z, sh, ch, jh, m, n, r, l, hh, w, y, zh,
    p r, t r, k r, b r, d r, g r, f r, th r, sh r,
    p l, k l, b l, g l, f l, s l,
    t w, k w, d w, g w, s w, th w, hh w, sh w,
    s p, s t, s k, s f, s m, s n,
    s p r, s p l, s t r, s k r, s k w, s k l,
    p y, b y, k y, f y, v y, th y, m y, hh y, g y, s p y, s k y
"""
# A syllable may also open with its vowel, hence the empty onset.
ONSETS = frozenset(tuple(onset.split()) for onset in LEGAL_ONSETS.split(",")) | {()}

Figures = dict[str, int | str]

EXPECTED_FIGURES: Figures = {
    "bytes": 6_186_416,
    "bytes above 0x7F": 0,
    "lines": 133_853,
    "lines of three TAB-separated fields ended by CR LF": 133_853,
    'words with "(1)"': 8_154,
    'words with "(2)"': 482,
    'words with "(3)"': 144,
    "words with a hyphen": 1_007,
    "bytes of the longest word": 34,
    "bytes of the longest line with its CR LF": 231,
    "phoneme symbols with their stress digits": 69,
    "entries with one written syllable more than phoneme syllables": 92_109,
    "entries with as many written syllables as phoneme syllables": 29_566,
    "least difference of written and phoneme syllables": -4,
    "greatest difference of written and phoneme syllables": 3,
    "entries whose written syllables carry one extra letter": 10,
    "SHA-256": "85b4d050eb7bba982fce3765d1b89f4e34800b19f45b435b01a3a5b615d5b2fe",
}


class InputError(Exception):
    """Arguments or files that no text can be made from; the message is one sentence."""


class Entry(NamedTuple):
    """A word of the CMU dictionary and its phonemes, both in lower case."""

    word: str
    phonemes: list[str]


def numbered_lines(path: Path) -> list[tuple[int, bytes]]:
    """Returns the lines of a file without their line ends, numbered from 1."""
    try:
        return list(enumerate(path.read_bytes().splitlines(), start=1))
    except OSError as error:
        raise InputError(f"expected a readable file at {path}, found: {error.strerror}") from error


def malformed(path: Path, number: int, expected: str, line: bytes) -> InputError:
    """Returns the error for a line that is not what its file must hold there."""
    found = line.decode("ascii", "backslashreplace")
    return InputError(f"expected {expected}, found '{found}' in {path}, line {number}")


def read_cmu_entries(path: Path) -> list[Entry]:
    """Returns the entries of the CMU dictionary in the order of the file.

    A line with a byte above 0x7F is left out: the encoding of the file is not declared, and the
    readers of the text rely on 7-bit ASCII.
    """
    entries = []
    for number, line in numbered_lines(path):
        if line.startswith(b";;;") or not line.isascii():
            continue
        match = CMU_ENTRY.fullmatch(line.decode("ascii"))
        if match is None:
            raise malformed(path, number, "a word, two spaces and phonemes", line)
        entries.append(Entry(match["word"].lower(), match["phonemes"].lower().split(" ")))
    return entries


def read_divisions(path: Path) -> dict[str, str]:
    """Returns the written syllables of the words that the rule of written_syllables() misses."""
    divisions: dict[str, str] = {}
    for number, line in numbered_lines(path):
        match = DIVISION.fullmatch(line.decode("ascii", "replace"))
        if match is None:
            raise malformed(path, number, "a word, a TAB and syllables joined by ' . '", line)
        if match["word"] in divisions:
            raise malformed(path, number, "a word not yet divided", line)
        divisions[match["word"]] = match["spelling"]
    return divisions


def is_nucleus(phoneme: str) -> bool:
    """Tells whether a phoneme is a vowel; only vowels carry a stress digit."""
    return phoneme[-1].isdigit()


def onset_length(consonants: Sequence[str]) -> int:
    """Returns how many of the consonants between two nuclei open the second syllable."""
    lengths = range(len(consonants), -1, -1)
    return next(n for n in lengths if tuple(consonants[len(consonants) - n :]) in ONSETS)


def phoneme_syllables(phonemes: Sequence[str]) -> list[list[str]]:
    """Cuts phonemes into syllables by onset maximisation, one syllable for each nucleus.

    Phonemes without a nucleus, as in "hmm", are one syllable.
    """
    nuclei = [i for i, phoneme in enumerate(phonemes) if is_nucleus(phoneme)]
    starts = [0]
    for nucleus, next_nucleus in zip(nuclei, nuclei[1:]):
        starts.append(next_nucleus - onset_length(phonemes[nucleus + 1 : next_nucleus]))
    ends = starts[1:] + [len(phonemes)]
    return [list(phonemes[start:end]) for start, end in zip(starts, ends)]


def is_vocalic(text: str, index: int) -> bool:
    """Tells whether a character is written for a vowel, or is a digit.

    A digit counts because it is spoken as a word with a vowel of its own. "y" stands for a vowel
    away from other vowels ("gym"), and next to one is a glide or a part of that vowel ("yes",
    "day"). "w" ends a vowel ("how", "town") unless it opens the next syllable ("away", "flowy").
    """
    character = text[index]
    before = text[index - 1 : index]
    after = text[index + 1 : index + 2]
    if character == "y":
        return before not in VOWEL_LETTERS and after not in VOWEL_LETTERS
    if character == "w":
        return before in VOWEL_LETTERS and after not in VOWEL_LETTERS | {"y"}
    return character in VOWEL_LETTERS or character.isdigit()


def starts_after_nuclei(word: str, vocalic: Sequence[bool]) -> list[int]:
    """Returns where pieces start after the first one in a word with vocalic characters."""

    def starts_piece(i: int) -> bool:
        opens_anew = not vocalic[i] or word[i].isdigit() or word[i - 1 : i + 1] in SPLIT_PAIRS
        return vocalic[i - 1] and opens_anew

    return [i for i in range(1, len(word)) if starts_piece(i)]


def starts_at_letters(word: str) -> list[int]:
    """Returns where pieces start after the first one in a word without vocalic characters.

    Such words are mostly abbreviations, read letter by letter. The first letter starts no further
    piece, which leaves the marks in front of it in its own.
    """
    return [i for i, character in enumerate(word) if character.isalpha()][1:]


def written_syllables(word: str) -> list[str]:
    """Cuts a word into pieces that each end with their vowel, as in "a . ba . ndo . n".

    The pieces only serve to place hyphens inside the word. All consonants after a vowel therefore
    go to the next piece, and those after the last vowel make a piece of their own. The "(n)" of an
    alternative pronunciation is not part of the spelling: it counts as consonants at the end, its
    digit included, so that it joins a last piece without a vowel or else stands alone.
    """
    spelled = ALTERNATIVE_SUFFIX.sub("", word)
    vocalic = [is_vocalic(spelled, i) for i in range(len(spelled))]
    vocalic += [False] * (len(word) - len(spelled))
    starts = starts_after_nuclei(word, vocalic) if any(vocalic) else starts_at_letters(word)
    return [word[start:end] for start, end in zip([0] + starts, starts + [len(word)])]


def dictionary_line(entry: Entry, divisions: dict[str, str]) -> str:
    """Returns the line of the text for one entry, its CR LF included."""
    phonemes = SEPARATOR.join(" ".join(part) for part in phoneme_syllables(entry.phonemes))
    spelling = divisions.get(entry.word) or SEPARATOR.join(written_syllables(entry.word))
    return f"{entry.word}\t{phonemes}\t{spelling}\r\n"


def dictionary_text(entries: Sequence[Entry], divisions: dict[str, str]) -> bytes:
    """Returns the whole text, its lines in the order of the entries."""
    return "".join(dictionary_line(entry, divisions) for entry in entries).encode("ascii")


def measure(text: bytes) -> Figures:
    """Returns the figures of a text, named as in EXPECTED_FIGURES; malformed lines do no harm."""
    lines = [line.decode("latin-1") for line in text.splitlines(keepends=True)]
    complete = [line for line in lines if line.endswith("\r\n") and line.count("\t") == 2]
    entries = [line[:-2].split("\t") for line in complete]
    words = [word for word, _, _ in entries]
    symbols = {symbol for _, phonemes, _ in entries for symbol in phonemes.split()} - {"."}
    differences = Counter(
        spelling.count(SEPARATOR) - phonemes.count(SEPARATOR) for _, phonemes, spelling in entries
    )
    extra_letters = Counter(
        len(spelling.replace(SEPARATOR, "")) - len(word) for word, _, spelling in entries
    )
    return {
        "bytes": len(text),
        "bytes above 0x7F": sum(byte > 0x7F for byte in text),
        "lines": len(lines),
        "lines of three TAB-separated fields ended by CR LF": len(complete),
        'words with "(1)"': sum(word.endswith("(1)") for word in words),
        'words with "(2)"': sum(word.endswith("(2)") for word in words),
        'words with "(3)"': sum(word.endswith("(3)") for word in words),
        "words with a hyphen": sum("-" in word for word in words),
        "bytes of the longest word": max(map(len, words), default=0),
        "bytes of the longest line with its CR LF": max(map(len, lines), default=0),
        "phoneme symbols with their stress digits": len(symbols),
        "entries with one written syllable more than phoneme syllables": differences[1],
        "entries with as many written syllables as phoneme syllables": differences[0],
        "least difference of written and phoneme syllables": min(differences, default=0),
        "greatest difference of written and phoneme syllables": max(differences, default=0),
        "entries whose written syllables carry one extra letter": extra_letters[1],
        "SHA-256": hashlib.sha256(text).hexdigest(),
    }


def wrong_figures(text: bytes, expected: Figures) -> list[str]:
    """Returns one message for every figure of the text that is not the expected one."""
    found = measure(text)
    return [
        f"{name}: expected {figure}, found {found[name]}"
        for name, figure in expected.items()
        if found[name] != figure
    ]


def write_text(path: Path, text: bytes) -> None:
    """Writes the text byte for byte: its CR LF line ends must stay."""
    try:
        path.write_bytes(text)
    except OSError as error:
        raise InputError(f"expected a writable file at {path}, found: {error.strerror}") from error


class ArgumentParser(argparse.ArgumentParser):
    """An argument parser that leaves the report of an error to its caller."""

    def error(self, message: str) -> NoReturn:
        raise InputError(message)


def parse_arguments(arguments: Sequence[str]) -> argparse.Namespace:
    """Returns the paths named by the arguments of the command line."""
    parser = ArgumentParser(usage=f"%(prog)s {USAGE}", allow_abbrev=False)
    parser.add_argument("cmudict", type=Path, metavar="CMUDICT_FILE")
    parser.add_argument("--divisions", type=Path, default=Path(__file__).with_name("divisions.tsv"))
    parser.add_argument("--output", type=Path, required=True)
    try:
        return parser.parse_args(arguments)
    except InputError as error:
        found = shlex.join(arguments) or "none"
        raise InputError(f"expected the arguments {USAGE}, found {found} ({error})") from error


def make_dictionary(arguments: Sequence[str]) -> int:
    """Makes the text, checks it and writes it; returns the exit status, 0 or 1."""
    paths = parse_arguments(arguments)
    text = dictionary_text(read_cmu_entries(paths.cmudict), read_divisions(paths.divisions))
    complaints = wrong_figures(text, EXPECTED_FIGURES)
    if complaints:
        print("\n".join(complaints), file=sys.stderr)
        return 1
    write_text(paths.output, text)
    return 0


def main(arguments: Sequence[str]) -> int:
    """Runs the generator with the arguments of the command line; returns the exit status."""
    try:
        return make_dictionary(arguments)
    except InputError as error:
        print(error, file=sys.stderr)
        return 2


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
