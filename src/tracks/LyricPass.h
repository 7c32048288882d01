// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/IProjectNode.h"
#include "tracks/LyricsDivision.h"
#include "tracks/NoteRecord.h"

namespace wybeta::lyrics {

// Reads a track's notes into `newRecords` and divides each typed lyric over its note and the notes
// that follow. A lyric is typed when its note is flagged and the lyric is not the one in
// `oldRecords`. The notes that get a new lyric are added to `division`, their records carry it
// already; nothing is written to the host.
//
// `argument` is what the host passed to start the walk. `newRecords` may hold a list that is no
// longer needed, it is written over to use its memory again; `division` comes in empty. Returns 1
// when at least one lyric was divided, else 0. `oldRecords` must stay as it is, even if the host
// calls back meanwhile.
int convertTrackLyrics(host::IProjectNotificationArgument& argument, host::IProjectNode& track,
                       const host::NoteRecords& oldRecords, host::NoteRecords& newRecords,
                       LyricsDivision& division);

} // namespace wybeta::lyrics
