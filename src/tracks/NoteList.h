// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace wybeta::tracks {

// One event of a part as it was last read. Times are in the unit of the host's time context and are
// only carried, never computed with. The first reading of a track also records events that are no
// notes: empty, with the event of the note before.
struct NoteRecord {
    double start = 0;
    double length = 0;
    std::int32_t value = 0;
    std::string lyrics;  // UTF-8
    std::string phoneme; // UTF-8
    // Identifies the event by its address. It is never dereferenced: the event may be gone.
    const void* event = nullptr;
};

// The records of one track, part after part, each part in its iterator's order.
struct NoteList {
    std::vector<NoteRecord> records;
    // Whether the events are known to be distinct, which spares the next walk a search for each.
    bool isKnownDistinct = false;
};

} // namespace wybeta::tracks
