// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wysim/words/LyricReader.h"

#include <string>

namespace wybeta::wysim::words {

// What it takes to bring a word onto its notes, or why that fails.
enum class Outcome {
    AsItIs,
    Hyphens, // and "ー"
    OtherEntry,
    Brackets,
    Guess,            // proposed phonemes in brackets
    Unknown,          // it is not sung
    DividedOtherwise, // the score has fewer notes for it than the dictionary has syllables
    NotReached,       // a syllable that is to be held is reached by no hyphen
};

constexpr bool isFitted(Outcome outcome) {
    return outcome <= Outcome::Guess;
}

// Such as "divided otherwise".
std::string nameOf(Outcome outcome);

struct FittedWord {
    Outcome outcome = Outcome::Unknown;
    std::string text;    // to type: as it was where it could not be fitted
    Syllables syllables; // that the text gives
    std::string reason;  // why it could not be fitted
};

} // namespace wybeta::wysim::words
