// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/Utf16.h"

#include <gtest/gtest.h>
#include <utf8cpp/utf8.h>

#include <string>
#include <string_view>

namespace wybeta::text {
namespace {

using namespace std::string_literals;

std::string converted(const char16_t* text) {
    std::string utf8 = "what was there before";
    utf8FromUtf16(text, utf8);
    return utf8;
}

std::u16string converted(std::string_view utf8) {
    std::u16string utf16 = u"what was there before";
    utf16FromUtf8(utf8, utf16);
    return utf16;
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

TEST(Utf8FromUtf16, ReplacesBothOfTwoOfAKindAtTheirBorder) {
    EXPECT_EQ(converted(u"\xDBFF\xDBFF"), kReplacement + kReplacement);
    EXPECT_EQ(converted(u"\xDC00\xDC00"), kReplacement + kReplacement);
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

TEST(Utf8FromUtf16, ConvertsAPairBehindTextsOfEveryLength) {
    std::u16string text;
    std::string expected;
    for (int length = 0; length < 200; ++length) {
        EXPECT_EQ(converted((text + u"\U0001F3B5").c_str()), expected + "\xF0\x9F\x8E\xB5");
        text += u'a';
        expected += 'a';
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

TEST(Utf16FromUtf8, GivesAnEmptyTextForAnEmptyText) {
    EXPECT_EQ(converted(""), u"");
}

TEST(Utf16FromUtf8, TakesAsciiAsItIs) {
    std::string ascii;
    std::u16string expected;
    for (char character = 1; character > 0 && character < 0x7F; ++character) {
        ascii += character;
        expected += static_cast<char16_t>(character);
    }
    EXPECT_EQ(converted(ascii), expected);
}

TEST(Utf16FromUtf8, WritesACharacterOfTheBasicPlaneInOneUnit) {
    EXPECT_EQ(converted("さくら"), u"さくら");
    EXPECT_EQ(converted("la か[k a]"), u"la か[k a]");
    EXPECT_EQ(converted("\x7F\xC2\x80\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBF"),
              u"\u007F\u0080\uD7FF\uE000\uFFFF");
}

TEST(Utf16FromUtf8, WritesACharacterBeyondTheBasicPlaneAsASurrogatePair) {
    EXPECT_EQ(converted("\xF0\x90\x80\x80"), u"\xD800\xDC00");
    EXPECT_EQ(converted("か\xF0\x9F\x8E\xB5き"), u"か\xD83C\xDFB5き");
    EXPECT_EQ(converted("\xF4\x8F\xBF\xBF"), u"\xDBFF\xDFFF");
}

TEST(Utf16FromUtf8, StopsAtTheFirstZeroByte) {
    EXPECT_EQ(converted("la\0lu"s), u"la");
    EXPECT_EQ(converted("か\0き"s), u"か");
    EXPECT_EQ(converted("\0la"s), u"");
    EXPECT_EQ(converted("la\0\xFF"s), u"la");
}

TEST(Utf16FromUtf8, RaisesForATextThatIsNotUtf8) {
    for (const std::string_view bad : {"\xFF", "\x80", "\xE3\x81", "\xC0\x80", "\xED\xA0\x80",
                                       "\xF4\x90\x80\x80", "la\xE3", "か\xFFき"}) {
        std::u16string utf16;
        EXPECT_THROW(utf16FromUtf8(bad, utf16), utf8::exception) << testing::PrintToString(bad);
    }
}

TEST(Utf16FromUtf8, WritesOverAStringInItsOwnMemory) {
    std::u16string utf16(100, u'x');
    const char16_t* const memory = utf16.data();
    utf16FromUtf8("さくら", utf16);
    EXPECT_EQ(utf16, u"さくら");
    EXPECT_EQ(utf16.data(), memory);
}

TEST(Utf16FromUtf8, BringsBackWhatUtf8FromUtf16Converted) {
    std::u16string text;
    for (char32_t character = 1; character <= 0x10FFFF; character += 13) {
        if (character < 0x10000) {
            text = {character < 0xD800 || character > 0xDFFF ? static_cast<char16_t>(character)
                                                             : u'-'};
        } else {
            text = {static_cast<char16_t>(0xD800 + ((character - 0x10000) >> 10)),
                    static_cast<char16_t>(0xDC00 + ((character - 0x10000) & 0x3FF))};
        }
        ASSERT_EQ(converted(converted(text.c_str())), text) << static_cast<unsigned>(character);
    }
}

} // namespace
} // namespace wybeta::text
