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

// Finds the bracket that counts: the last "[" that has a "]" after it, up to the last "]", on the
// first line that has such a pair. A line ends at LF or CR; other lines don't count.
std::optional<BracketedPhonemes> findBracketedPhonemes(std::string_view lyric);

} // namespace wybeta::lyrics
