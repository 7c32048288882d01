// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/IProjectNode.h"
#include "tracks/LyricsDivision.h"
#include "tracks/NoteList.h"

namespace wybeta::tracks {

// Reads a track's notes into `newRecords` and divides each typed lyric over its note and the notes
// that follow. A lyric counts as typed if the host flags its note (IPartEvent::isFlagged) and the
// text differs from the one in `oldRecords`. The notes that get a new lyric are added to
// `division`, and their records carry it; nothing is written to the host. Returns 1 when at least
// one lyric was divided, else 0.
//
// `argument` is what the host passed to start the walk. `newRecords` is overwritten; pass a spare
// list to reuse its memory. `division` must be empty. `oldRecords` must not change during the call,
// even if the host calls back.
int convertTrackLyrics(host::IProjectNotificationArgument& argument, host::IProjectNode& track,
                       const NoteList& oldRecords, NoteList& newRecords, LyricsDivision& division);

} // namespace wybeta::tracks
