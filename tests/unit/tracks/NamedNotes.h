// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tracks/NoteList.h"
#include "tracks/NoteListDiff.h"
#include "tracks/NoteListWriter.h"

#include <string>
#include <string_view>

namespace wybeta::tests {

// The event of the note that a letter stands for; none for a dot.
inline const void* eventNamed(char letter) {
    static const char events[256] = {};
    return letter == '.' ? nullptr : &events[static_cast<unsigned char>(letter)];
}

inline tracks::NoteRecord noteNamed(char letter) {
    tracks::NoteRecord note;
    note.lyrics = letter;
    note.event = eventNamed(letter);
    return note;
}

// The same list once a walk has found its events to be distinct.
inline tracks::NoteList knownDistinct(const tracks::NoteList& list) {
    tracks::NoteList known;
    tracks::NoteListWriter writer(known, list);
    for (const auto& record : list.records) {
        writer.next() = record;
        writer.keep();
        writer.findPrevious();
    }
    writer.finish();
    return known;
}

// A list with one record for each letter: "abc".
inline tracks::NoteList notesNamed(std::string_view letters) {
    tracks::NoteList notes;
    for (const char letter : letters) {
        notes.records.push_back(noteNamed(letter));
    }
    return notes;
}

inline std::string namesOf(const tracks::NoteList& notes) {
    std::string names;
    for (const auto& note : notes.records) {
        names += note.lyrics;
    }
    return names;
}

// Written as positions with letters: "1b 2c".
inline std::string namesOf(const tracks::NoteChanges& changes) {
    std::string names;
    for (const auto& change : changes) {
        names += (names.empty() ? "" : " ") + std::to_string(change.position) + change.note.lyrics;
    }
    return names;
}

} // namespace wybeta::tests
