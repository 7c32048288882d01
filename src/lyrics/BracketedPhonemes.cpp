// SPDX-License-Identifier: GPL-3.0-or-later
#include "lyrics/BracketedPhonemes.h"

#include <algorithm>
#include <cstddef>

namespace wybeta::lyrics {

namespace {

constexpr auto kNone = std::string_view::npos;

bool isLineEnd(char byte) {
    return byte == '\n' || byte == '\r';
}

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
    for (auto begin = lyric.begin(); begin != lyric.end();) {
        const auto end = std::find_if(begin, lyric.end(), isLineEnd);
        const auto line = lyric.substr(static_cast<std::size_t>(begin - lyric.begin()),
                                       static_cast<std::size_t>(end - begin));
        if (const auto found = findInLine(line)) {
            return found;
        }
        begin = end == lyric.end() ? end : end + 1;
    }
    return std::nullopt;
}

} // namespace wybeta::lyrics
