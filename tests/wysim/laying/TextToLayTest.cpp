// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/laying/TextToLay.h"

#include "wysim/laying/WaysToSing.h"
#include "wysim/words/LyricReader.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace wybeta::tests {

namespace {

using namespace wysim::laying;

std::vector<LineToLay> cutLines(const std::vector<std::string>& text) {
    static wysim::words::LyricReader reader;
    WaysToSing ways(reader, false);
    return linesToLay(text, ways, reader);
}

// "text=lyric" of each word of a line, or "text" where both are the same, with "?" after those that
// are not sung.
std::string cutWords(const std::string& line) {
    std::string words;
    for (const auto& found : cutLines({line})) {
        for (const auto& word : found.words) {
            words += words.empty() ? "" : "|";
            words += word.text == word.lyric ? word.text : word.text + "=" + word.lyric;
            words += word.ways.empty() ? "?" : "";
        }
    }
    return words;
}

TEST(TextToLay, IsCutAtBlanksAndMarks) {
    EXPECT_EQ(cutWords("O love, sweet love: now!"), "O|love|sweet|love|now");
    EXPECT_EQ(cutWords("\"Come\"--he said; \xE2\x80\x9Cgo\xE2\x80\x9D..."), "Come|he|said|go");
    EXPECT_EQ(cutWords("love\tme\xC2\xA0now\xE3\x80\x80then"), "love|me|now|then");
    EXPECT_EQ(cutWords("(love me)"), "love|me");
    EXPECT_EQ(cutWords("- , ... \xE2\x80\x94"), "");
}

TEST(TextToLay, KeepsApostrophesThatBelongToAWord) {
    EXPECT_EQ(cutWords("don't 'tis lovin'"), "don't|'tis|lovin");
    EXPECT_EQ(cutWords("'love' it"), "love|it");
    EXPECT_EQ(cutWords("don\xE2\x80\x99t"), "don\xE2\x80\x99t=don't");
}

TEST(TextToLay, TakesHyphensFromWords) {
    EXPECT_EQ(cutWords("to-day"), "to-day=today");
    EXPECT_EQ(cutWords("sun-kissed"), "sun-kissed=sun kissed");
    EXPECT_EQ(cutWords("Glo- ri -a"), "Glo|ri?|a");
}

TEST(TextToLay, HasOneWordForARunOfKana) {
    EXPECT_EQ(cutWords("さくら さくら、やよいの"), "さくら|さくら|やよいの");
    EXPECT_EQ(cutWords("loveさくらme"), "love|さくら|me");
    EXPECT_EQ(cutWords("ｻｸﾗ"), "ｻｸﾗ=サクラ");
}

TEST(TextToLay, SingsKanjiByTheReadingAfterThem) {
    EXPECT_EQ(cutWords("桜（さくら）が"), "桜（さくら）=さくら|が");
    EXPECT_EQ(cutWords("love桜（さくら）"), "love|桜（さくら）=さくら");
    EXPECT_EQ(cutWords("桜が"), "桜?|が");
}

TEST(TextToLay, HasBracketsOfPhonemesWithTheWordBeforeThem) {
    EXPECT_EQ(cutWords("love [s a,k u] me"), "love|[s a,k u]|me");
    EXPECT_EQ(cutWords("read[r eh d] me"), "read[r eh d]|me");
    EXPECT_EQ(cutWords("[s a,k u]"), "[s a,k u]");
    EXPECT_EQ(cutWords("love [sil] me"), "love|[sil]|me");
}

TEST(TextToLay, PassesOverOtherBrackets) {
    EXPECT_EQ(cutWords("Oh baby [x2]"), "Oh|baby");
    EXPECT_EQ(cutWords("love[2] me []"), "love|me");
    EXPECT_EQ(cutWords("[Verse a] love"), "love");
    EXPECT_EQ(cutWords("love [me"), "love|me");
}

TEST(TextToLay, PassesOverEmptyLinesAndHeadingsAndCountsThem) {
    const auto lines =
        cutLines({"", "[Chorus]", "love", " [Verse 2: Anna] ", "--", "[s a,k u]", "me"});
    std::vector<std::size_t> numbers;
    for (const auto& line : lines) {
        numbers.push_back(line.number);
    }
    EXPECT_EQ(numbers, (std::vector<std::size_t>{3, 6, 7}));
}

TEST(TextToLay, PassesOverTheNumbersOfVerses) {
    EXPECT_EQ(cutWords("1. When I"), "When|I");
    EXPECT_EQ(cutWords("2.There's"), "There's");
    EXPECT_EQ(cutWords("3) When"), "When");
    EXPECT_EQ(cutWords("1When I"), "When|I");
}

TEST(TextToLay, HasOtherNumbersAsWordsThatAreNotSung) {
    EXPECT_EQ(cutWords("100 years"), "100?|years");
    EXPECT_EQ(cutWords("7th heaven"), "7th?|heaven");
    EXPECT_EQ(cutWords("12"), "12?");
}

TEST(TextToLay, LosesNothingAfterMarksWithoutAWord) {
    EXPECT_EQ(cutWords("'さくら"), "さくら");
    EXPECT_EQ(cutWords("-さくら-"), "さくら");
    EXPECT_EQ(cutWords("'[s a,k u]"), "[s a,k u]");
}

TEST(TextToLay, HasTwoHyphensForADash) {
    EXPECT_EQ(cutWords("hello--world"), "hello|world");
}

TEST(TextToLay, PassesOverHeadingsInJapaneseBrackets) {
    EXPECT_EQ(cutWords("\u3010\u30B5\u30D3\u3011"), "");
    EXPECT_EQ(cutWords("\uFF3BChorus\uFF3D"), "");
}

TEST(TextToLay, TellsWhereAWordIsInItsLine) {
    const auto words = cutLines({"é, love"}).front().words;
    EXPECT_EQ(words[0].column, 1U);
    EXPECT_EQ(words[1].column, 4U);
}

TEST(TextToLay, TakesCharactersThatNoLyricCanHoldForBlanks) {
    EXPECT_EQ(cutWords(std::string("love\x01me")), "love|me");
}

} // namespace

} // namespace wybeta::tests
