// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace wybeta::host {

// Converts a zero-terminated UTF-16 text to UTF-8. A surrogate without its partner becomes U+FFFD,
// so the result is always valid. Null gives an empty text. The result takes the place, and the
// memory, of what `utf8` held.
void utf8FromUtf16(const char16_t* text, std::string& utf8);

} // namespace wybeta::host
