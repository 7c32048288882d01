// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wysim/laying/Melody.h"
#include "wysim/laying/TextToLay.h"
#include "wysim/song/Song.h"
#include "wysim/words/LyricReader.h"
#include "wysim/words/WordFitter.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace wybeta::wysim::laying {

// A word of a text, laid or not.
struct LaidWord {
    std::size_t line;   // of the text, from 1
    std::size_t column; // in characters, from 1
    std::string text;
    bool isSung = false;
    std::optional<std::size_t> note = {}; // from 1; none where the word is laid on no note
    std::string typed = {};               // into that note
    Syllables carried = {};               // by the notes from that one on, once it is typed
    std::vector<std::size_t> notesOfSyllables = {};
};

struct LaidLine {
    std::size_t number; // in the text, from 1
    std::size_t firstWord;
    std::size_t words;
    std::size_t syllables = 0; // of the words that are sung
    std::size_t onNotes = 0;   // those of them that have notes
    std::size_t notes = 0;     // that these take
    HeldBy heldBy = HeldBy::Nothing;

    bool isWhole() const { return onNotes == syllables; }
    bool isHeld() const { return notes > onNotes; }
};

// A text laid under the notes of a track.
struct LaidText {
    std::vector<LaidLine> lines;
    std::vector<LaidWord> words; // of all lines, in the order of the text
};

// Lays the text under the track. Unsung words take no note, unless they may be guessed. Throws
// BadInput when the track has no notes or the text no words.
LaidText layText(const std::vector<std::string>& text, const song::Song& song, std::size_t track,
                 words::LyricReader& reader, bool usesGuesses);

} // namespace wybeta::wysim::laying
