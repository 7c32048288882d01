// SPDX-License-Identifier: GPL-3.0-or-later
//
// How syllables are held over notes. A note that goes on with the syllable of the note before it
// carries "-", or "-" and the consonants that end the syllable.
#pragma once

#include "wysim/words/LyricReader.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace wybeta::wysim::words {

// For each syllable, by how many notes more than one it is held.
using Holds = std::vector<std::size_t>;

// The holds that give each syllable the notes of the score's syllable in its place; none when the
// score has another number of syllables.
std::optional<Holds> holdsFor(const Syllables& syllables,
                              const std::vector<std::size_t>& notesOfSyllables);

// The syllables over the notes that carry them held that often, each whole on its first note.
Syllables withHolds(const Syllables& syllables, const Holds& holds);

// The syllables over as many notes: the last syllable is held, or takes up those that are too many.
Syllables spread(const Syllables& syllables, std::size_t notes);

} // namespace wybeta::wysim::words
