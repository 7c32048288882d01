// SPDX-License-Identifier: GPL-3.0-or-later
//
// Lyrics as characters.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace wybeta::wysim::words {

// A text has to be valid UTF-8.
std::u32string charactersOf(std::string_view utf8);
std::string utf8Of(std::u32string_view characters);

// The words between the blanks of a text.
std::vector<std::string> wordsBetweenBlanks(std::string_view text);

// The texts as views, for what joins them.
std::vector<std::string_view> viewsOf(const std::vector<std::string>& texts);

} // namespace wybeta::wysim::words
