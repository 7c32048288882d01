// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/words/Letters.h"

#include <algorithm>

namespace wybeta::wysim::words {

bool isVowelLetter(char letter) {
    return letter == kSungE || std::string_view("aeiouy").find(letter) != std::string_view::npos;
}

bool hasVowelLetter(std::string_view text) {
    return std::any_of(text.begin(), text.end(), isVowelLetter);
}

bool beginsWith(std::string_view text, std::string_view begin) {
    return text.substr(0, begin.size()) == begin;
}

bool endsIn(std::string_view text, std::string_view end) {
    return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}

bool isOneOf(char32_t character, std::u32string_view characters) {
    return characters.find(character) != std::u32string_view::npos;
}

} // namespace wybeta::wysim::words
