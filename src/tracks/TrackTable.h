// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/IProjectTrack.h"
#include "tracks/NoteRecord.h"

#include <map>
#include <memory>

namespace wybeta {

// Tells one track from another. The track may be gone, so the address is never followed.
using TrackKey = const host::IProjectTrack*;

// The notes of a track as last seen. Shared, so that a walk can go on reading the list it began
// with while the host calls back and an inner walk puts another list in its place.
using SharedNoteRecords = std::shared_ptr<host::NoteRecords>;

using TrackTable = std::map<TrackKey, SharedNoteRecords>;

// The table of the current extension instance; null while there is none.
TrackTable* currentTrackTable();

} // namespace wybeta
