// SPDX-License-Identifier: GPL-3.0-or-later
#include "tracks/TrackTable.h"

#include "host/Query.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace wybeta::tracks {

namespace {

// The notes of an entry for changing in place. A walk that is reading the list keeps it as it was.
NoteList& unshared(std::shared_ptr<NoteList>& notes) {
    if (notes.use_count() > 1) {
        notes = std::make_shared<NoteList>(*notes);
    }
    return *notes;
}

} // namespace

TrackTable*& currentTrackTable() {
    static TrackTable* table = nullptr;
    return table;
}

void pruneTrackTable(TrackTable& table, const std::vector<TrackKey>& visited) {
    TrackTable kept;
    for (const auto* const track : visited) {
        kept.insert(table.extract(track));
    }
    table = std::move(kept);
}

void syncTrackTableLyrics(TrackTable& table, const void* firstEvent,
                          const std::vector<std::string>& texts) {
    const auto isFirst = [firstEvent](const NoteRecord& note) { return note.event == firstEvent; };
    for (auto& [track, entry] : table) {
        const auto& notes = entry.notes->records;
        const auto first = std::find_if(notes.begin(), notes.end(), isFirst);
        if (first != notes.end()) {
            const auto position = static_cast<std::size_t>(first - notes.begin());
            // Copied before writing, so that a failed allocation leaves the list unchanged.
            auto copies = texts;
            auto& records = unshared(entry.notes).records;
            for (std::size_t i = 0; i < std::min(texts.size(), records.size() - position); ++i) {
                records[position + i].lyrics = std::move(copies[i]);
            }
            return;
        }
    }
}

void applyNoteCountChange(host::IProjectNode* trackNode, TrackKey track, const NoteChanges& changes,
                          CountChange kind) {
    TrackTable* const& table = currentTrackTable();
    if (table == nullptr || table->count(track) == 0) {
        return;
    }
    const auto answered = host::query<host::IProjectTrack>(trackNode);
    // The query may have called back, so the table is looked up again.
    if (table == nullptr || table->count(answered) == 0) {
        return;
    }
    auto& notes = table->at(answered).notes;
    if (kind == CountChange::Insert) {
        notes = std::make_shared<NoteList>(mergeNotes(*notes, changes));
    } else {
        removeNotes(unshared(notes), changes);
    }
}

} // namespace wybeta::tracks
