// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace wybeta::host {

// One event of a part as it was last read. Times are in the unit of the host's time context and are
// only carried, never computed with.
struct NoteRecord {
    double start = 0;
    double length = 0;
    std::int32_t value = 0;
    std::string lyrics;  // UTF-8
    std::string phoneme; // UTF-8
    // Tells one event from another. The event may be gone, so the address is never followed.
    const void* event = nullptr;
};

// The events of one track, part after part, each part in its iterator's order.
struct NoteRecords : std::vector<NoteRecord> {
    using vector::vector;

    // Whether the list is known to have no event twice. Whoever adds a record has to clear it.
    bool areDistinct = false;
};

} // namespace wybeta::host
