// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/Utf16.h"

#include <gtest/gtest.h>

namespace wybeta::host {
namespace {

const std::string kReplacement = "\xEF\xBF\xBD";

TEST(Utf8FromUtf16, GivesAnEmptyTextForNullAndForAnEmptyText) {
    EXPECT_EQ(utf8FromUtf16(nullptr), "");
    EXPECT_EQ(utf8FromUtf16(u""), "");
}

TEST(Utf8FromUtf16, StopsAtTheTerminatingZero) {
    EXPECT_EQ(utf8FromUtf16(u"la\0la"), "la");
}

TEST(Utf8FromUtf16, WritesEachCodePointInTheFewestBytes) {
    EXPECT_EQ(utf8FromUtf16(u"\u0001\u007F"), "\x01\x7F");
    EXPECT_EQ(utf8FromUtf16(u"\u0080\u07FF"), "\xC2\x80\xDF\xBF");
    EXPECT_EQ(utf8FromUtf16(u"\u0800\uFFFF"), "\xE0\xA0\x80\xEF\xBF\xBF");
}

TEST(Utf8FromUtf16, WritesTheNeighboursOfTheSurrogatesAsTheyAre) {
    EXPECT_EQ(utf8FromUtf16(u"\uD7FF\uE000"), "\xED\x9F\xBF\xEE\x80\x80");
}

TEST(Utf8FromUtf16, WritesASurrogatePairInFourBytes) {
    EXPECT_EQ(utf8FromUtf16(u"\U00010000"), "\xF0\x90\x80\x80");
    EXPECT_EQ(utf8FromUtf16(u"\U0001F3B5"), "\xF0\x9F\x8E\xB5");
    EXPECT_EQ(utf8FromUtf16(u"\U0010FFFF"), "\xF4\x8F\xBF\xBF");
}

TEST(Utf8FromUtf16, KeepsWhatStandsAroundASurrogatePair) {
    EXPECT_EQ(utf8FromUtf16(u"a\U0001F3B5b"), "a\xF0\x9F\x8E\xB5"
                                              "b");
    EXPECT_EQ(utf8FromUtf16(u"か\U00010000"), "\xE3\x81\x8B\xF0\x90\x80\x80");
}

TEST(Utf8FromUtf16, ReplacesALeadSurrogateWithoutItsPartner) {
    EXPECT_EQ(utf8FromUtf16(u"\xD800"), kReplacement);
    EXPECT_EQ(utf8FromUtf16(u"\xDBFF"
                            u"a"),
              kReplacement + "a");
    EXPECT_EQ(utf8FromUtf16(u"\xD83C\uE000"), kReplacement + "\xEE\x80\x80");
}

TEST(Utf8FromUtf16, ReplacesATrailSurrogateWithoutItsPartner) {
    EXPECT_EQ(utf8FromUtf16(u"\xDC00"), kReplacement);
    EXPECT_EQ(utf8FromUtf16(u"a\xDFFF"), "a" + kReplacement);
}

TEST(Utf8FromUtf16, ReplacesBothHalvesOfAReversedPair) {
    EXPECT_EQ(utf8FromUtf16(u"\xDFB5\xD83C"), kReplacement + kReplacement);
}

TEST(Utf8FromUtf16, TakesAPairAfterALoneLeadSurrogateAsAPair) {
    EXPECT_EQ(utf8FromUtf16(u"\xD83C\xD83C\xDFB5"), kReplacement + "\xF0\x9F\x8E\xB5");
}

TEST(Utf8FromUtf16, KeepsAReplacementCharacterOfTheText) {
    EXPECT_EQ(utf8FromUtf16(u"\uFFFD"), kReplacement);
}

} // namespace
} // namespace wybeta::host
