// SPDX-License-Identifier: GPL-3.0-or-later
#include "tracks/TrackTableUpkeep.h"

#include "host/IProjectTrack.h"
#include "host/Query.h"
#include "tracks/NoteRecord.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <iterator>
#include <memory>

namespace wybeta::editsteps {

namespace {

using host::NoteRecord;
using host::NoteRecords;

// The list of an entry for changing in place. A walk that is reading the list keeps it as it was.
NoteRecords& unshared(SharedNoteRecords& records) {
    if (records.use_count() > 1) {
        records = std::make_shared<NoteRecords>(*records);
    }
    return *records;
}

// Writes the texts into the records from the position on, as far as there are records.
void writeLyrics(NoteRecords& records, std::size_t position,
                 const std::vector<std::string>& texts) {
    const std::size_t count = std::min(texts.size(), records.size() - position);
    // All memory first, so that the list is never left half written. A short text needs none.
    for (std::size_t i = 0; i < count; ++i) {
        if (texts[i].size() > std::string().capacity()) {
            auto& lyrics = records[position + i].lyrics;
            lyrics.reserve(std::max(lyrics.capacity(), texts[i].size()));
        }
    }
    for (std::size_t i = 0; i < count; ++i) {
        records[position + i].lyrics = texts[i];
    }
}

} // namespace

void pruneTrackTable(TrackTable& table, std::vector<TrackKey> visited) {
    std::sort(visited.begin(), visited.end(), std::less<>());
    for (auto entry = table.begin(); entry != table.end();) {
        const bool isMet =
            std::binary_search(visited.begin(), visited.end(), entry->first, std::less<>());
        entry = isMet ? std::next(entry) : table.erase(entry);
    }
}

void syncTrackTableLyrics(TrackTable& table, const void* firstEvent,
                          const std::vector<std::string>& texts) {
    for (auto& [track, shared] : table) {
        const auto first =
            std::find_if(shared->begin(), shared->end(), [firstEvent](const NoteRecord& record) {
                return record.event == firstEvent;
            });
        if (first != shared->end()) {
            const auto position = static_cast<std::size_t>(first - shared->begin());
            writeLyrics(unshared(shared), position, texts);
            return;
        }
    }
}

void applyNoteCountChange(host::IProjectNode* trackNode, TrackKey track, const NoteChanges& changes,
                          CountChange kind) {
    const TrackTable* const before = currentTrackTable();
    if (before == nullptr || before->count(track) == 0) {
        return;
    }
    const auto answered = host::query<host::IProjectTrack>(trackNode);
    // Asking may have called back, so the table is looked up again.
    TrackTable* const table = currentTrackTable();
    if (table == nullptr) {
        return;
    }
    const auto entry = table->find(answered.get());
    if (entry == table->end()) {
        return;
    }
    if (kind == CountChange::Insert) {
        entry->second = std::make_shared<NoteRecords>(mergeNotes(*entry->second, changes));
    } else {
        removeNotes(unshared(entry->second), changes);
    }
}

} // namespace wybeta::editsteps
