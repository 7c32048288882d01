// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wysim/words/FittedWord.h"
#include "wysim/words/LyricReader.h"
#include "wysim/words/SongWords.h"

#include <cstddef>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace wybeta::wysim::words {

// What may be typed besides hyphens and other entries.
struct WaysToFit {
    bool brackets = false; // phonemes in brackets where nothing else fits
    bool guesses = false;  // proposed phonemes in brackets for words that are not sung
};

// Finds what to type for a word so that its syllables come out on the notes that the score gives
// them: the text that changes the word least.
class WordFitter {
public:
    // In characters of a word, and notes.
    static constexpr std::size_t kLongestWord = 1'000;
    static constexpr std::size_t kMaxNotes = 1'000;

    // The reader has to outlive this.
    WordFitter(LyricReader& reader, WaysToFit ways) : reader_(reader), ways_(ways) {}

    // Reads the word once for each entry of the dictionary. The answer to the same word and
    // division is kept, and stays where it is.
    const FittedWord& fit(const SongWord& word);

private:
    using Division = std::pair<std::size_t, std::vector<std::size_t>>;

    LyricReader& reader_;
    WaysToFit ways_;
    std::map<std::pair<std::string, Division>, FittedWord> fitted_;
};

} // namespace wybeta::wysim::words
