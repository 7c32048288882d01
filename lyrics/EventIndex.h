// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/NoteRecord.h"

#include <cstdint>
#include <vector>

namespace wybeta::lyrics {

// Finds the record of an event in a list of note records, which has to outlive the index and stay
// as it is. Made on the first search, so that a list in which nothing is sought costs nothing.
class EventIndex {
public:
    explicit EventIndex(const host::NoteRecords& records) : records_(records) {}

    // The first record of the event, null when the list has none.
    const host::NoteRecord* find(const void* event);

private:
    void build();
    std::size_t slotOf(const void* event) const;

    const host::NoteRecords& records_;
    // An open-addressed hash table of record positions plus one; 0 is an empty slot.
    std::vector<std::uint32_t> slots_;
};

} // namespace wybeta::lyrics
