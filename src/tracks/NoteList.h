// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tracks/NoteRecord.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace wybeta::tracks {

// The records of one track, part after part, each part in its iterator's order. The list tracks
// whether its events are known to be distinct, which spares the next walk a search for each.
class NoteList {
public:
    std::size_t size() const { return records_.size(); }
    bool empty() const { return records_.empty(); }
    const NoteRecord& operator[](std::size_t index) const { return records_[index]; }
    auto begin() const { return records_.begin(); }
    auto end() const { return records_.end(); }

    bool isKnownDistinct() const { return isKnownDistinct_; }

    void reserve(std::size_t size) { records_.reserve(size); }

    // The events are no longer known to be distinct, since the new one is not looked for.
    void append(NoteRecord record) {
        records_.push_back(std::move(record));
        isKnownDistinct_ = false;
    }

    template <class Predicate>
    void removeIf(Predicate predicate) {
        records_.erase(std::remove_if(records_.begin(), records_.end(), predicate), records_.end());
    }

    // The fields of a record that may change in place; its event may not.
    std::string& lyrics(std::size_t index) { return records_[index].lyrics; }
    std::int32_t& value(std::size_t index) { return records_[index].value; }

private:
    friend class NoteListWriter;

    std::vector<NoteRecord> records_;
    bool isKnownDistinct_ = false;
};

} // namespace wybeta::tracks
