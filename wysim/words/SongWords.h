// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wysim/song/Song.h"

#include <cstddef>
#include <string>
#include <vector>

namespace wybeta::wysim::words {

// A typed lyric of a song and the notes that belong to it: its own, and those up to the next typed
// one.
struct SongWord {
    std::size_t track = 1; // from 1, as the note
    std::size_t note = 1;
    std::string text; // a division that the song holds is put back into one bracket
    std::size_t notes = 1;
    // How many of its notes each syllable of the score takes; empty where nothing tells.
    std::vector<std::size_t> notesOfSyllables;
};

std::vector<SongWord> wordsOf(const song::Song& song);

// Puts another text in the place of a word of the song, yet to be divided.
void typeWord(song::Song& song, const SongWord& word, const std::string& text);

} // namespace wybeta::wysim::words
