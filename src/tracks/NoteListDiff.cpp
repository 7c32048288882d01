// SPDX-License-Identifier: GPL-3.0-or-later
#include "tracks/NoteListDiff.h"

#include <algorithm>
#include <cstddef>

namespace wybeta::tracks {

namespace {

// An ordinary value, 0xFFFFFFFF, which no real note carries.
constexpr std::int32_t kDeletionMark = -1;

// Whether the change goes to that place of the merged list. Its position counts as a signed 32-bit
// number.
bool belongsAt(const NoteChange& change, std::size_t place) {
    return static_cast<std::int32_t>(change.position) == static_cast<std::int64_t>(place);
}

} // namespace

NoteChanges diffNoteLists(const NoteList& longer, const NoteList& shorter) {
    const auto& all = longer.records;
    const auto& some = shorter.records;
    if (all.size() < some.size()) {
        return {};
    }
    NoteChanges changes;
    std::size_t j = 0;
    for (std::size_t i = 0; i < all.size(); ++i) {
        const void* const event = j < some.size() ? some[j].event : nullptr;
        if (event == all[i].event) {
            ++j;
        } else {
            changes.push_back({i, all[i]});
        }
    }
    return changes;
}

NoteList mergeNotes(const NoteList& list, const NoteChanges& changes) {
    NoteList merged;
    auto& records = merged.records;
    auto next = list.records.begin();
    for (const auto& change : changes) {
        while (next != list.records.end() && !belongsAt(change, records.size())) {
            records.push_back(*next++);
        }
        if (!belongsAt(change, records.size())) {
            break;
        }
        records.push_back(change.note);
    }
    records.insert(records.end(), next, list.records.end());
    return merged;
}

void removeNotes(NoteList& list, const NoteChanges& changes) {
    auto& records = list.records;
    for (const auto& change : changes) {
        if (change.position < records.size()) {
            records[static_cast<std::size_t>(change.position)].value = kDeletionMark;
        }
    }
    const auto isMarked = [](const NoteRecord& record) { return record.value == kDeletionMark; };
    records.erase(std::remove_if(records.begin(), records.end(), isMarked), records.end());
}

} // namespace wybeta::tracks
