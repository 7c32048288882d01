// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tracks/NoteRecord.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace wybeta::lyrics {

// Finds the record of an event in a list of note records, which has to outlive the index and stay
// as it is. The hash table is made when it is first needed: not while nothing is sought, nor while
// the notes are those of a list whose events are known to be distinct.
class EventIndex {
public:
    explicit EventIndex(const host::NoteRecords& records)
        : records_(records), areDistinct_(records.areDistinct) {}

    // To be told the event of each note that is read, in turn. Where the notes are still those of
    // the list, in its order, the search for the event is over with that.
    void follow(const void* event);

    // The first record of the event, null when the list has none.
    const host::NoteRecord* find(const void* event);

    // Whether the events that were followed are known to be distinct.
    bool hasFollowedDistinct() const { return isInOrder_ && areDistinct_; }

private:
    void build();
    std::size_t slotOf(const void* event) const;

    const host::NoteRecords& records_;
    bool areDistinct_;
    // The position up to which the list has been followed; the record of the event that came last,
    // null if it was not the next one of the list; and whether each was the next one.
    std::size_t followed_ = 0;
    const host::NoteRecord* last_ = nullptr;
    bool isInOrder_ = true;
    // An open-addressed hash table of record positions plus one; 0 is an empty slot.
    std::vector<std::uint32_t> slots_;
};

} // namespace wybeta::lyrics
