// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wysim/laying/Alignment.h"
#include "wysim/laying/TextToLay.h"
#include "wysim/laying/WaysToSing.h"
#include "wysim/song/Song.h"
#include "wysim/words/LyricReader.h"
#include "wysim/words/WordFitter.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace wybeta::wysim::laying {

// A word of a text, laid or not.
struct LaidWord {
    std::size_t line;   // of the text, from 1
    std::size_t column; // in characters, from 1
    std::string text;
    std::string lyric; // that sings it where no syllable is held
    bool isSung = false;
    std::optional<std::size_t> note = {}; // from 1; none where the word is laid on no note
    std::vector<std::size_t> notesOfSyllables = {};
    bool isCutOff = false;  // whether its last syllables have no notes
    std::string typed = {}; // into that note
    Syllables carried = {}; // by the notes from that one on, once it is typed

    std::size_t notes() const;
};

struct LaidLine {
    std::size_t number; // in the text, from 1
    std::size_t firstWord;
    std::size_t words;
    // Of the words that are sung; those that share a note are one.
    std::size_t syllables = 0;
    std::size_t onNotes = 0; // those of them that have notes
    std::size_t notes = 0;   // of these words
    // Of the notes that hold a syllable, how many a slur shows, how many only a beam, and how many
    // nothing does.
    std::size_t heldBySlurs = 0;
    std::size_t heldByBeams = 0;
    std::size_t heldFreely = 0;

    bool isTooLong() const { return onNotes < syllables; }
    bool isHeld() const { return !isTooLong() && notes > onNotes; }
    bool isAsSung() const { return !isTooLong() && !isHeld() && notes > 0; }
};

// A text laid under the notes of a track.
struct LaidText {
    std::vector<LaidLine> lines;
    std::vector<LaidWord> words; // of all lines, in the order of the text
};

// What a song and a text have to be to be laid.
constexpr std::size_t kLargestText = std::size_t{256} * 1024; // in bytes
constexpr std::size_t kMostLines = 10'000;

// The lines of a text. Throws BadInput when it is too large or no UTF-8, saying where.
std::vector<std::string> linesOfText(std::string_view text);

// Lays texts under melodies, and keeps what it has found out of their words.
class TextLaying {
public:
    // The reader has to outlive this. Words that are not sung take no note, unless they are
    // guessed.
    TextLaying(words::LyricReader& reader, bool usesGuesses)
        : reader_(reader), ways_(reader, usesGuesses), fitter_(reader, {true, usesGuesses}) {}

    // Says where each word comes, and what to type there. Throws BadInput when the track has no
    // notes or the text no words.
    LaidText lay(const std::vector<std::string>& text, const song::Song& song, std::size_t track);
    // The same without what to type; a text without words has no lines.
    LaidText place(const std::vector<std::string>& text, const song::Song& song, std::size_t track);

private:
    LaidText laid(const std::vector<LineToLay>& lines, const song::Song& song, std::size_t track,
                  bool isTyped);
    void typeWord(const WordToLay& word, const PlacedWord& placed, LaidWord& laid);

    words::LyricReader& reader_;
    WaysToSing ways_;
    words::WordFitter fitter_;
};

} // namespace wybeta::wysim::laying
