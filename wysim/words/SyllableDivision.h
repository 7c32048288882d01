// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace wybeta::wysim::words {

// Whether a symbol of the English dictionary, without its stress digit, is a vowel.
bool isVowel(std::string_view phoneme);

// The phonemes of an English word, without stress digits, as one phoneme string for each syllable:
// "b", "ah", "t", "er" gives "b ah" and "t er". A syllable has one vowel, and its onset is as long
// as onsets at the beginning of words are. Gives no syllables if there is no vowel.
std::vector<std::string> divideIntoSyllables(const std::vector<std::string_view>& phonemes);

} // namespace wybeta::wysim::words
