// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/song/Text.h"

#include <algorithm>

namespace wybeta::wysim::song {

std::string inQuotes(std::string_view text, const char* ifEmpty) {
    return text.empty() ? ifEmpty : "'" + std::string(text) + "'";
}

std::string placeAt(std::string_view text, std::size_t offset) {
    const auto before = text.substr(0, offset);
    const auto line = 1 + std::count(before.begin(), before.end(), '\n');
    const auto column = before.size() - (before.rfind('\n') + 1) + 1;
    return "at line " + std::to_string(line) + ", column " + std::to_string(column);
}

std::string listOf(const std::vector<std::string>& texts) {
    std::string list;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const auto* const gap = i == 0 ? "" : i + 1 == texts.size() ? " and " : ", ";
        list += gap + texts[i];
    }
    return list;
}

} // namespace wybeta::wysim::song
