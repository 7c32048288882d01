// SPDX-License-Identifier: GPL-3.0-or-later
//
// The words of a lyric that are not sung as it is. The lyric has no bracket.
#pragma once

#include "lyrics/LyricReading.h"
#include "wysim/words/LyricReader.h"
#include "wysim/words/SuggestionSearch.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace wybeta::wysim::words {

// The parts of a lyric as a person sees its words: characters that are passed over are a word, or
// begin the one that they touch if that is unknown or the same word, such as "École". None overlap:
// the first kana of a pair is left to the pair.
std::vector<lyrics::LyricPart> visibleWords(std::u32string_view lyric,
                                            const lyrics::LyricReading& reading);

// The first character from `begin` on that is part of a word: marks and blanks in front of a word
// keep out of it if they are not ASCII. `end` if no letter or digit comes before that.
std::size_t findWord(std::u32string_view lyric, std::size_t begin, std::size_t end);

// Whether romaji are likely in a lyric: it has kana or kanji, or several words of nothing but whole
// morae.
bool isJapanese(std::u32string_view lyric, const lyrics::LyricReading& reading);

// The word [begin, end) of a lyric with the text around it up to the next blanks.
WordInText wordAt(std::u32string_view lyric, std::size_t begin, std::size_t end);

// How all of a lyric may be sung, the likeliest first. None if there is a word for which nothing is
// proposed.
std::vector<Syllables> pronunciationsOfLyric(std::u32string_view lyric, LyricReader& reader);

} // namespace wybeta::wysim::words
