// SPDX-License-Identifier: GPL-3.0-or-later
//
// Words as letters.
#pragma once

#include <string_view>

namespace wybeta::wysim::words {

// In a plain spelling, an e whose accent says that it is sung: "reignEd" of "reignèd".
constexpr char kSungE = 'E';

// Whether a letter of a plain spelling is one that vowels are written with: y and kSungE are, too.
bool isVowelLetter(char letter);
bool hasVowelLetter(std::string_view text);

bool beginsWith(std::string_view text, std::string_view begin);
bool endsIn(std::string_view text, std::string_view end);

bool isOneOf(char32_t character, std::u32string_view characters);

} // namespace wybeta::wysim::words
