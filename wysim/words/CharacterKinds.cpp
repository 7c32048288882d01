// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/words/CharacterKinds.h"

#include "wysim/words/Letters.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <string_view>

namespace wybeta::wysim::words {

namespace {

struct Range {
    char32_t first;
    char32_t last;
};

constexpr Range kOtherBlanks[] = {{0x09, 0x09},     {0xA0, 0xA0},     {0x1680, 0x1680},
                                  {0x2000, 0x200B}, {0x202F, 0x202F}, {0x205F, 0x205F},
                                  {0x3000, 0x3000}, {0xFEFF, 0xFEFF}};
constexpr Range kMarks[] = {{0x21, 0x2F},     {0x3A, 0x40},     {0x5B, 0x60},      {0x7B, 0x7E},
                            {0xA1, 0xA9},     {0xAB, 0xB4},     {0xB6, 0xB9},      {0xBB, 0xBF},
                            {0xD7, 0xD7},     {0xF7, 0xF7},     {0x02BC, 0x02BC},  {0x200C, 0x2BFF},
                            {0x3001, 0x3004}, {0x3008, 0x3020}, {0x3030, 0x3030},  {0x303D, 0x303F},
                            {0x309B, 0x309C}, {0x30A0, 0x30A0}, {0x30FB, 0x30FB},  {0xFE00, 0xFE1F},
                            {0xFE30, 0xFE6F}, {0xFF01, 0xFF0F}, {0xFF1A, 0xFF20},  {0xFF3B, 0xFF40},
                            {0xFF5B, 0xFF65}, {0xFFE0, 0xFFEE}, {0x1F000, 0x1FAFF}};
constexpr Range kKanji[] = {{0x3005, 0x3007}, {0x3021, 0x3029}, {0x3400, 0x4DBF},
                            {0x4E00, 0x9FFF}, {0xF900, 0xFAFF}, {0x20000, 0x3FFFF}};
constexpr std::u32string_view kApostrophes = U"'`´ʼ‘’′＇";

constexpr Range kFullWidth = {0xFF01, 0xFF5E};
constexpr char32_t kFullToPlain = 0xFF01 - U'!';

constexpr char32_t kFirstHalfKana = 0xFF66;
constexpr std::u32string_view kHalfKana =
    U"ヲァィゥェォャュョッーアイウエオカキクケコサシスセソタチツテトナニヌネノハヒフヘホマミムメモ"
    U"ヤユヨラリルレロワン";
constexpr char32_t kHalfVoiced = 0xFF9E;
constexpr char32_t kHalfSemiVoiced = 0xFF9F;
constexpr std::u32string_view kVoiceable = U"カキクケコサシスセソタチツテトハヒフヘホ";
constexpr std::u32string_view kSemiVoiceable = U"ハヒフヘホ";

bool isIn(char32_t character, Range range) {
    return character >= range.first && character <= range.last;
}

template <std::size_t Size>
bool isInOne(char32_t character, const Range (&ranges)[Size]) {
    return std::any_of(std::begin(ranges), std::end(ranges),
                       [character](Range range) { return isIn(character, range); });
}

// A kana with the voicing mark behind it; 0 when they do not go together.
char32_t voiced(char32_t kana, char32_t mark) {
    if (mark == kHalfVoiced && kana == U'ウ') {
        return U'ヴ';
    }
    // Unicode has the voiced kana right behind the plain one, the semi-voiced behind that.
    if (mark == kHalfVoiced && isOneOf(kana, kVoiceable)) {
        return kana + 1;
    }
    return mark == kHalfSemiVoiced && isOneOf(kana, kSemiVoiceable) ? kana + 2 : 0;
}

} // namespace

bool isOtherBlank(char32_t character) {
    return isInOne(character, kOtherBlanks);
}

bool isMark(char32_t character) {
    return isInOne(character, kMarks);
}

bool isApostrophe(char32_t character) {
    return isOneOf(character, kApostrophes);
}

bool isKanji(char32_t character) {
    return isInOne(character, kKanji);
}

bool isOfWords(char32_t character) {
    return character != U' ' && !isOtherBlank(character) && !isMark(character);
}

bool isAscii(char32_t character) {
    return character < 0x80;
}

bool isAsciiLetter(char32_t character) {
    return isIn(character, {U'A', U'Z'}) || isIn(character, {U'a', U'z'});
}

bool isLatinLetter(char32_t character) {
    return (isIn(character, {0xC0, 0x24F}) || isIn(character, {0x1E00, 0x1EFF})) &&
           isOfWords(character);
}

std::u32string withPlainBlanks(std::u32string text) {
    std::replace_if(text.begin(), text.end(), isOtherBlank, U' ');
    return text;
}

std::u32string withPlainApostrophes(std::u32string text) {
    std::replace_if(text.begin(), text.end(), isApostrophe, U'\'');
    return text;
}

std::u32string withPlainLetters(std::u32string text) {
    std::transform(text.begin(), text.end(), text.begin(), [](char32_t character) {
        return isIn(character, kFullWidth) ? character - kFullToPlain : character;
    });
    return text;
}

std::u32string withOrdinaryKana(std::u32string text) {
    std::size_t size = 0;
    for (const char32_t character : text) {
        const auto together = size == 0 ? 0 : voiced(text[size - 1], character);
        if (together != 0) {
            text[size - 1] = together;
            continue;
        }
        const bool isHalf = character >= kFirstHalfKana && character < kHalfVoiced;
        text[size++] = isHalf ? kHalfKana[character - kFirstHalfKana] : character;
    }
    text.resize(size);
    return text;
}

} // namespace wybeta::wysim::words
