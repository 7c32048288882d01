// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wysim/words/LyricReader.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace wybeta::wysim::words {

// A way to have a word sung.
struct Proposal {
    std::u32string text; // to write instead of the word
    Syllables syllables; // to write in brackets after the text; none if the text is sung as it is
    bool isGuess = false;
};

// The most proposals for one word.
constexpr std::size_t kMostProposals = 5;

// What to write for an English or romaji word that the dictionary lacks, the best first: the word
// with the phonemes of another spelling; the kana of romaji; words with one letter changed; the
// word with guessed phonemes. Kana go last for a word that does not look Japanese, unless
// `isAmongKana`. The word has no marks around it but apostrophes.
std::vector<Proposal> proposalsFor(std::u32string_view word, LyricReader& reader, bool isAmongKana);

// How words may be sung.
struct Pronunciation {
    Syllables syllables;
    bool isGuess = false;
};

// How the word itself may be sung, the likeliest first.
std::vector<Pronunciation> pronunciationsOf(std::u32string_view word, LyricReader& reader,
                                            bool isAmongKana);

} // namespace wybeta::wysim::words
