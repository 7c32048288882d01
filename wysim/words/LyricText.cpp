// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/words/LyricText.h"

#include <utf8cpp/utf8.h>

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace wybeta::wysim::words {

std::u32string charactersOf(std::string_view utf8) {
    std::u32string characters;
    utf8::utf8to32(utf8.begin(), utf8.end(), std::back_inserter(characters));
    return characters;
}

std::string utf8Of(std::u32string_view characters) {
    std::string utf8;
    utf8::utf32to8(characters.begin(), characters.end(), std::back_inserter(utf8));
    return utf8;
}

std::vector<std::string> wordsBetweenBlanks(std::string_view text) {
    std::vector<std::string> words;
    for (std::size_t begin = 0;
         (begin = text.find_first_not_of(' ', begin)) != std::string_view::npos;) {
        const auto end = std::min(text.find(' ', begin), text.size());
        words.emplace_back(text.substr(begin, end - begin));
        begin = end;
    }
    return words;
}

std::vector<std::string_view> viewsOf(const std::vector<std::string>& texts) {
    return {texts.begin(), texts.end()};
}

} // namespace wybeta::wysim::words
