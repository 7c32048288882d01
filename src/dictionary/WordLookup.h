// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "dictionary/PronunciationDictionary.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace wybeta::dictionary {

// Looks up the word lyric[begin, end) and appends its pronunciation to `syllables`. A syllable with
// n typed hyphens becomes n + 1: everything up to its nucleus, then n times "-", the last followed
// by the rest. A word that the dictionary does not hold appends nothing. The word "0" drops the
// last symbol of the last syllable; if that is the only one, the syllable becomes "sil", and
// without a syllable "sil" is appended. A range that is empty or not inside the lyric does nothing.
// Throws utf8::invalid_code_point for a surrogate or a number that is no code point; `syllables` is
// unchanged then.
void convertEnglishWord(const PronunciationDictionary& dictionary, std::u32string_view lyric,
                        std::int32_t begin, std::int32_t end, std::vector<std::string>& syllables);

// The index of the symbol after which a syllable is cut: its vowel; without one, its first voiced,
// then its first unvoiced consonant. 0 when no symbol is in these groups.
std::int32_t findSyllableNucleus(const std::vector<std::string_view>& symbols);

} // namespace wybeta::dictionary
