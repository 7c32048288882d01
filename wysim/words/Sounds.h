// SPDX-License-Identifier: GPL-3.0-or-later
//
// Phoneme symbols of the English dictionary, without stress digits.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace wybeta::wysim::words {

using Symbols = std::vector<std::string>;

// The symbols of a text such as "ah . b ae n", without its syllable marks.
Symbols symbolsOf(std::string_view phonemes);

// Whether the dictionary has words with the symbol.
bool isSymbol(std::string_view symbol);
bool isVowel(std::string_view symbol);
// Whether a consonant is spoken without voice, as t and s are.
bool isVoiceless(std::string_view symbol);
// Whether a consonant hisses, so that a plural after it has a vowel: s, z, sh, zh, ch, jh.
bool isSibilant(std::string_view symbol);

std::size_t countNuclei(const Symbols& symbols);
// The index of the vowel with this number, counted from 0; symbols.size() if there are fewer.
std::size_t findNucleus(const Symbols& symbols, std::size_t number);

// The syllable phoneme strings of a word, divided as the dictionary divides: each vowel is a
// nucleus, and of the consonants between two nuclei as many go to the second as can begin an
// English word. A word without a vowel is one syllable, a word without symbols has none.
std::vector<std::string> dividedIntoSyllables(const Symbols& symbols);

} // namespace wybeta::wysim::words
