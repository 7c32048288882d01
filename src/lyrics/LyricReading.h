// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "dictionary/PronunciationDictionary.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace wybeta::lyrics {

// Syllable phoneme strings in lyric order. Each is the phoneme symbols of one sung syllable joined
// by single spaces: "k a", "ky o", "cl", "sil".
using SyllableList = std::vector<std::string>;

enum class PartKind {
    Word,       // English, known to the dictionary or not
    Kana,       // one kana
    KanaPair,   // two kana of one syllable
    Zero,       // the rest "0"
    Bracket,    // phonemes in brackets, brackets included
    PassedOver, // characters without effect: no spaces, except beside a bracket
};

// A part of a lyric, and the syllables of the lyric that it contributes.
struct LyricPart {
    PartKind kind;
    std::size_t begin; // in code points
    std::size_t end;
    std::size_t firstSyllable;
    std::size_t syllables; // a zero after a syllable changes that one and contributes none
    bool isKnown;          // whether the dictionary has the word; false for the other kinds
};

// What a lyric is made of. The parts are in order and cover all but spaces, once each. The
// exception is that a word takes the first kana of a pair that follows directly (see
// lyricToSyllables).
struct LyricReading {
    std::vector<LyricPart> parts;
    SyllableList syllables;
};

// Reads a UTF-8 lyric as convertLyric does. Of a lyric that carries its phonemes in brackets, the
// text before and after the bracket is passed over. Throws as convertLyric does.
LyricReading readLyric(std::string_view lyric,
                       const dictionary::PronunciationDictionary& dictionary);

// The syllables of a UTF-8 lyric, whose brackets are not interpreted: kana, English words that the
// dictionary has, and the rest "0" (see convertEnglishWord). Everything else is skipped.
SyllableList lyricToSyllables(std::string_view lyric,
                              const dictionary::PronunciationDictionary& dictionary);

// The syllables of the text inside a bracket: the items between its commas, trimmed.
SyllableList bracketToSyllables(std::string_view phonemes);

} // namespace wybeta::lyrics
