// SPDX-License-Identifier: GPL-3.0-or-later
//
// Ways of writing Japanese that are not sung as they are, and what to write in their place.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace wybeta::wysim::words {

// Kanji with their reading in brackets, [begin, end) of a text from the kanji to the bracket.
struct Reading {
    std::size_t begin;
    std::size_t end;
    std::u32string kana;
};

// The kanji of a text that have their reading behind them: "桜(さくら)", "桜（さくら）" and
// "桜《さくら》", and with a bar in front of any word, "｜桜《さくら》". Kana between and after the
// kanji belong to the word if the reading has them, as in "思い出(おもいで)". In the order of the
// text; none overlap.
std::vector<Reading> findReadings(std::u32string_view text);

// The text with ー for a wave, dash or hyphen right after a kana, and 0 for a full-width zero
// there, unless a Latin letter or digit follows. Expects ordinary kana, not half-width ones.
std::u32string withSungMarks(std::u32string text);

// Whether a kana is sung with the phoneme symbol.
bool isKanaSymbol(std::string_view symbol);

// The inside of a lyric's brackets with a syllable for each mora: "s a,k u" for "s a k u", "k
// a,cl,t a" for "k a cl t a". None if no syllable has several vowels, or one has a symbol that no
// kana is sung with.
std::optional<std::string> dividedIntoMorae(std::string_view phonemes);

} // namespace wybeta::wysim::words
