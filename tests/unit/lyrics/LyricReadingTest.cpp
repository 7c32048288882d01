// SPDX-License-Identifier: GPL-3.0-or-later
#include "lyrics/LyricReading.h"

#include "lyrics/LyricConversion.h"
#include "tests/unit/dictionary/LoadedDictionary.h"

#include <gtest/gtest.h>
#include <utf8cpp/utf8.h>

#include <string>
#include <string_view>
#include <vector>

namespace wybeta::lyrics {
namespace {

using Lines = std::vector<std::string>;

std::string nameOf(PartKind kind) {
    switch (kind) {
    case PartKind::Word:
        return "word";
    case PartKind::Kana:
        return "kana";
    case PartKind::KanaPair:
        return "pair";
    case PartKind::Zero:
        return "zero";
    case PartKind::Bracket:
        return "bracket";
    case PartKind::PassedOver:
        break;
    }
    return "passed over";
}

// "word 0-5 [hh ah] [l ow]" for each part; an unknown word has a question mark.
Lines parts(std::string_view lyric) {
    const auto reading = readLyric(lyric, tests::realDictionary());
    Lines lines;
    for (const auto& part : reading.parts) {
        const bool isUnknown = part.kind == PartKind::Word && !part.isKnown;
        auto& line =
            lines.emplace_back(nameOf(part.kind) + (isUnknown ? "? " : " ") +
                               std::to_string(part.begin) + "-" + std::to_string(part.end));
        for (std::size_t i = 0; i < part.syllables; ++i) {
            line += " [" + reading.syllables.at(part.firstSyllable + i) + "]";
        }
    }
    return lines;
}

TEST(LyricReading, HasAPartForEachWordAndKana) {
    EXPECT_EQ(parts("hello さきゃ love"), (Lines{"word 0-5 [hh ah] [l ow]", "kana 6-7 [s a]",
                                                 "pair 7-9 [ky a]", "word 10-14 [l ah v]"}));
    EXPECT_EQ(parts("loveソング"),
              (Lines{"word 0-4 [l ah v]", "kana 4-5 [s o]", "kana 5-6 [N]", "kana 6-7 [g u]"}));
}

TEST(LyricReading, OfAnEmptyLyricHasNoParts) {
    EXPECT_EQ(parts(""), Lines{});
    EXPECT_EQ(parts("   "), Lines{});
}

TEST(LyricReading, TellsWhichWordsTheDictionaryHas) {
    EXPECT_EQ(parts("xyzzy love"), (Lines{"word? 0-5", "word 6-10 [l ah v]"}));
    EXPECT_EQ(parts("lo-ve - read(1)"),
              (Lines{"word 0-5 [l ah] [- v]", "word? 6-7", "word 8-15 [r iy d]"}));
}

TEST(LyricReading, CountsCodePoints) {
    EXPECT_EQ(parts("𠮷さ love"),
              (Lines{"passed over 0-1", "kana 1-2 [s a]", "word 3-7 [l ah v]"}));
}

TEST(LyricReading, GathersWhatIsPassedOver) {
    EXPECT_EQ(parts("「桜」　さ"), (Lines{"passed over 0-4", "kana 4-5 [s a]"}));
    EXPECT_EQ(parts("桜 花"), (Lines{"passed over 0-1", "passed over 2-3"}));
    EXPECT_EQ(parts("桜love桜"), (Lines{"passed over 0-1", "word? 1-6"}));
}

TEST(LyricReading, HasAWordTakeTheFirstKanaOfAPair) {
    EXPECT_EQ(parts("loveキャ"), (Lines{"word? 0-5", "pair 4-6 [ky a]"}));
}

TEST(LyricReading, HasAZeroContributeASyllableOnlyWhereThereIsNone) {
    EXPECT_EQ(parts("0"), Lines{"zero 0-1 [sil]"});
    EXPECT_EQ(parts("カ0"), (Lines{"kana 0-1 [k]", "zero 1-2"}));
    EXPECT_EQ(parts("light 0 0"), (Lines{"word 0-5 [l]", "zero 6-7", "zero 8-9"}));
    EXPECT_EQ(parts("00"), Lines{"word? 0-2"});
}

TEST(LyricReading, OfABracketPassesOverTheTextAroundIt) {
    EXPECT_EQ(parts("さくら[ s a,k u , r a]love"),
              (Lines{"passed over 0-3", "bracket 3-19 [s a] [k u] [r a]", "passed over 19-23"}));
    EXPECT_EQ(parts("[]"), Lines{"bracket 0-2 []"});
    EXPECT_EQ(parts("a[b]c[d]"), (Lines{"passed over 0-5", "bracket 5-8 [d]"}));
    EXPECT_EQ(parts("love["), Lines{"word? 0-5"});
}

TEST(LyricReading, HasTheSyllablesOfTheConversion) {
    for (const auto* const lyric : {"hello さきゃ love", "loveキャ 0", "カ0 lo--ve", "桜", "0 0"}) {
        EXPECT_EQ(readLyric(lyric, tests::realDictionary()).syllables,
                  lyricToSyllables(lyric, tests::realDictionary()))
            << lyric;
    }
}

TEST(LyricReading, OfWhatIsNotUtf8RaisesAsTheConversionDoes) {
    EXPECT_THROW(readLyric("love\xFF", tests::realDictionary()), utf8::exception);
    NoteLyricList noteLyrics;
    EXPECT_TRUE(convertLyric("\xFF[a]", noteLyrics, tests::realDictionary()));
    EXPECT_EQ(readLyric("\xFF[a]", tests::realDictionary()).syllables, SyllableList{"a"});
}

} // namespace
} // namespace wybeta::lyrics
