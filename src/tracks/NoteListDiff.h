// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tracks/NoteList.h"

#include <cstdint>
#include <vector>

namespace wybeta::tracks {

// A note record that the longer of two lists has and the shorter lacks.
struct NoteChange {
    std::uint64_t position = 0; // in the longer list
    NoteRecord note;
};

using NoteChanges = std::vector<NoteChange>;

// Compares two lists by the events of their records, in one pass without looking ahead: a greedy
// match, not the shortest difference. Positions ascend. Empty when `longer` is the shorter one.
NoteChanges diffNoteLists(const NoteList& longer, const NoteList& shorter);

// Puts the changes back at their positions. All records of the list are kept; a change whose
// position is never reached is left out, with all changes after it.
NoteList mergeNotes(const NoteList& list, const NoteChanges& changes);

// Takes the records at the positions of the changes out again; positions past the end are ignored.
// Any other record whose value is -1, the deletion mark, goes as well.
void removeNotes(NoteList& list, const NoteChanges& changes);

} // namespace wybeta::tracks
