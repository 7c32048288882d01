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
    LongMark,       // a mark other than ー or 0 follows a kana
    OutsideBracket, // it stands in a line with a bracket, and not in that
    EmptyBracket,
    // Sung, but perhaps not as expected:
    HyphenHolds, // hyphens take further notes
    Zero,        // "0" drops a sound
    OneSyllable, // a bracket has several morae without a comma
};

constexpr bool isSung(Reason reason) {
    return reason >= Reason::HyphenHolds;
}

// What to write so that a word is sung.
struct Suggestion {
    std::string text; // instead of the word, or of the whole lyric
    bool isForLyric = false;
    bool isGuess = false;

    bool operator==(const Suggestion& other) const {
        return text == other.text && isForLyric == other.isForLyric && isGuess == other.isGuess;
    }
};

struct Finding {
    std::size_t line;   // from 1, as the column
    std::size_t column; // counted in characters
    std::string word;
    Reason reason;
    std::vector<Suggestion> suggestions; // each of which is sung, the best first
    std::size_t syllables;               // that the word has as it is
};

struct CheckedLyric {
    std::string text;
    std::size_t syllables; // of the whole text
    std::vector<Finding> findings;
};

} // namespace wybeta::wysim::words
