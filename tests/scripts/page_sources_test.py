# SPDX-License-Identifier: GPL-3.0-or-later
"""Tests that the page only draws and listens: its scripts know no kana, no phonemes, no brackets.

What is sung is decided by the extension alone. A second opinion in the page would be right until one of
the two is changed.
"""

import re
import unittest
from pathlib import Path

PROJECT = Path(__file__).resolve().parents[2]
PAGE = PROJECT / "web/page"
# What the page says to people, the one place for kana.
JAPANESE = PAGE / "texts/ja.js"

STRING = re.compile(r"\"((?:[^\"\\\n]|\\.)*)\"|'((?:[^'\\\n]|\\.)*)'|`((?:[^`\\]|\\.)*)`")
KANA = re.compile("[\u3040-\u30ff\uff66-\uff9f]")
ONE_SYLLABLE = re.compile("[\u3040-\u30ff]{1,2}")
CHART = re.compile("あいうえお|アイウエオ|かきくけこ|カキクケコ")
# Other ways to write kana, or to ask for them.
WRITTEN_KANA = re.compile(r"\\u\{?30|0x30|\\p\{|fromCodePoint|fromCharCode", re.IGNORECASE)
BRACKET = re.compile(r"\\\[|\\\]|([\"'`])[\[\]]\1")


def symbols() -> set[str]:
    """Returns all phonemes that the extension knows."""
    kana = (PROJECT / "src/lyrics/KanaPhonemeTable.cpp").read_text(encoding="utf-8")
    found = set(" ".join(re.findall(r"\{U'.*?, \"([^\"]+)\"\}", kana)).split())
    dictionary = PROJECT / "src/resources/cmudict-0.7b-utf8-spll"
    with dictionary.open(encoding="utf-8") as lines:
        for line in lines:
            found.update(re.split(r"[ .]", re.sub(r"\d", "", line.rstrip("\n").split("\t")[1])))
    return found - {"", "-"}


SYMBOLS = symbols()


def strings(text: str) -> list[str]:
    return ["".join(match) for match in STRING.findall(text)]


def is_phonemes(text: str) -> bool:
    words = text.split()
    return bool(words) and len("".join(words)) > 1 and set(words) <= SYMBOLS


def objections(text: str, is_japanese: bool = False) -> list[str]:
    """Returns what of a script only the extension should know."""
    found = [string for string in strings(text) if is_phonemes(string)]
    found += CHART.findall(text) + WRITTEN_KANA.findall(text)
    found += [match.group() for match in BRACKET.finditer(text)]
    if is_japanese:
        return found + [string for string in strings(text) if ONE_SYLLABLE.fullmatch(string)]
    return found + KANA.findall(text)


class PageSources(unittest.TestCase):
    def test_know_nothing_of_what_is_sung(self) -> None:
        scripts = [path for path in sorted(PAGE.rglob("*")) if path.suffix in (".js", ".mjs", ".ts", ".html")]
        self.assertGreater(len(scripts), 10)
        for path in scripts:
            self.assertEqual(objections(path.read_text(encoding="utf-8"), path == JAPANESE), [], path)


class Objections(unittest.TestCase):
    def test_are_raised_to_what_only_the_extension_knows(self) -> None:
        for script in ('const sung = { x: "k a" };', "say('hh ah');", "const vowels = ['ae', 'ow'];",
                       "if (text === 'きゃ') {}", r"/[\u3040-\u30ff]/.test(text)", r"/\p{Script=Hiragana}/u",
                       "lyric.indexOf('[')", r"/^(.*)\[(.*)\]$/.exec(lyric)"):
            self.assertNotEqual(objections(script), [], script)
        for script in ('{ a: "きゃ" }', '{ chart: "アイウエオ" }'):
            self.assertNotEqual(objections(script, is_japanese=True), [], script)

    def test_are_not_raised_to_other_texts(self) -> None:
        self.assertEqual(objections('make("a", `[data-note="${note}"]`); list[0] = "d";'), [])
        self.assertEqual(objections('{ kanji: "かなで書いてください。" }', is_japanese=True), [])


if __name__ == "__main__":
    unittest.main()
