// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tracks/NoteListDiff.h"
#include "tracks/NoteRecord.h"

#include <string>
#include <string_view>

namespace wybeta::tests {

// The event of the note that a letter stands for; none for a dot.
inline const void* eventNamed(char letter) {
    static const char events[256] = {};
    return letter == '.' ? nullptr : &events[static_cast<unsigned char>(letter)];
}

inline host::NoteRecord noteNamed(char letter) {
    host::NoteRecord note;
    note.lyrics = letter;
    note.event = eventNamed(letter);
    return note;
}

// A list with one record for each letter: "abc".
inline host::NoteRecords notesNamed(std::string_view letters) {
    host::NoteRecords notes;
    for (const char letter : letters) {
        notes.push_back(noteNamed(letter));
    }
    return notes;
}

inline std::string namesOf(const host::NoteRecords& notes) {
    std::string names;
    for (const auto& note : notes) {
        names += note.lyrics;
    }
    return names;
}

// Written as positions with letters: "1b 2c".
inline std::string namesOf(const editsteps::NoteChanges& changes) {
    std::string names;
    for (const auto& change : changes) {
        names += (names.empty() ? "" : " ") + std::to_string(change.position) + change.note.lyrics;
    }
    return names;
}

} // namespace wybeta::tests
