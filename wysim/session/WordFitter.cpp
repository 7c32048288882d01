// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/session/WordFitter.h"

#include "wysim/session/WordSearch.h"

namespace wybeta::wysim::session {

const FittedWord& WordFitter::fit(const words::SongWord& word) {
    const auto [known, isNew] =
        fitted_.try_emplace({word.text, {word.notes, word.notesOfSyllables}});
    if (isNew) {
        known->second = WordSearch(scratch_, word, usesBrackets_).run();
    }
    return known->second;
}

} // namespace wybeta::wysim::session
