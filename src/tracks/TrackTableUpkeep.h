// SPDX-License-Identifier: GPL-3.0-or-later
//
// How the track table follows the project and the host's undo history.
#pragma once

#include "host/IProjectNode.h"
#include "tracks/NoteListDiff.h"
#include "tracks/TrackTable.h"

#include <string>
#include <vector>

namespace wybeta::editsteps {

// Drops the entries of all tracks that are not in `visited`.
void pruneTrackTable(TrackTable& table, std::vector<TrackKey> visited);

// Writes the texts into the records from the one of `firstEvent` on, in the first list of the table
// that has one. Texts past the end of that list are left out. Nothing happens when no record has
// the event. The list has all the texts or, when an allocation fails, none.
void syncTrackTableLyrics(TrackTable& table, const void* firstEvent,
                          const std::vector<std::string>& texts);

enum class CountChange { Insert, Remove };

// Brings the current extension's list of a track in line with notes that came back or went. Null
// node: nothing happens. The node is not held and may be gone with its track, so it is asked for
// its identity only while the table has an entry under `track`, the identity that it had at first.
// A walk after the track has gone drops that entry; before one, the host's own history keeps the
// track.
void applyNoteCountChange(host::IProjectNode* trackNode, TrackKey track, const NoteChanges& changes,
                          CountChange kind);

} // namespace wybeta::editsteps
