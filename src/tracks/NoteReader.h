// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/IProjectEvent.h"
#include "tracks/NoteList.h"

namespace wybeta::tracks {

// Reads a note event into `record`, replacing what it holds. Returns false and leaves the record
// untouched when the event is not a note. `timeContext` is the one of the event's part.
bool readNoteEvent(host::IPartEvent& event, Steinberg::FUnknown* timeContext, NoteRecord& record);

} // namespace wybeta::tracks
