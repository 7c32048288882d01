// SPDX-License-Identifier: GPL-3.0-or-later
#include "tracks/TrackTable.h"

#include "host/Query.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <iterator>

namespace wybeta::tracks {

namespace {

TrackTable* currentTable = nullptr;

// The notes of an entry for changing in place. A walk that is reading the list keeps it as it was.
NoteList& unshared(std::shared_ptr<NoteList>& notes) {
    if (notes.use_count() > 1) {
        notes = std::make_shared<NoteList>(*notes);
    }
    return *notes;
}

// Writes the texts into the records from `position` on, as far as there are records.
void writeLyrics(NoteList& list, std::size_t position, const std::vector<std::string>& texts) {
    const std::size_t count = std::min(texts.size(), list.size() - position);
    // Reserve before writing, so that a failed allocation leaves the list unchanged.
    for (std::size_t i = 0; i < count; ++i) {
        auto& lyrics = list.lyrics(position + i);
        lyrics.reserve(std::max(lyrics.capacity(), texts[i].size()));
    }
    for (std::size_t i = 0; i < count; ++i) {
        list.lyrics(position + i) = texts[i];
    }
}

} // namespace

TrackTable* currentTrackTable() {
    return currentTable;
}

void setCurrentTrackTable(TrackTable* table) {
    currentTable = table;
}

void pruneTrackTable(TrackTable& table, std::vector<TrackKey> visited) {
    std::sort(visited.begin(), visited.end(), std::less<>());
    for (auto entry = table.begin(); entry != table.end();) {
        const bool isVisited =
            std::binary_search(visited.begin(), visited.end(), entry->first, std::less<>());
        entry = isVisited ? std::next(entry) : table.erase(entry);
    }
}

void syncTrackTableLyrics(TrackTable& table, const void* firstEvent,
                          const std::vector<std::string>& texts) {
    for (auto& [track, entry] : table) {
        const auto& notes = *entry.notes;
        const auto first =
            std::find_if(notes.begin(), notes.end(), [firstEvent](const NoteRecord& record) {
                return record.event == firstEvent;
            });
        if (first != notes.end()) {
            const auto position = static_cast<std::size_t>(first - notes.begin());
            writeLyrics(unshared(entry.notes), position, texts);
            return;
        }
    }
}

void applyNoteCountChange(host::IProjectNode* trackNode, TrackKey track, const NoteChanges& changes,
                          CountChange kind) {
    if (currentTable == nullptr || currentTable->count(track) == 0) {
        return;
    }
    const auto answered = host::query<host::IProjectTrack>(trackNode);
    // The query may have called back, so the table is looked up again.
    if (currentTable == nullptr) {
        return;
    }
    const auto entry = currentTable->find(answered.get());
    if (entry == currentTable->end()) {
        return;
    }
    auto& notes = entry->second.notes;
    if (kind == CountChange::Insert) {
        notes = std::make_shared<NoteList>(mergeNotes(*notes, changes));
    } else {
        removeNotes(unshared(notes), changes);
    }
}

} // namespace wybeta::tracks
