// SPDX-License-Identifier: GPL-3.0-or-later
//
// A text that is laid under a track of a song, in the editor and in words.
#pragma once

#include "simulator/Editor.h"
#include "wysim/laying/LaidText.h"
#include "wysim/session/SongEditing.h"
#include "wysim/song/Song.h"

#include <cstddef>
#include <string>
#include <vector>

namespace wybeta::wysim::session {

using laying::LaidText;

// Types each laid word into an empty track of the editor, to see that its notes carry what was
// read. Throws ModuleDisagrees.
void proveLaid(simulator::Editor& editor, const LaidText& laid);

// The song with the words typed into the track, yet to be divided. All words that were there go.
song::Song laidSong(song::Song song, std::size_t track, const LaidText& laid);
// The same words for an editor.
std::vector<LaidLyric> laidLyrics(const LaidText& laid);

// How many words the track has.
std::size_t countWords(const song::Song& song, std::size_t track);

struct LayingCounts {
    std::size_t asSung = 0; // lines, as the next two
    std::size_t held = 0;
    std::size_t tooLong = 0;
    std::size_t syllables = 0;
    std::size_t onNotes = 0; // syllables
    std::size_t notSung = 0; // words

    bool isAllLaid() const { return tooLong == 0 && notSung == 0; }
};

LayingCounts countLaid(const LaidText& laid);

// Such as "slurs and beams", or "no marks"; "as sung" where each syllable has one note, "-" where
// none has any.
std::string waysOfHolding(const laying::LaidLine& line);
// The first note of a line, from 1; 0 for a line without notes.
std::size_t firstNoteOf(const LaidText& laid, const laying::LaidLine& line);
// The words of a line that have no notes, or not all that they need.
std::vector<laying::LaidWord> wordsLeft(const LaidText& laid, const laying::LaidLine& line);
// Such a word that is sung, "hello"; of one that is cut off, "hello…".
std::string textLeft(const laying::LaidWord& word);

// A table with a row for each line, and the line that counts them.
std::string layingTable(const LaidText& laid);
std::string layingTotals(const LaidText& laid);

// The words in JSON, in the order of the text. The track counts from 0.
std::string layingJson(const LaidText& laid, std::size_t track);

} // namespace wybeta::wysim::session
