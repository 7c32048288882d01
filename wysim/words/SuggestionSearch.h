// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wysim/words/LyricReader.h"
#include "wysim/words/Proposals.h"
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

// What is wrong with a word, and what to write instead, the best first.
struct Diagnosis {
    Reason reason = Reason::Unknown;
    std::vector<Proposal> proposals;
};

// Finds what keeps a word from being sung. Each text that is proposed is sung in the word's place.
class SuggestionSearch {
public:
    // The reader and the word, which is not sung, have to outlive this. `isAmongKana` tells whether
    // the text around it is Japanese.
    SuggestionSearch(LyricReader& reader, const WordInText& word, bool isAmongKana)
        : reader_(reader), word_(word), isAmongKana_(isAmongKana) {}

    Diagnosis run();

    // The word without what may stick to it, in plain characters. For after run().
    const std::u32string& plainWord() const { return plain_; }

private:
    // The text, with a blank after it where that is needed, if all of it is sung.
    std::optional<std::u32string> sung(const std::u32string& text);
    std::optional<Diagnosis> tryRewriting();
    std::optional<Diagnosis> tryParting();
    std::vector<Proposal> proposals();

    LyricReader& reader_;
    const WordInText& word_;
    bool isAmongKana_;
    std::u32string plain_;
    Syllables asItIs_; // what is sung of the word and the text around it
    std::size_t syllablesAround_ = 0;
};

} // namespace wybeta::wysim::words
