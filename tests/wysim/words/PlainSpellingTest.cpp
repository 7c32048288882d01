// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/words/PlainSpelling.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace wybeta::tests {

namespace {

using wysim::words::plainSpellingOf;

TEST(PlainSpelling, IsInSmallLetters) {
    EXPECT_EQ(plainSpellingOf(U"LoVe"), "love");
    EXPECT_EQ(plainSpellingOf(U"ÀÖØÞĀŹŁŸ"), std::nullopt) << "no word has a thorn";
    EXPECT_EQ(plainSpellingOf(U"ÀÖØĀŹŁŸ"), "aooazly");
}

TEST(PlainSpelling, HasPlainApostrophesAndHyphens) {
    EXPECT_EQ(plainSpellingOf(U"o’er o"), std::nullopt);
    for (const char32_t apostrophe : std::u32string(U"'`´ʼ‘’′＇")) {
        EXPECT_EQ(plainSpellingOf(U"o" + std::u32string(1, apostrophe) + U"er"), "o'er");
    }
    for (const char32_t dash : std::u32string(U"-\u00AD‐‑‒–—―−﹘﹣－")) {
        EXPECT_EQ(plainSpellingOf(U"to" + std::u32string(1, dash) + U"day"), "to-day");
    }
}

TEST(PlainSpelling, HasNoAccentsButThatOfASungE) {
    EXPECT_EQ(plainSpellingOf(U"café"), "cafe");
    EXPECT_EQ(plainSpellingOf(U"cafe\u0301"), "cafe");
    EXPECT_EQ(plainSpellingOf(U"Æsop’s œuvre"), std::nullopt);
    EXPECT_EQ(plainSpellingOf(U"Ægean"), "aegean");
    EXPECT_EQ(plainSpellingOf(U"straße"), "strasse");
    EXPECT_EQ(plainSpellingOf(U"reignèd"), "reignEd");
    EXPECT_EQ(plainSpellingOf(U"REIGNÉD"), "reignEd");
    EXPECT_EQ(plainSpellingOf(U"reigne\u0300d"), "reignEd");
    EXPECT_EQ(plainSpellingOf(U"reigned"), "reigned");
    EXPECT_EQ(plainSpellingOf(U"édit"), "edit");
}

TEST(PlainSpelling, IsOfLettersOnlyAndNotEndless) {
    for (const auto* const word : {U"", U"'", U"-", U"7", U"q9", U"lo\u0007ve", U"Привет",
                                   U"さくら", U"\u0300love", U"love!", U"love me"}) {
        EXPECT_EQ(plainSpellingOf(word), std::nullopt);
    }
    EXPECT_EQ(plainSpellingOf(std::u32string(64, U'a')), std::string(64, 'a'));
    EXPECT_EQ(plainSpellingOf(std::u32string(65, U'a')), std::nullopt);
}

} // namespace

} // namespace wybeta::tests
