// SPDX-License-Identifier: GPL-3.0-or-later
//
// What kind of character stands in a text, as far as a writer may mistake it for another.
#pragma once

#include <string>

namespace wybeta::wysim::words {

// A blank of any kind but the plain one.
bool isOtherBlank(char32_t character);
// A punctuation mark or symbol, apostrophes among them.
bool isMark(char32_t character);
// An apostrophe, the plain one or what is typeset for it.
bool isApostrophe(char32_t character);
bool isKanji(char32_t character);
// What words are written with: letters and digits of all scripts.
bool isOfWords(char32_t character);

bool isAscii(char32_t character);
bool isAsciiLetter(char32_t character);
// A letter of the Latin script with an accent or of another language, such as é or ß.
bool isLatinLetter(char32_t character);

// The text in other characters of the same meaning.
std::u32string withPlainBlanks(std::u32string text);
std::u32string withPlainApostrophes(std::u32string text);
// Full-width letters as plain ones.
std::u32string withPlainLetters(std::u32string text);
// Half-width kana as ordinary ones, a kana and its voicing mark as one.
std::u32string withOrdinaryKana(std::u32string text);

} // namespace wybeta::wysim::words
