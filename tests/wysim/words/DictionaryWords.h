// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/unit/dictionary/LoadedDictionary.h"
#include "text/Splitting.h"

#include <string_view>
#include <vector>

namespace wybeta::tests {

// The lines of the real dictionary's text.
inline const std::vector<std::string_view>& dictionaryLines() {
    static const auto lines = text::splitText(realDictionaryText(), "\r\n");
    return lines;
}

// The word of a line; empty for what follows the last line.
inline std::string_view wordOf(std::string_view line) {
    return line.substr(0, line.find('\t'));
}

} // namespace wybeta::tests
