// SPDX-License-Identifier: GPL-3.0-or-later
//
// The words of a lyric that are not sung as it is. The lyric has no bracket.
#pragma once

#include "lyrics/LyricReading.h"
#include "wysim/words/LyricReader.h"
#include "wysim/words/Proposals.h"
#include "wysim/words/SuggestionSearch.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace wybeta::wysim::words {

// A word of a lyric as a person sees it: what the reading has of it, or kanji with their reading.
struct VisibleWord {
    lyrics::LyricPart part;
    std::u32string kana; // the reading of kanji, whose notation is the part; else empty
};

// Characters that are passed over are a word, or begin the one that they touch if that is unknown
// or the same word, such as "École". None overlap: the first kana of a pair is left to the pair,
// and what touches kanji with their reading is a word of its own.
std::vector<VisibleWord> visibleWords(std::u32string_view lyric,
                                      const lyrics::LyricReading& reading);

// The first character from `begin` on that is part of a word: marks and blanks in front of a word
// keep out of it if they are not ASCII. `end` if no letter or digit comes before that.
std::size_t findWord(std::u32string_view lyric, std::size_t begin, std::size_t end);

// Whether romaji are likely in a lyric: it has kana or kanji, or several words of nothing but whole
// morae.
bool isJapanese(std::u32string_view lyric, const lyrics::LyricReading& reading);

// The word [begin, end) of a lyric with the text around it up to the next blanks.
WordInText wordAt(std::u32string_view lyric, std::size_t begin, std::size_t end);

// How the words of a lyric may be sung of which some are not.
class LyricPronunciations {
public:
    // The reader has to outlive this.
    LyricPronunciations(std::u32string_view lyric, LyricReader& reader);

    // The lyric with this pronunciation of the word that begins there, and wherever else that word
    // is, and the likeliest of all others. None if nothing is proposed for another word.
    std::optional<Pronunciation> with(std::size_t begin, const Pronunciation& pronunciation) const;
    // The lyric in all ways in which one of its words may be sung, the likeliest first.
    std::vector<Pronunciation> all() const;

private:
    struct Word {
        VisibleWord visible;
        std::u32string text;
        std::vector<Pronunciation> pronunciations; // one alone for a word that is sung
    };

    Pronunciation joined(const std::u32string& word, const Pronunciation& pronunciation) const;

    LyricReader& reader_;
    std::vector<Word> words_;
};

} // namespace wybeta::wysim::words
