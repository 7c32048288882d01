// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "dictionary/PronunciationDictionary.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace wybeta::dictionary {

// Looks up the word lyric[begin, end) and appends its pronunciation to `items`, one item for each
// syllable; a syllable with typed hyphens is cut after its nucleus and continued in "-" items. A
// word that the dictionary does not hold appends nothing. The word "0" is the rest: it takes the
// last symbol off the last item, or makes it "sil". A range that is empty or not inside the lyric
// does nothing. Raises utf8::invalid_code_point when the word holds no Unicode text; `items` is
// untouched then.
void convertEnglishWord(const PronunciationDictionary& dictionary, std::u32string_view lyric,
                        std::int32_t begin, std::int32_t end, std::vector<std::string>& items);

// The index of the symbol after which a syllable is cut: its vowel, or what stands in for it. 0
// when no symbol can.
std::int32_t findSyllableNucleus(const std::vector<std::string_view>& symbols);

} // namespace wybeta::dictionary
