// SPDX-License-Identifier: GPL-3.0-or-later
#include "tracks/NoteListDiff.h"

#include <cstddef>

namespace wybeta::tracks {

namespace {

// An ordinary value, 0xFFFFFFFF, which no real note carries.
constexpr std::int32_t kDeletionMark = -1;

// Whether the change goes to that place of the merged list. Its position counts as a signed 32-bit
// number.
bool belongsAt(const NoteChange& change, std::size_t place) {
    const std::int64_t position = static_cast<std::int32_t>(change.position);
    return position == static_cast<std::int64_t>(place);
}

} // namespace

NoteChanges diffNoteLists(const NoteList& longer, const NoteList& shorter) {
    if (longer.size() < shorter.size()) {
        return {};
    }
    NoteChanges changes;
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

NoteList mergeNotes(const NoteList& list, const NoteChanges& changes) {
    NoteList merged;
    merged.reserve(list.size() + changes.size());
    auto change = changes.begin();
    const auto appendChanges = [&] {
        for (; change != changes.end() && belongsAt(*change, merged.size()); ++change) {
            merged.append(change->note);
        }
    };
    appendChanges();
    for (const auto& record : list) {
        merged.append(record);
        appendChanges();
    }
    return merged;
}

void removeNotes(NoteList& list, const NoteChanges& changes) {
    for (const auto& change : changes) {
        if (change.position < list.size()) {
            list.value(static_cast<std::size_t>(change.position)) = kDeletionMark;
        }
    }
    list.removeIf([](const NoteRecord& record) { return record.value == kDeletionMark; });
}

} // namespace wybeta::tracks
