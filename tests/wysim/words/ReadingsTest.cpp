// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/words/Readings.h"

#include "wysim/words/CharacterKinds.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace wybeta::tests {

namespace {

using wysim::words::dividedIntoMorae;
using wysim::words::findReadings;
using wysim::words::withSungMarks;

using Found = std::vector<std::pair<std::u32string, std::u32string>>;

// Each notation as it is written, and its reading.
Found readingsIn(std::u32string_view text) {
    Found found;
    for (const auto& reading : findReadings(text)) {
        found.emplace_back(text.substr(reading.begin, reading.end - reading.begin), reading.kana);
    }
    return found;
}

TEST(Readings, AreFoundInEachOfTheNotations) {
    EXPECT_EQ(readingsIn(U"桜(さくら)"), (Found{{U"桜(さくら)", U"さくら"}}));
    EXPECT_EQ(readingsIn(U"桜（さくら）"), (Found{{U"桜（さくら）", U"さくら"}}));
    EXPECT_EQ(readingsIn(U"桜《さくら》"), (Found{{U"桜《さくら》", U"さくら"}}));
    EXPECT_EQ(readingsIn(U"｜桜《さくら》"), (Found{{U"｜桜《さくら》", U"さくら"}}));
    EXPECT_EQ(readingsIn(U"桜（サクラ)"), (Found{{U"桜（サクラ)", U"サクラ"}}));
}

TEST(Readings, BelongToAllKanjiThatStandTogether) {
    EXPECT_EQ(readingsIn(U"今日(きょう)は晴天（せいてん）。"),
              (Found{{U"今日(きょう)", U"きょう"}, {U"晴天（せいてん）", U"せいてん"}}));
    EXPECT_EQ(readingsIn(U"日々(ひび)"), (Found{{U"日々(ひび)", U"ひび"}}));
    EXPECT_EQ(readingsIn(U"流行歌(うた)"), (Found{{U"流行歌(うた)", U"うた"}}));
}

TEST(Readings, BelongToTheKanaThatTheyHaveAsWell) {
    EXPECT_EQ(readingsIn(U"思い出(おもいで)"), (Found{{U"思い出(おもいで)", U"おもいで"}}));
    EXPECT_EQ(readingsIn(U"食べる(タベル)"), (Found{{U"食べる(タベル)", U"タベル"}}));
    EXPECT_EQ(readingsIn(U"赤い糸(いと)"), (Found{{U"糸(いと)", U"いと"}}));
    EXPECT_EQ(readingsIn(U"見る桜(さくら)"), (Found{{U"桜(さくら)", U"さくら"}}));
    EXPECT_EQ(readingsIn(U"咲(さ)く花(はな)"), (Found{{U"咲(さ)", U"さ"}, {U"花(はな)", U"はな"}}));
}

TEST(Readings, BelongToWhateverFollowsABar) {
    EXPECT_EQ(readingsIn(U"君と｜ｗａｌｔｚ《わるつ》"),
              (Found{{U"｜ｗａｌｔｚ《わるつ》", U"わるつ"}}));
    EXPECT_EQ(readingsIn(U"あの｜桜の花（はな）"), (Found{{U"｜桜の花（はな）", U"はな"}}));
    EXPECT_EQ(readingsIn(U"｜桜《さくら》花《はな》"),
              (Found{{U"｜桜《さくら》", U"さくら"}, {U"花《はな》", U"はな"}}));
}

TEST(Readings, AreNotFoundElsewhere) {
    for (const auto* const text :
         {U"", U"桜", U"桜(", U"桜()", U"桜(さくら", U"桜(さくら》", U"(さくら)", U"さくら(はな)",
          U"桜(花)", U"桜(hana)", U"桜 (さくら)", U"love(らぶ)", U"｜《さくら》", U"食べる(のむ)",
          U"(((", U"桜(さ\u0007)"}) {
        EXPECT_EQ(readingsIn(text), Found{});
    }
}

TEST(Readings, OfAnEndlessTextAreFoundAtOnce) {
    std::u32string text;
    for (int i = 0; i < 10'000; ++i) {
        text += U"桜(さ";
    }
    EXPECT_EQ(findReadings(text).size(), 0U);
    EXPECT_EQ(findReadings(text + U")").size(), 1U);
    const std::u32string kanji(10'000, U'桜');
    EXPECT_EQ(findReadings(kanji + U"(さ)").size(), 1U);
    EXPECT_EQ(findReadings(U"桜(" + std::u32string(10'000, U'さ') + U")").size(), 0U);
}

TEST(SungMarks, HoldAKanaOrSilenceIt) {
    for (const char32_t mark : std::u32string_view(U"～〜―—－–-")) {
        EXPECT_EQ(withSungMarks(U"ら" + std::u32string(2, mark) + U"ら"), U"らーーら");
    }
    EXPECT_EQ(withSungMarks(U"ス０"), U"ス0");
    EXPECT_EQ(withSungMarks(U"ラー０さ"), U"ラー0さ");
}

TEST(SungMarks, HoldAHalfWidthKanaThatWasMadeOrdinary) {
    EXPECT_EQ(withSungMarks(wysim::words::withOrdinaryKana(U"ﾗ-")), U"ラー");
    EXPECT_EQ(withSungMarks(wysim::words::withOrdinaryKana(U"ｶﾞ～")), U"ガー");
}

TEST(SungMarks, StandNowhereElse) {
    for (const auto* const text : {U"", U"～", U"～ら", U"ら ～", U"桜～", U"love—me", U"ら-love",
                                   U"ら０1", U"１０", U"０ら", U"さくら、―"}) {
        EXPECT_EQ(withSungMarks(text), text);
    }
}

TEST(Morae, OfASyllableWithSeveralVowelsAreSyllables) {
    EXPECT_EQ(dividedIntoMorae("s a k u"), "s a,k u");
    EXPECT_EQ(dividedIntoMorae(" s a  k u r a "), "s a,k u,r a");
    EXPECT_EQ(dividedIntoMorae("k a cl t a"), "k a,cl,t a");
    EXPECT_EQ(dividedIntoMorae("r a - m e N"), "r a,-,m e,N");
    EXPECT_EQ(dividedIntoMorae("a i"), "a,i");
    EXPECT_EQ(dividedIntoMorae("k w a wo"), "k w a,wo");
    EXPECT_EQ(dividedIntoMorae("d a k e d o s"), "d a,k e,d o s");
}

TEST(Morae, OfOneSyllableLeaveTheOthersAsTheyAre) {
    EXPECT_EQ(dividedIntoMorae("l ah v , s a k u ,n o"), "l ah v,s a,k u,n o");
    EXPECT_EQ(dividedIntoMorae(",s a k u"), ",s a,k u");
}

TEST(Morae, AreNotFoundElsewhere) {
    for (const auto* const phonemes : {"", ",", "s a", "s a,k u", "s a N", "k a cl", "s", "l a l a",
                                       "hh ah l ow", "s a x u", "SA KU", "[s a k u]"}) {
        EXPECT_EQ(dividedIntoMorae(phonemes), std::nullopt) << phonemes;
    }
}

} // namespace

} // namespace wybeta::tests
