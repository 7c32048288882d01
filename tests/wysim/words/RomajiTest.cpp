// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/words/Romaji.h"

#include "lyrics/KanaPhonemeTable.h"

#include <gtest/gtest.h>

#include <optional>
#include <ostream>
#include <string>

namespace wybeta::tests {

namespace {

using wysim::words::kanaOf;

struct RomajiCase {
    const char* name;
    const char32_t* romaji;
    const char32_t* kana;
};

void PrintTo(const RomajiCase& example, std::ostream* out) {
    *out << example.name;
}

class RomajiKana : public testing::TestWithParam<RomajiCase> {};

TEST_P(RomajiKana, AreThoseOfItsMorae) {
    EXPECT_EQ(kanaOf(GetParam().romaji), GetParam().kana);
}

const auto nameOfRomaji = [](const auto& test) { return std::string(test.param.name); };

INSTANTIATE_TEST_SUITE_P(
    Of, RomajiKana,
    testing::Values(
        RomajiCase{"AWord", U"sakura", U"さくら"},
        RomajiCase{"CapitalLetters", U"SAkura", U"さくら"},
        RomajiCase{"Hepburn", U"shichifutsuji", U"しちふつじ"},
        RomajiCase{"Kunrei", U"sitihutuzi", U"しちふつじ"},
        RomajiCase{"HepburnGlides", U"shachujo", U"しゃちゅじょ"},
        RomajiCase{"KunreiGlides", U"syatyuzyo", U"しゃちゅじょ"},
        RomajiCase{"MixedGlides", U"jyakyuryohya", U"じゃきゅりょひゃ"},
        RomajiCase{"Nihon", U"hanadidukidya", U"はなぢづきぢゃ"}, RomajiCase{"Wo", U"wo", U"を"},
        RomajiCase{"NBeforeAConsonant", U"kanda", U"かんだ"},
        RomajiCase{"NAtTheEnd", U"hon", U"ほん"}, RomajiCase{"TwoNAtTheEnd", U"honn", U"ほん"},
        RomajiCase{"TwoNBeforeAVowel", U"konnichiwa", U"こんにちわ"},
        RomajiCase{"TwoNBeforeAGlide", U"konnyaku", U"こんにゃく"},
        RomajiCase{"TwoNBeforeAConsonant", U"konnbanwa", U"こんばんわ"},
        RomajiCase{"NWithAnApostrophe", U"kon'ya", U"こんや"},
        RomajiCase{"NWithATypographicApostrophe", U"shin’ichi", U"しんいち"},
        RomajiCase{"NWithAHyphen", U"kin-en", U"きんえん"},
        RomajiCase{"MBeforeALabial", U"shimbun", U"しんぶん"},
        RomajiCase{"MBeforeAnM", U"samma", U"さんま"}, RomajiCase{"DoubledT", U"kitte", U"きって"},
        RomajiCase{"DoubledSh", U"isshoni", U"いっしょに"},
        RomajiCase{"DoubledCh", U"matcha", U"まっちゃ"},
        RomajiCase{"DoubledChOtherwise", U"maccha", U"まっちゃ"},
        RomajiCase{"DoubledTs", U"mittsu", U"みっつ"}, RomajiCase{"DoubledD", U"beddo", U"べっど"},
        RomajiCase{"Macrons", U"Tōkyō", U"とーきょー"},
        RomajiCase{"Circumflexes", U"Tôkyô", U"とーきょー"},
        RomajiCase{"CombiningMacrons", U"To\u0304kyo\u0304", U"とーきょー"},
        RomajiCase{"CapitalMacron", U"Ōsaka", U"おーさか"},
        RomajiCase{"Hyphens", U"ra-men", U"らーめん"},
        RomajiCase{"VowelsInTwo", U"toukyou", U"とうきょう"},
        RomajiCase{"ForeignMorae", U"fifavita", U"ふぃふぁゔぃた"}),
    nameOfRomaji);

TEST(Romaji, IsNotWhatHasMoreThanMorae) {
    for (const auto* const word :
         {U"love", U"sakur", U"strength", U"xa", U"la", U"ttka", U"-ka", U"ka--", U"n-", U"'ka",
          U"ka'", U"さくら", U"ka ra", U"ka1", U"wu", U"yi", U"rra", U"ka\u0007", U"kaß"}) {
        EXPECT_EQ(kanaOf(word), std::nullopt);
    }
}

TEST(Romaji, HasTwoLettersAndAVowel) {
    EXPECT_EQ(kanaOf(U""), std::nullopt);
    EXPECT_EQ(kanaOf(U"a"), std::nullopt);
    EXPECT_EQ(kanaOf(U"n"), std::nullopt);
    EXPECT_EQ(kanaOf(U"nn"), std::nullopt);
    EXPECT_EQ(kanaOf(U"ō"), std::nullopt);
    EXPECT_EQ(kanaOf(U"ai"), U"あい");
}

TEST(Romaji, IsNotEndless) {
    std::u32string longest;
    for (int i = 0; i < 32; ++i) {
        longest += U"ka";
    }
    EXPECT_TRUE(kanaOf(longest));
    EXPECT_EQ(kanaOf(longest + U"a"), std::nullopt);
    EXPECT_EQ(kanaOf(std::u32string(10'000, U'a')), std::nullopt);
}

TEST(Romaji, GivesKanaThatAreSung) {
    for (const auto* const onset :
         {U"",   U"k",  U"s",  U"t",  U"n",  U"h",  U"m",  U"y",  U"r",  U"w",  U"g",  U"z",  U"d",
          U"b",  U"p",  U"f",  U"v",  U"j",  U"sh", U"ch", U"ts", U"dz", U"ky", U"sy", U"ty", U"ny",
          U"hy", U"my", U"ry", U"gy", U"zy", U"jy", U"dy", U"by", U"py", U"kw", U"gw"}) {
        for (const auto* const vowel : {U"a", U"i", U"u", U"e", U"o"}) {
            const auto kana = kanaOf(std::u32string(U"a") + onset + vowel);
            const auto mora = kana.value_or(U"").substr(kana ? 1 : 0);
            if (mora.size() == 1) {
                EXPECT_NE(lyrics::findKanaSingle(mora, 0), nullptr);
            } else if (mora.size() == 2) {
                EXPECT_NE(lyrics::findKanaPair(mora, 0), nullptr);
            } else {
                EXPECT_TRUE(mora.empty());
            }
        }
    }
}

} // namespace

} // namespace wybeta::tests
