// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace wybeta::wysim::words {

// What a person wrote, as a message names it: 'love', or "nothing" for an empty text.
std::string inQuotes(std::string_view text);
// A lyric between double quotation marks, also an empty one.
std::string inDoubleQuotes(std::string_view lyric);

// Syllables as notes carry them: "[hh ah] [l ow]", or "-" where there are none.
std::string inBrackets(const std::vector<std::string>& syllables);

// A lyric with its phonemes in one bracket, "hello[hh ah,l ow]", in place of any that it has.
std::string withBracket(std::string_view lyric, const std::vector<std::string>& syllables);

// The text without blanks, tabs and carriage returns around it.
std::string_view trimmed(std::string_view text);
// A line without the carriage return that some systems end it with.
std::string_view withoutReturn(std::string_view line);

} // namespace wybeta::wysim::words
