// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace wybeta::wysim::words {

// Why a word of a text is not sung, or what a writer may not expect of one that is.
enum class Reason {
    Unknown,    // the dictionary does not have it
    Mark,       // a punctuation mark sticks to it
    Apostrophe, // its apostrophe is a typographic one
    Blank,      // a blank of another kind sticks to it
    FullWidth,  // its letters are full-width
    HalfWidthKana,
    BeforeKanaPair, // two kana of one syllable come right behind it
    Kanji,
    OtherCharacter, // of a script that is not sung
    HyphenJoins,    // a hyphen makes one unknown word of two
    OutsideBracket, // it stands in a line with a bracket, and not in that
    EmptyBracket,
    // Sung, but perhaps not as expected:
    HyphenHolds, // hyphens take further notes
    Zero,        // "0" drops a sound
};

constexpr bool isSung(Reason reason) {
    return reason >= Reason::HyphenHolds;
}

struct Finding {
    std::size_t line;   // from 1, as the column
    std::size_t column; // counted in characters
    std::string word;
    Reason reason;
    // What to write instead of the word, each of which is sung.
    std::vector<std::string> suggestions;
    std::size_t syllables; // that the word has as it is
};

struct CheckedLyric {
    std::string text;
    std::size_t syllables; // of the whole text
    std::vector<Finding> findings;
};

} // namespace wybeta::wysim::words
