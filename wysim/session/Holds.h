// SPDX-License-Identifier: GPL-3.0-or-later
//
// How syllables are held over notes. A note that goes on with the syllable of the note before it
// carries "-", or "-" and the consonants that end the syllable.
#pragma once

#include "wysim/session/ScratchTrack.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace wybeta::wysim::session {

// For each syllable, by how many notes more than one it is held.
using Holds = std::vector<std::size_t>;

// Whether the notes carry the syllables, each held that often, and nothing else.
bool carryHeld(const Syllables& carried, const Syllables& syllables, const Holds& holds);

// Which syllable the notes carry held once, when it is one of those wanted and all others are as
// they were.
std::optional<std::size_t> heldOnce(const Syllables& carried, const Syllables& syllables,
                                    const std::vector<bool>& wanted);

// The holds that give each syllable the notes of the score's syllable in its place; none when the
// score has another number of syllables.
std::optional<Holds> holdsFor(const Syllables& syllables,
                              const std::vector<std::size_t>& notesOfSyllables);

// The syllables over the notes that carry them held that often, each whole on its first note.
Syllables withHolds(const Syllables& syllables, const Holds& holds);

// The syllables over as many notes: the last syllable is held, or takes up those that are too many.
Syllables spread(const Syllables& syllables, std::size_t notes);

} // namespace wybeta::wysim::session
