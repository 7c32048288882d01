// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace wybeta::text {

// Converts a zero-terminated UTF-16 text to UTF-8. A surrogate without its partner becomes U+FFFD,
// so the result is always valid. Null gives an empty text. The result replaces what `utf8` held and
// reuses its memory.
void utf8FromUtf16(const char16_t* text, std::string& utf8);

// Converts a UTF-8 text up to its first zero byte to UTF-16. The result replaces what `utf16` held
// and reuses its memory. Throws utf8::exception for a text that is not valid UTF-8.
void utf16FromUtf8(std::string_view utf8, std::u16string& utf16);

} // namespace wybeta::text
