// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tracks/NoteList.h"

#include <cstddef>
#include <unordered_map>

namespace wybeta::tracks {

// Finds the record of an event in a list of notes, which must outlive the index unchanged. While
// the notes are read in the order of a list whose events are known to be distinct, a cursor
// answers; the hash table is built on the first find() that the cursor cannot answer.
class EventIndex {
public:
    explicit EventIndex(const NoteList& list)
        : list_(list), isListDistinct_(list.isKnownDistinct()) {}

    // Moves the cursor. Call once per note, in reading order, with the note's event.
    void advance(const void* event);

    // The first record of the event, null when the list has none.
    const NoteRecord* find(const void* event);

    // Whether the events passed to advance() are known to be distinct.
    bool isKnownDistinct() const { return isInOrder_ && isListDistinct_; }

private:
    void build();

    const NoteList& list_;
    bool isListDistinct_;
    std::size_t next_ = 0;
    const NoteRecord* current_ = nullptr; // null when the last event was not the next of the list
    bool isInOrder_ = true;               // whether each event was the next of the list
    std::unordered_map<const void*, const NoteRecord*> firstRecords_;
};

} // namespace wybeta::tracks
