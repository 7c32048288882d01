// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/Utf16.h"

#include <utf8cpp/utf8.h>

#include <array>
#include <iterator>

namespace wybeta::text {

namespace {

constexpr char32_t kReplacementCharacter = 0xFFFD;
constexpr int kMaxBytes = 4; // of one code point in UTF-8

bool isLeadSurrogate(char16_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}

bool isTrailSurrogate(char16_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

// Takes one code point off the front of a text that is not at its end.
char32_t takeCodePoint(const char16_t*& text) {
    const char16_t unit = *text++;
    if (isLeadSurrogate(unit) && isTrailSurrogate(*text)) {
        const char16_t trail = *text++;
        return 0x10000 + ((static_cast<char32_t>(unit) - 0xD800) << 10) + (trail - 0xDC00u);
    }
    return isLeadSurrogate(unit) || isTrailSurrogate(unit) ? kReplacementCharacter : unit;
}

} // namespace

// Gathers the bytes in a buffer, since growing a string byte by byte is slow.
void utf8FromUtf16(const char16_t* text, std::string& utf8) {
    utf8.clear();
    std::array<char, 64> piece;
    while (text != nullptr && *text != 0) {
        char* end = piece.data();
        while (*text != 0 && end + kMaxBytes <= piece.data() + piece.size()) {
            end = utf8::unchecked::append(takeCodePoint(text), end);
        }
        utf8.append(piece.data(), end);
    }
}

void utf16FromUtf8(std::string_view utf8, std::u16string& utf16) {
    utf8 = utf8.substr(0, utf8.find('\0'));
    utf16.clear();
    utf8::utf8to16(utf8.begin(), utf8.end(), std::back_inserter(utf16));
}

} // namespace wybeta::text
