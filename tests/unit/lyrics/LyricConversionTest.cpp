// SPDX-License-Identifier: GPL-3.0-or-later
#include "lyrics/LyricConversion.h"

#include "tests/SmallStackThread.h"
#include "tests/unit/dictionary/LoadedDictionary.h"
#include "tests/unit/faults/FailingAllocation.h"

#include <gtest/gtest.h>
#include <utf8cpp/utf8.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace wybeta;
using lyrics::NoteLyricList;
using lyrics::SyllableList;
using tests::realDictionary;

NoteLyricList convert(std::string_view lyric) {
    NoteLyricList noteLyrics{"what was there before"};
    lyrics::convertLyric(lyric, noteLyrics, realDictionary());
    return noteLyrics;
}

SyllableList syllables(std::string_view lyric) {
    return lyrics::lyricToSyllables(lyric, realDictionary());
}

TEST(LyricConversionBracketed, BecomesOneEntryForEachItem) {
    EXPECT_EQ(convert("sakura[s a,k u,r a]"), (NoteLyricList{"sakura[s a]", "[k u]", "[r a]"}));
}

TEST(LyricConversionBracketed, LosesTheWhiteSpaceAroundItsItems) {
    EXPECT_EQ(convert("sakura[ s a , k u,r a ]"), (NoteLyricList{"sakura[s a]", "[k u]", "[r a]"}));
    EXPECT_EQ(convert("a[\t\v\fb\t,\x20]"), (NoteLyricList{"a[b]", "[]"}));
}

TEST(LyricConversionBracketed, KeepsTheWhiteSpaceWithinAnItemAndOfTheText) {
    EXPECT_EQ(convert(" la la [k  a]"), (NoteLyricList{" la la [k  a]"}));
}

TEST(LyricConversionBracketed, WithAnEmptyBracketIsOneEntry) {
    EXPECT_EQ(convert("la[]"), (NoteLyricList{"la[]"}));
    EXPECT_EQ(convert("[]"), (NoteLyricList{"[]"}));
}

TEST(LyricConversionBracketed, CountsEmptyItems) {
    EXPECT_EQ(convert("[,]"), (NoteLyricList{"[]", "[]"}));
}

TEST(LyricConversionBracketed, LosesTheTextAfterTheBracket) {
    EXPECT_EQ(convert("x[a,b]y"), (NoteLyricList{"x[a]", "[b]"}));
}

TEST(LyricConversionBracketed, KeepsEarlierBracketsAsText) {
    EXPECT_EQ(convert("a[b]c[d]"), (NoteLyricList{"a[b]c[d]"}));
}

TEST(LyricConversionBracketed, LosesTheLinesBeforeItsOwn) {
    EXPECT_EQ(convert("one\ntwo[t uw]\nthree"), (NoteLyricList{"two[t uw]"}));
}

TEST(LyricConversionBracketed, IsTakenAsWrittenWithoutKanaOrDictionary) {
    EXPECT_EQ(convert("さくら[さ,love]"), (NoteLyricList{"さくら[さ]", "[love]"}));
}

TEST(LyricConversionBracketed, IsReportedAsSuch) {
    NoteLyricList noteLyrics;
    EXPECT_TRUE(lyrics::convertLyric("la[l a]", noteLyrics, realDictionary()));
    EXPECT_FALSE(lyrics::convertLyric("la", noteLyrics, realDictionary()));
}

TEST(LyricConversion, OfKanaIsDividedIntoItsSyllables) {
    EXPECT_EQ(convert("さくら"), (NoteLyricList{"さくら[s a]", "[k u]", "[r a]"}));
    EXPECT_EQ(convert("キャンディ"), (NoteLyricList{"キャンディ[ky a]", "[N]", "[d i]"}));
}

TEST(LyricConversion, ThatIsEmptyIsOneEmptyEntry) {
    EXPECT_EQ(convert(""), (NoteLyricList{""}));
}

TEST(LyricConversion, WithNothingToConvertIsOneUnchangedEntry) {
    EXPECT_EQ(convert("漢字"), (NoteLyricList{"漢字"}));
    EXPECT_EQ(convert("xyzzy"), (NoteLyricList{"xyzzy"}));
    EXPECT_EQ(convert("  "), (NoteLyricList{"  "}));
    EXPECT_EQ(convert("]["), (NoteLyricList{"]["}));
}

TEST(LyricConversion, OfOneZeroIsARest) {
    EXPECT_EQ(convert("0"), (NoteLyricList{"0[sil]"}));
}

TEST(LyricConversion, WithAZeroAfterAKanaDropsTheVowel) {
    EXPECT_EQ(convert("ス0"), (NoteLyricList{"ス0[s]"}));
    EXPECT_EQ(syllables("カ0"), (SyllableList{"k"}));
}

TEST(LyricConversion, WithAZeroAfterALoneVowelIsARest) {
    EXPECT_EQ(syllables("ア0"), (SyllableList{"sil"}));
}

TEST(LyricConversion, WithAZeroAfterAnEnglishWordDropsItsLastPhoneme) {
    EXPECT_EQ(syllables("love 0"), (SyllableList{"l ah"}));
    EXPECT_EQ(syllables("カ 0 0 0"), (SyllableList{"sil"}));
}

TEST(LyricConversion, HoldsAZeroOnlyAsAWordOfItsOwn) {
    EXPECT_EQ(syllables("カ00"), (SyllableList{"k a"}));
    EXPECT_EQ(syllables("カ０"), (SyllableList{"k a"}));
    EXPECT_EQ(syllables("カ-0"), (SyllableList{"k a"}));
}

TEST(LyricConversion, GivesTheSameSyllablesForBothScripts) {
    const SyllableList sakura{"s a", "k u", "r a"};
    EXPECT_EQ(syllables("さくら"), sakura);
    EXPECT_EQ(syllables("サクラ"), sakura);
    EXPECT_EQ(syllables("さクら"), sakura);
}

TEST(LyricConversion, ReadsTwoKanaAsOneSyllableUnlessASpacePartsThem) {
    EXPECT_EQ(syllables("ちゃ"), (SyllableList{"ch a"}));
    EXPECT_EQ(syllables("ち ゃ"), (SyllableList{"ch i", "y a"}));
}

TEST(LyricConversion, ReadsTwoKanaThatFormNoPairAsTwoSyllables) {
    EXPECT_EQ(syllables("カャ"), (SyllableList{"k a", "y a"}));
}

TEST(LyricConversion, GivesMarksOfLengthAndPauseASyllableOfTheirOwn) {
    EXPECT_EQ(syllables("ー"), (SyllableList{"-"}));
    EXPECT_EQ(syllables("ッ"), (SyllableList{"cl"}));
    EXPECT_EQ(syllables("ン"), (SyllableList{"N"}));
    EXPECT_EQ(syllables("カッタ"), (SyllableList{"k a", "cl", "t a"}));
}

TEST(LyricConversion, OfEnglishWordsHasOneSyllableForEachOfTheirPronunciation) {
    EXPECT_EQ(convert("abandon"), (NoteLyricList{"abandon[ah]", "[b ae n]", "[d ah n]"}));
    EXPECT_EQ(syllables("Love  abandon"), (SyllableList{"l ah v", "ah", "b ae n", "d ah n"}));
}

TEST(LyricConversion, KeepsBothLanguagesInTheirOrder) {
    EXPECT_EQ(syllables("さloveく a"), (SyllableList{"s a", "l ah v", "k u", "ah"}));
}

TEST(LyricConversion, TakesTheFirstKanaOfAPairIntoTheWordBeforeIt) {
    EXPECT_EQ(convert("loveキャ"), (NoteLyricList{"loveキャ[ky a]"}));
    EXPECT_EQ(syllables("love キャ"), (SyllableList{"l ah v", "ky a"}));
}

TEST(LyricConversion, TakesNoMoreOfAPairIntoTheWordBeforeIt) {
    const auto dictionary = tests::loadDictionary("a\xE3\x81\x8D\tone\ta\n"
                                                  "a\xE3\x81\x8D\xE3\x82\x83\ttwo\ta\n");
    EXPECT_EQ(lyrics::lyricToSyllables("aきゃ", dictionary), (SyllableList{"one", "ky a"}));
}

TEST(LyricConversion, LeavesASingleKanaOutOfTheWordBeforeIt) {
    EXPECT_EQ(syllables("loveキ"), (SyllableList{"l ah v", "k i"}));
}

TEST(LyricConversion, TakesAPairAgainstAZeroAsAnUnknownWord) {
    EXPECT_EQ(syllables("カ0キャ"), (SyllableList{"k a", "ky a"}));
}

TEST(LyricConversion, KeepsTheMarksOfAWord) {
    EXPECT_EQ(syllables("don't"), (SyllableList{"d ow n t"}));
    EXPECT_EQ(syllables("rock'n'roll"), (SyllableList{"r aa", "k ah n", "r ow l"}));
    EXPECT_EQ(syllables("a(1)"), (SyllableList{"ey"}));
}

TEST(LyricConversion, CutsAWordAtItsTypedHyphens) {
    EXPECT_EQ(convert("lo-ve"), (NoteLyricList{"lo-ve[l ah]", "[- v]"}));
    EXPECT_EQ(convert("hel-lo"), (NoteLyricList{"hel-lo[hh ah]", "[l ow]", "[- ]"}));
}

TEST(LyricConversion, TakesOtherCharactersInsideAWordAsPartOfIt) {
    EXPECT_EQ(syllables("lo漢ve"), (SyllableList{}));
    EXPECT_EQ(syllables("love漢"), (SyllableList{}));
    EXPECT_EQ(syllables("漢love"), (SyllableList{"l ah v"}));
}

TEST(LyricConversion, IsPartedIntoWordsBySpacesOnly) {
    EXPECT_EQ(syllables("a\tlove"), (SyllableList{}));
    EXPECT_EQ(syllables("a\xE3\x80\x80love"), (SyllableList{}));
    EXPECT_EQ(syllables("a\nlove"), (SyllableList{}));
    EXPECT_EQ(syllables("\t love"), (SyllableList{"l ah v"}));
}

TEST(LyricConversion, PassesOverWhatIsNeitherKanaNorAWord) {
    EXPECT_EQ(syllables("ヵヶゕゖ、ｌｏｖｅ。さ"), (SyllableList{"s a"}));
    EXPECT_EQ(syllables("𠮷さ🎵"), (SyllableList{"s a"}));
    EXPECT_EQ(syllables("\x7F"), (SyllableList{}));
}

TEST(LyricConversion, BeginsAWordFromTheExclamationMarkToTheTilde) {
    constexpr std::string_view kWords = "!a\tx\t!a\n"
                                        "~a\ty\t~a\n"
                                        "\x7F"
                                        "a\tz\ta\n"
                                        "a\tah0\ta\n";
    const auto dictionary = tests::loadDictionary(kWords);
    EXPECT_EQ(lyrics::lyricToSyllables("!a", dictionary), SyllableList{"x"});
    EXPECT_EQ(lyrics::lyricToSyllables("~a", dictionary), SyllableList{"y"});
    EXPECT_EQ(lyrics::lyricToSyllables("\x7F"
                                       "a",
                                       dictionary),
              SyllableList{"ah"});
}

TEST(LyricConversion, MayHoldAZeroCharacter) {
    EXPECT_EQ(syllables(std::string_view("さ\0く", 7)), (SyllableList{"s a", "k u"}));
}

TEST(LyricConversion, ThatIsNotUtf8RaisesAndLeavesTheListAsItWas) {
    for (const auto* const lyric :
         {"さ\xFF", "\xE3\x81", "\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80"}) {
        NoteLyricList noteLyrics{"untouched"};
        EXPECT_THROW(lyrics::convertLyric(lyric, noteLyrics, realDictionary()), utf8::exception);
        EXPECT_EQ(noteLyrics, NoteLyricList{"untouched"});
    }
}

// The list itself, and each text that is too long to be kept inside its string.
std::uint64_t neededAllocations(const NoteLyricList& noteLyrics) {
    const auto isLong = [](const std::string& text) {
        return text.size() > std::string().capacity();
    };
    const auto longTexts = std::count_if(noteLyrics.begin(), noteLyrics.end(), isLong);
    return static_cast<std::uint64_t>(longTexts) + 1;
}

TEST(LyricConversion, TakesNoMemoryThatItsResultDoesNotNeed) {
    using tests::FailingAllocation;
    for (const std::string_view lyric :
         {"さくらさく", "hello beautiful world", "loveソング", "sakura[s a,k u,r a,s a,k u]"}) {
        const auto expected = convert(lyric);
        NoteLyricList noteLyrics;
        {
            const FailingAllocation failing(neededAllocations(expected) + 1,
                                            FailingAllocation::Extent::AllFromThere);
            lyrics::convertLyric(lyric, noteLyrics, realDictionary());
        }
        EXPECT_EQ(noteLyrics, expected);
    }
}

std::string repeated(std::string_view piece, std::size_t bytes) {
    std::string text;
    while (text.size() < bytes) {
        text += piece;
    }
    return text;
}

// A conversion that took time in proportion to the square of the length would not end here.
TEST(LyricConversion, OfAMillionCharactersConvertsOnASmallStack) {
    constexpr std::size_t size = 1'000'000;
    const std::vector<std::string> longLyrics = {
        repeated("a", size),  repeated("カ", 3 * size),        repeated("[", size),
        repeated("]", size),  "[" + repeated(",", size) + "]", repeated("[]", size),
        repeated("-", size),  "a" + repeated("-", size),       repeated("love ", size),
        repeated("0 ", size), repeated("[\n", size) + "[a]",   repeated("loveキャ", size),
        repeated(" ", size),  repeated("漢", 3 * size),        "]" + repeated("[", size),
    };
    for (const auto& lyric : longLyrics) {
        NoteLyricList noteLyrics;
        tests::runOnStack(std::size_t{128} * 1024,
                          [&] { lyrics::convertLyric(lyric, noteLyrics, realDictionary()); });
        EXPECT_FALSE(noteLyrics.empty()) << lyric.substr(0, 10);
    }
}

} // namespace
