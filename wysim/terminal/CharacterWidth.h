// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace wybeta::wysim::terminal {

// Whether a character is as wide as it is high, as kana and kanji are: those of the scripts from
// Hangul on.
constexpr bool isWide(char32_t character) {
    return character >= 0x1100;
}

} // namespace wybeta::wysim::terminal
