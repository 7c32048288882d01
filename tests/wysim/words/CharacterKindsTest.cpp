// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/words/CharacterKinds.h"

#include "wysim/words/LyricText.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace wybeta::tests {

namespace {

using namespace wysim::words;

TEST(CharacterKinds, TellBlanksAndMarksFromWhatWordsAreWrittenWith) {
    for (const char32_t blank : std::u32string_view(U"\t\u00A0\u2003\u3000")) {
        EXPECT_TRUE(isOtherBlank(blank));
        EXPECT_FALSE(isOfWords(blank));
    }
    EXPECT_FALSE(isOtherBlank(U' '));
    EXPECT_FALSE(isOfWords(U' '));
    for (const char32_t mark : std::u32string_view(U"!-,.'[]~“”’—…♪×「」、。・゛！？＇｡★🎵")) {
        EXPECT_TRUE(isMark(mark)) << utf8Of({&mark, 1});
        EXPECT_FALSE(isOfWords(mark)) << utf8Of({&mark, 1});
    }
    for (const char32_t letter : std::u32string_view(U"aZ09éßЖ한さサーｻﾞ桜々〇Ａ９ªº")) {
        EXPECT_TRUE(isOfWords(letter)) << utf8Of({&letter, 1});
    }
}

TEST(CharacterKinds, KnowKanjiAndApostrophes) {
    for (const char32_t kanji : std::u32string_view(U"桜々〇龍𠮷")) {
        EXPECT_TRUE(isKanji(kanji)) << utf8Of({&kanji, 1});
    }
    for (const char32_t other : std::u32string_view(U"さサa한、")) {
        EXPECT_FALSE(isKanji(other)) << utf8Of({&other, 1});
    }
    EXPECT_EQ(withPlainApostrophes(U"don’t rock‘n’roll ʼtis ＇x`´"),
              U"don't rock'n'roll 'tis 'x''");
}

TEST(CharacterKinds, AreMadePlain) {
    EXPECT_EQ(withPlainBlanks(U"a\u3000b\tc d"), U"a b c d");
    EXPECT_EQ(withPlainLetters(U"Ｈｅｌｌｏ！０さ"), U"Hello!0さ");
}

TEST(CharacterKinds, MakeOrdinaryKanaOfHalfWidthOnes) {
    EXPECT_EQ(withOrdinaryKana(U"ｱｲｳｴｵﾜｦﾝｧｯｬｰ"), U"アイウエオワヲンァッャー");
    EXPECT_EQ(withOrdinaryKana(U"ｶﾞｻﾞﾀﾞﾂﾞﾊﾞﾊﾟﾎﾞﾎﾟｳﾞ"), U"ガザダヅバパボポヴ");
    EXPECT_EQ(withOrdinaryKana(U"ﾞｱﾞﾏﾟaﾞｶﾟ"), U"ﾞアﾞマﾟaﾞカﾟ");
    EXPECT_EQ(withOrdinaryKana(U"さaサ｡"), U"さaサ｡");
}

TEST(LyricText, GoesFromUtf8ToCharactersAndBack) {
    EXPECT_EQ(charactersOf("aé桜𠮷"), U"aé桜𠮷");
    EXPECT_EQ(utf8Of(U"aé桜𠮷"), "aé桜𠮷");
}

TEST(LyricText, HasItsWordsBetweenBlanks) {
    using Words = std::vector<std::string>;
    EXPECT_EQ(wordsBetweenBlanks("  love  さ くら "), (Words{"love", "さ", "くら"}));
    EXPECT_EQ(wordsBetweenBlanks(" "), Words{});
    EXPECT_EQ(wordsBetweenBlanks(""), Words{});
}

} // namespace

} // namespace wybeta::tests
