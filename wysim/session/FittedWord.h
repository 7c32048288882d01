// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wysim/session/ScratchTrack.h"

#include <string>

namespace wybeta::wysim::session {

// What it takes to bring a word onto its notes, or why that fails.
enum class Outcome {
    AsItIs,
    Hyphens, // and "ー"
    OtherEntry,
    Brackets,
    Unknown,          // it is not sung
    DividedOtherwise, // the score has fewer notes for it than the dictionary has syllables
    NotReached,       // a syllable that is to be held is reached by no hyphen
};

constexpr bool isFitted(Outcome outcome) {
    return outcome <= Outcome::Brackets;
}

struct FittedWord {
    Outcome outcome = Outcome::Unknown;
    std::string text;   // to type: as it was where it could not be fitted
    Syllables carried;  // by its notes
    std::string reason; // why it could not be fitted
};

} // namespace wybeta::wysim::session
