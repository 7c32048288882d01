// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/Utf16.h"

#include <gtest/gtest.h>

#include <string>

namespace wybeta::text {
namespace {

std::string converted(const char16_t* text) {
    std::string utf8 = "what was there before";
    utf8FromUtf16(text, utf8);
    return utf8;
}

const std::string kReplacement = "\xEF\xBF\xBD";

TEST(Utf8FromUtf16, GivesAnEmptyTextForNullAndForAnEmptyText) {
    EXPECT_EQ(converted(nullptr), "");
    EXPECT_EQ(converted(u""), "");
}

TEST(Utf8FromUtf16, StopsAtTheTerminatingZero) {
    EXPECT_EQ(converted(u"la\0la"), "la");
}

TEST(Utf8FromUtf16, WritesEachCodePointInTheFewestBytes) {
    EXPECT_EQ(converted(u"\u0001\u007F"), "\x01\x7F");
    EXPECT_EQ(converted(u"\u0080\u07FF"), "\xC2\x80\xDF\xBF");
    EXPECT_EQ(converted(u"\u0800\uFFFF"), "\xE0\xA0\x80\xEF\xBF\xBF");
}

TEST(Utf8FromUtf16, WritesTheNeighboursOfTheSurrogatesAsTheyAre) {
    EXPECT_EQ(converted(u"\uD7FF\uE000"), "\xED\x9F\xBF\xEE\x80\x80");
}

TEST(Utf8FromUtf16, WritesASurrogatePairInFourBytes) {
    EXPECT_EQ(converted(u"\U00010000"), "\xF0\x90\x80\x80");
    EXPECT_EQ(converted(u"\U0001F3B5"), "\xF0\x9F\x8E\xB5");
    EXPECT_EQ(converted(u"\U0010FFFF"), "\xF4\x8F\xBF\xBF");
}

TEST(Utf8FromUtf16, KeepsWhatStandsAroundASurrogatePair) {
    EXPECT_EQ(converted(u"a\U0001F3B5b"), "a\xF0\x9F\x8E\xB5"
                                          "b");
    EXPECT_EQ(converted(u"か\U00010000"), "\xE3\x81\x8B\xF0\x90\x80\x80");
}

TEST(Utf8FromUtf16, ReplacesALeadSurrogateWithoutItsPartner) {
    EXPECT_EQ(converted(u"\xD800"), kReplacement);
    EXPECT_EQ(converted(u"\xDBFF"
                        u"a"),
              kReplacement + "a");
    EXPECT_EQ(converted(u"\xD83C\uE000"), kReplacement + "\xEE\x80\x80");
}

TEST(Utf8FromUtf16, ReplacesATrailSurrogateWithoutItsPartner) {
    EXPECT_EQ(converted(u"\xDC00"), kReplacement);
    EXPECT_EQ(converted(u"a\xDFFF"), "a" + kReplacement);
}

TEST(Utf8FromUtf16, ReplacesBothHalvesOfAReversedPair) {
    EXPECT_EQ(converted(u"\xDFB5\xD83C"), kReplacement + kReplacement);
}

TEST(Utf8FromUtf16, TakesAPairAfterALoneLeadSurrogateAsAPair) {
    EXPECT_EQ(converted(u"\xD83C\xD83C\xDFB5"), kReplacement + "\xF0\x9F\x8E\xB5");
}

TEST(Utf8FromUtf16, ConvertsTextsOfEveryLength) {
    for (const std::u16string character : {u"a", u"か", u"\U0001F3B5"}) {
        const std::string bytes = converted(character.c_str());
        std::u16string text;
        std::string expected;
        for (int length = 0; length < 200; ++length) {
            EXPECT_EQ(converted(text.c_str()), expected);
            text += character;
            expected += bytes;
        }
    }
}

TEST(Utf8FromUtf16, WritesOverAStringInItsOwnMemory) {
    std::string utf8(100, 'x');
    const char* const memory = utf8.data();
    utf8FromUtf16(u"さくら", utf8);
    EXPECT_EQ(utf8, "さくら");
    EXPECT_EQ(utf8.data(), memory);
}

TEST(Utf8FromUtf16, KeepsAReplacementCharacterOfTheText) {
    EXPECT_EQ(converted(u"\uFFFD"), kReplacement);
}

} // namespace
} // namespace wybeta::text
