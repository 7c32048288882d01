// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "dictionary/PronunciationDictionary.h"
#include "lyrics/LyricReading.h"

#include <string>
#include <string_view>
#include <vector>

namespace wybeta::lyrics {

// The texts that a note and the notes after it are to carry, one for each note. The first is the
// lyric (without its own brackets, if it has any) followed by the first syllable in brackets; each
// later one is a syllable in brackets. A lyric with nothing to convert is kept as it is.
using NoteLyricList = std::vector<std::string>;

// Divides a UTF-8 lyric. `noteLyrics` is replaced when the conversion completes and unchanged when
// it throws: utf8::exception for a lyric that is not valid UTF-8, std::bad_alloc. Returns whether
// the lyric carried its phonemes in brackets.
bool convertLyric(std::string_view lyric, NoteLyricList& noteLyrics,
                  const dictionary::PronunciationDictionary& dictionary);

} // namespace wybeta::lyrics
