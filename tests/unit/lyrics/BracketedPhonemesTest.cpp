// SPDX-License-Identifier: GPL-3.0-or-later
#include "lyrics/BracketedPhonemes.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <random>
#include <regex>
#include <string>

namespace {

using wybeta::lyrics::findBracketedPhonemes;

// The found pieces with a bar between them; "none" for no match.
std::string find(const std::string& lyric) {
    const auto found = findBracketedPhonemes(lyric);
    return found ? std::string(found->text) + "|" + std::string(found->phonemes) : "none";
}

std::string findWithLibrary(const std::string& lyric) {
    static const std::regex expression(R"((.*)\[(.*)\])");
    std::smatch match;
    return std::regex_search(lyric, match, expression) ? match.str(1) + "|" + match.str(2) : "none";
}

TEST(BracketedPhonemes, AreTheTextBeforeTheBracketAndWhatItHolds) {
    EXPECT_EQ(find("sakura[s a,k u,r a]"), "sakura|s a,k u,r a");
}

TEST(BracketedPhonemes, MayBeEmptyOnBothSides) {
    EXPECT_EQ(find("[]"), "|");
}

TEST(BracketedPhonemes, LoseTheTextAfterTheBracket) {
    EXPECT_EQ(find("x[a,b]y"), "x|a,b");
}

TEST(BracketedPhonemes, AreThoseOfTheLastBracket) {
    EXPECT_EQ(find("a[b]c[d]"), "a[b]c|d");
}

TEST(BracketedPhonemes, BeginAtTheLastOpeningBracketThatIsClosed) {
    EXPECT_EQ(find("a[b[c]d[e"), "a[b|c");
}

TEST(BracketedPhonemes, EndAtTheLastClosingBracket) {
    EXPECT_EQ(find("a[b]c]d"), "a|b]c");
}

TEST(BracketedPhonemes, NeedAClosingBracketAfterTheOpeningOne) {
    EXPECT_EQ(find("]a["), "none");
    EXPECT_EQ(find("a[b"), "none");
    EXPECT_EQ(find("a]b"), "none");
    EXPECT_EQ(find(""), "none");
}

TEST(BracketedPhonemes, StayWithinOneLine) {
    EXPECT_EQ(find("a[b\nc]d"), "none");
    EXPECT_EQ(find("a[b\rc]d"), "none");
}

TEST(BracketedPhonemes, AreThoseOfTheFirstLineThatHasThem) {
    EXPECT_EQ(find("one\ntwo[t]\nthree[th]"), "two|t");
    EXPECT_EQ(find("one[\r\ntwo[t]"), "two|t");
}

TEST(BracketedPhonemes, AreWhatTheRegularExpressionFinds) {
    constexpr std::array<const char*, 14> pieces = {"[",  "]", "[", "]",  ",",  " ",  "\n",
                                                    "\r", "a", "b", "\t", "さ", "漢", "𠮷"};
    std::mt19937 random(20261121);
    std::uniform_int_distribution<std::size_t> piece(0, pieces.size() - 1);
    std::uniform_int_distribution<int> length(0, 12);
    int matches = 0;
    for (int i = 0; i < 200'000; ++i) {
        std::string lyric;
        for (int left = length(random); left > 0; --left) {
            lyric += pieces[piece(random)];
        }
        const auto expected = findWithLibrary(lyric);
        ASSERT_EQ(find(lyric), expected) << "for the lyric '" << lyric << "'";
        matches += expected != "none" ? 1 : 0;
    }
    EXPECT_GT(matches, 20'000);
    EXPECT_LT(matches, 180'000);
}

} // namespace
