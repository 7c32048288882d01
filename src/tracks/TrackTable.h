// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/IProjectNode.h"
#include "host/IProjectTrack.h"
#include "tracks/NoteList.h"
#include "tracks/NoteListDiff.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace wybeta::tracks {

// Identifies a track by its address. It is never dereferenced: the track may be gone.
using TrackKey = const host::IProjectTrack*;

struct TrackEntry {
    // The notes as last seen. Shared, because a walk goes on reading the list that it began with
    // when the host calls back and an inner walk puts another list in its place.
    std::shared_ptr<NoteList> notes;
    // The list before, for the next walk to write over; may be null.
    std::shared_ptr<NoteList> spare;
};

using TrackTable = std::map<TrackKey, TrackEntry>;

// The table of the current extension instance, null while there is none. Edit steps in the host's
// history reach the table through it. The pointer is borrowed: the extension that owns the table
// resets it to null before it is destroyed.
TrackTable*& currentTrackTable();

// Drops the entries of all tracks that are not in `visited`.
void pruneTrackTable(TrackTable& table, const std::vector<TrackKey>& visited);

// Writes the texts into consecutive records from the one of `firstEvent` on, in the first list of
// the table that has one. Texts past the end of that list are left out; without such a record
// nothing happens. When an allocation fails, the list is unchanged.
void syncTrackTableLyrics(TrackTable& table, const void* firstEvent,
                          const std::vector<std::string>& texts);

enum class CountChange { Insert, Remove };

// Brings the current table's list of a track in line with notes that came back or went. `trackNode`
// is borrowed and may dangle: it is used only while the table has `track`, the track's key when the
// step was made. Null node: nothing happens.
void applyNoteCountChange(host::IProjectNode* trackNode, TrackKey track, const NoteChanges& changes,
                          CountChange kind);

} // namespace wybeta::tracks
