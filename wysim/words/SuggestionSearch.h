// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wysim/words/LyricReader.h"
#include "wysim/words/TextFinding.h"

#include <cstddef>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

namespace wybeta::wysim::words {

// A word and the text around it up to the next blanks.
struct WordInText {
    std::u32string before;
    std::u32string word;
    std::u32string after;

    bool operator<(const WordInText& other) const {
        return std::tie(word, before, after) < std::tie(other.word, other.before, other.after);
    }
};

// What is wrong with a word, and what to write instead.
struct Diagnosis {
    Reason reason = Reason::Unknown;
    std::vector<std::u32string> suggestions;
};

// Finds what keeps a word from being sung. Each suggestion is sung in the word's place.
class SuggestionSearch {
public:
    static constexpr std::size_t kMaxSuggestions = 5;

    // The reader and the word, which is not sung, have to outlive this.
    SuggestionSearch(LyricReader& reader, const WordInText& word) : reader_(reader), word_(word) {}

    Diagnosis run();

private:
    // The text, with a blank after it where that is needed, if all of it is sung.
    std::optional<std::u32string> sung(const std::u32string& text);
    std::optional<Diagnosis> tryRewriting();
    std::vector<std::u32string> sungNeighbours();

    LyricReader& reader_;
    const WordInText& word_;
    std::u32string rewritten_; // the word without what may stick to it, in plain characters
    std::size_t syllablesAround_ = 0;
};

} // namespace wybeta::wysim::words
