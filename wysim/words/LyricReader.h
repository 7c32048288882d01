// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "dictionary/PronunciationDictionary.h"
#include "dictionary/WordLookup.h"
#include "lyrics/LyricReading.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace wybeta::wysim::words {

// The phonemes of the sung syllables of a lyric, one string for each note that carries one.
using Syllables = lyrics::SyllableList;

// Reads lyrics as the extension does, with a dictionary of its own.
class LyricReader {
public:
    LyricReader();

    // What a lyric of valid UTF-8 is made of.
    lyrics::LyricReading read(std::string_view lyric);
    Syllables syllablesOf(std::string_view lyric) { return read(lyric).syllables; }

    // Whether a lyric without blanks is sung, and no letter or digit of it left out.
    bool singsAllOf(const std::string& lyric);

    // Whether the dictionary has the word, in capitals or not.
    bool hasWord(std::string word) const;

    const dictionary::PronunciationDictionary& dictionary() const { return dictionary_; }

    // How many lyrics were read so far.
    std::size_t conversions() const { return conversions_; }

private:
    dictionary::PronunciationDictionary dictionary_;
    std::size_t conversions_ = 0;
};

} // namespace wybeta::wysim::words
