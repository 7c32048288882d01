// SPDX-License-Identifier: GPL-3.0-or-later
#include "tracks/NoteListDiff.h"

#include <algorithm>
#include <cstddef>

namespace wybeta::editsteps {

namespace {

using host::NoteRecord;
using host::NoteRecords;

// An ordinary value, 0xFFFFFFFF, which no real note carries.
constexpr std::int32_t kDeletionMark = -1;

// Whether the change goes to that place of the merged list. Its position counts as a signed 32-bit
// number.
bool belongsAt(const NoteChange& change, std::size_t place) {
    const std::int64_t position = static_cast<std::int32_t>(change.position);
    return position == static_cast<std::int64_t>(place);
}

} // namespace

NoteChanges diffNoteLists(const NoteRecords& longer, const NoteRecords& shorter) {
    NoteChanges changes;
    if (longer.size() < shorter.size()) {
        return changes;
    }
    std::size_t j = 0;
    for (std::size_t i = 0; i < longer.size(); ++i) {
        const void* const event = j < shorter.size() ? shorter[j].event : nullptr;
        if (event == longer[i].event) {
            ++j;
        } else {
            changes.push_back({i, longer[i]});
        }
    }
    return changes;
}

NoteRecords mergeNotes(const NoteRecords& records, const NoteChanges& changes) {
    NoteRecords merged;
    merged.reserve(records.size() + changes.size());
    auto change = changes.begin();
    auto record = records.begin();
    const auto takeChanges = [&] {
        while (change != changes.end() && belongsAt(*change, merged.size())) {
            merged.push_back((change++)->note);
        }
    };
    takeChanges();
    while (record != records.end()) {
        merged.push_back(*record++);
        takeChanges();
    }
    return merged;
}

void removeNotes(NoteRecords& records, const NoteChanges& changes) {
    for (const auto& change : changes) {
        if (change.position < records.size()) {
            records[change.position].value = kDeletionMark;
        }
    }
    const auto isMarked = [](const NoteRecord& record) { return record.value == kDeletionMark; };
    records.erase(std::remove_if(records.begin(), records.end(), isMarked), records.end());
}

} // namespace wybeta::editsteps
