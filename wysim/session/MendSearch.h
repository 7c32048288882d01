// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wysim/session/ScratchTrack.h"
#include "wysim/words/TextFinding.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace wybeta::wysim::session {

// A word and what stands around it up to the next blanks.
struct WordInText {
    std::u32string before;
    std::u32string word;
    std::u32string after;
};

// What is wrong with a word, and what to write in its place.
struct Mending {
    words::Reason reason = words::Reason::Unknown;
    std::vector<std::u32string> mends;
};

// The search for what keeps a word from being sung. Each mend was tried where the word stands.
class MendSearch {
public:
    static constexpr std::size_t kMaxTries = 1'000;
    static constexpr std::size_t kMaxMends = 5;

    // The track and the word, which is not sung, have to outlive this.
    MendSearch(ScratchTrack& scratch, const WordInText& word)
        : tries_(scratch, kMaxTries), word_(word) {}

    // To be called once.
    Mending run();

private:
    // The text, with a blank behind it where that is needed, if all of it is sung.
    std::optional<std::u32string> sung(const std::u32string& text);
    std::optional<Mending> tryRewriting();
    std::vector<std::u32string> sungNeighbours();

    LimitedTries tries_;
    const WordInText& word_;
    std::u32string rewritten_; // the word without what may stick to it, in plain characters
    std::size_t syllablesAround_ = 0;
};

} // namespace wybeta::wysim::session
