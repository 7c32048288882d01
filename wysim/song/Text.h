// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace wybeta::wysim::song {

// What a person gave, for a message: 'this'; or what stands for a text that is empty.
std::string inQuotes(std::string_view text, const char* ifEmpty = "nothing");

// "at line 3, column 7": where the byte at an offset stands in a text.
std::string placeAt(std::string_view text, std::size_t offset);

// "one", "one and two", "one, two and three".
std::string listOf(const std::vector<std::string>& texts);

} // namespace wybeta::wysim::song
