// SPDX-License-Identifier: GPL-3.0-or-later
#include "lyrics/BracketedPhonemes.h"

namespace wybeta::lyrics {

namespace {

constexpr auto kNone = std::string_view::npos;

std::optional<BracketedPhonemes> findInLine(std::string_view line) {
    const auto close = line.rfind(']');
    if (close == kNone) {
        return std::nullopt;
    }
    const auto open = line.rfind('[', close);
    if (open == kNone) {
        return std::nullopt;
    }
    return BracketedPhonemes{line.substr(0, open), line.substr(open + 1, close - open - 1)};
}

} // namespace

// This is what a search for "(.*)\[(.*)\]" finds, without the library's matcher: that one recurses
// once for each character and takes quadratic time where there is no bracket, so that a pasted text
// would make the editor wait or overflow its stack.
std::optional<BracketedPhonemes> findBracketedPhonemes(std::string_view lyric) {
    for (std::size_t begin = 0; begin < lyric.size();) {
        const auto end = lyric.find_first_of("\n\r", begin);
        if (const auto found = findInLine(lyric.substr(begin, end - begin))) {
            return found;
        }
        begin = end == kNone ? lyric.size() : end + 1;
    }
    return std::nullopt;
}

} // namespace wybeta::lyrics
