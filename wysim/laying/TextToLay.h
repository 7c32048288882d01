// SPDX-License-Identifier: GPL-3.0-or-later
//
// A text that is to be laid under a melody.
#pragma once

#include "wysim/laying/WaysToSing.h"

#include <cstddef>
#include <string>
#include <vector>

namespace wybeta::wysim::laying {

struct WordToLay {
    std::string text;            // as it is in the text, without the marks around it
    std::size_t column;          // from 1, in characters of the line
    std::string lyric;           // to type where no syllable is held
    std::vector<WayToSing> ways; // none for a word that is not sung
    bool isKana = false;
};

struct LineToLay {
    std::size_t number; // from 1, in the text
    std::vector<WordToLay> words;
};

// The lines of a text that have words. A run of kana is a word; empty lines and headings such as
// "[Chorus]" are passed over. The lines have to be valid UTF-8.
std::vector<LineToLay> linesToLay(const std::vector<std::string>& text, WaysToSing& ways,
                                  words::LyricReader& reader);

} // namespace wybeta::wysim::laying
