// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/Utf16.h"

#include <utf8cpp/utf8.h>

#include <iterator>

namespace wybeta::host {

namespace {

constexpr char32_t kReplacementCharacter = 0xFFFD;

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

std::string utf8FromUtf16(const char16_t* text) {
    std::string utf8;
    while (text != nullptr && *text != 0) {
        utf8::append(takeCodePoint(text), std::back_inserter(utf8));
    }
    return utf8;
}

} // namespace wybeta::host
