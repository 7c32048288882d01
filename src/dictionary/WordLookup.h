// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "dictionary/PronunciationDictionary.h"

#include <cstddef>
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

// An entry of the dictionary, and where typed hyphens hold its syllables.
struct WordEntry {
    std::string word;                   // as the dictionary has it: "read(1)"
    std::vector<std::string> written;   // its letters, divided as they are for hyphens
    std::vector<std::string> syllables; // as spoken
    // For each syllable, after how many letters of the word a hyphen holds it; ascending.
    std::vector<std::vector<std::size_t>> holds;
};

// The entries of a word in UTF-8: the plain one, then those with (1), (2) and (3), as far as the
// dictionary has them. The word may have hyphens, capitals and such a suffix, which don't matter.
std::vector<WordEntry> findWordEntries(const PronunciationDictionary& dictionary,
                                       std::string_view word);

// Where the "(1)" of a word begins that ends in such a suffix; at the end of any other word.
std::size_t suffixStart(std::string_view word);

// Appends a syllable that is held by one hyphen or more: up to its nucleus, then as many "-"
// syllables, the last of which carries the rest, even if there is none.
void appendHeld(std::vector<std::string>& syllables, std::string_view syllable,
                std::size_t hyphens);

// The index of the symbol after which a syllable is cut: its vowel; without one, its first voiced,
// then its first unvoiced consonant. 0 when no symbol is in these groups.
std::int32_t findSyllableNucleus(const std::vector<std::string_view>& symbols);

} // namespace wybeta::dictionary
