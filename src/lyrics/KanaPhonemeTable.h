// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace wybeta::lyrics {

// One kana syllable and its phoneme string: the symbols joined by single spaces, such as "ky o".
struct KanaEntry {
    char32_t first;  // katakana, or the long-vowel mark U+30FC
    char32_t second; // the small katakana that completes a pair; 0 for a single kana
    std::string_view phonemes;
};

// The fixed table of all kana syllables. It holds katakana only; hiragana is folded onto katakana
// when compared. Singles and pairs are each searched in order: the first match wins.
class KanaPhonemeTable {
public:
    static constexpr std::size_t kSingleCount = 85;
    static constexpr std::size_t kPairCount = 102;

    // The syllables written with one kana.
    static const std::array<KanaEntry, kSingleCount>& singles();

    // The syllables written with a kana and a small kana.
    static const std::array<KanaEntry, kPairCount>& pairs();
};

// Whether `input`, once hiragana is folded onto katakana, equals `stored`. Recognised are
// U+3041..U+3094 (hiragana), U+30A1..U+30F4 (katakana) and U+30FC; any other input equals nothing.
bool kanaEquals(char32_t input, char32_t stored);

// The pair that text[i] and text[i + 1] spell, in either script or one of each; it consumes both.
// Null if they spell none or either position lies outside the text. The entry lives forever.
const KanaEntry* findKanaPair(std::u32string_view text, std::size_t i);

// The single kana that text[i] spells, in either script. Null if it spells none or i lies outside
// the text. The entry lives forever.
const KanaEntry* findKanaSingle(std::u32string_view text, std::size_t i);

} // namespace wybeta::lyrics
