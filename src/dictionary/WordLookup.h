// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "dictionary/PronunciationDictionary.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace wybeta::dictionary {

// Looks up the word lyric[begin, end) and appends its pronunciation to `syllables`. A syllable with
// typed hyphens is cut after its nucleus and continued in "-" syllables. A word that the dictionary
// does not hold appends nothing. The word "0" is a rest: it removes the last symbol of the last
// syllable, or makes that "sil". A range that is empty or not inside the lyric does nothing. Throws
// utf8::invalid_code_point for a surrogate or a number that is no code point; `syllables` is
// unchanged then.
void convertEnglishWord(const PronunciationDictionary& dictionary, std::u32string_view lyric,
                        std::int32_t begin, std::int32_t end, std::vector<std::string>& syllables);

// The index of the symbol after which a syllable is cut: its vowel, or the consonant that stands in
// for one. 0 when there is neither.
std::int32_t findSyllableNucleus(const std::vector<std::string_view>& symbols);

} // namespace wybeta::dictionary
