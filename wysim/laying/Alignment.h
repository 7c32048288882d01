// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wysim/laying/Melody.h"
#include "wysim/laying/TextToLay.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace wybeta::wysim::laying {

// Where a word comes to be sung.
struct PlacedWord {
    std::size_t line = 0;                      // an index, as the next three
    std::size_t word = 0;                      // in the line
    std::size_t way = 0;                       // of the word's ways to sing
    std::size_t note = 0;                      // the first
    std::vector<std::size_t> notesOfSyllables; // of those that have notes; at least one
    // For each syllable of the way that is sung, whether it shares the note of the one before it.
    std::vector<bool> joins;
};

// Puts the words of the lines on the notes so that the least speaks against it: words come out on
// notes that do not look held, lines begin with phrases. Words that are left out are not sung or
// have no room. In the order of the notes.
std::vector<PlacedWord> align(const std::vector<LineToLay>& lines,
                              const std::vector<MelodyNote>& melody);

} // namespace wybeta::wysim::laying
