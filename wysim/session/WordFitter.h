// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wysim/session/FittedWord.h"
#include "wysim/session/ScratchTrack.h"
#include "wysim/words/SongWords.h"

#include <cstddef>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace wybeta::wysim::session {

// Finds what to type for a word so that its syllables come out on the notes that the score gives
// them. All that it knows of syllables is what the extension answers.
class WordFitter {
public:
    // The track has to outlive this.
    WordFitter(ScratchTrack& scratch, bool usesBrackets)
        : scratch_(scratch), usesBrackets_(usesBrackets) {}

    // Searches once for each word and division. The answer stays where it is.
    const FittedWord& fit(const words::SongWord& word);

private:
    using Division = std::pair<std::size_t, std::vector<std::size_t>>;

    ScratchTrack& scratch_;
    bool usesBrackets_;
    std::map<std::pair<std::string, Division>, FittedWord> fitted_;
};

} // namespace wybeta::wysim::session
