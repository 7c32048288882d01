// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace wybeta::wysim::words {

// The most characters of a word that is guessed.
constexpr std::size_t kLongestGuessed = 64;

// How an English word is probably sung, guessed from its letters alone: one phoneme string for each
// syllable, in the symbols of the English dictionary without stress digits. "yeet" gives "y iy t".
// The word consists of letters a to z in either case, and of apostrophes, each of which replaces
// letters that are not sung. Gives no syllables for a word that has other characters, is longer
// than kLongestGuessed or has no vowel by the rules.
std::vector<std::string> guessSyllables(std::string_view word);

} // namespace wybeta::wysim::words
