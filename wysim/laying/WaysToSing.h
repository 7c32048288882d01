// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wysim/words/LyricReader.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace wybeta::wysim::laying {

using words::Syllables;

// A way in which a word may be sung.
struct WayToSing {
    Syllables syllables;
    // For each syllable, what speaks against singing it on the note of the one before it, as
    // singers do with "flow'r" and "ev'ry"; none if they don't.
    std::vector<std::optional<double>> joinCosts;
    double cost = 0; // what speaks against this way
    // Whether no dictionary has it, so that it takes a bracket to have it sung.
    bool isOwn = false;
};

// Finds the ways in which words may be sung. The answer to a word is kept, and stays where it is.
class WaysToSing {
public:
    // The reader has to outlive this. Words that are not sung have ways if these may be guessed.
    WaysToSing(words::LyricReader& reader, bool usesGuesses)
        : reader_(reader), usesGuesses_(usesGuesses) {}

    // Of a lyric of one word, the likeliest first; none for one that is not sung.
    const std::vector<WayToSing>& of(const std::string& lyric);

private:
    std::vector<WayToSing> find(const std::string& lyric);

    words::LyricReader& reader_;
    bool usesGuesses_;
    std::map<std::string, std::vector<WayToSing>> known_;
};

// Two syllables sung on one note: "f l aw", "er" is "f l aw er"; "eh", "v er", "iy" ends in "v r
// iy".
std::string joinedSyllable(const std::string& first, const std::string& second);

} // namespace wybeta::wysim::laying
