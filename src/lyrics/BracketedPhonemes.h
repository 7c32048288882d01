// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string_view>

namespace wybeta::lyrics {

// A lyric that carries its phonemes itself, such as "sakura[s a,k u,r a]". Views into the lyric.
struct BracketedPhonemes {
    std::string_view text;     // before the bracket: "sakura"
    std::string_view phonemes; // inside it: "s a,k u,r a"
};

// On the first line that has a "[" before its last "]", finds the text between that "]" and the
// nearest "[" before it. A line ends at LF or CR; other lines don't count.
std::optional<BracketedPhonemes> findBracketedPhonemes(std::string_view lyric);

} // namespace wybeta::lyrics
