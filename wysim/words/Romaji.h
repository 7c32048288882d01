// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace wybeta::wysim::words {

// The hiragana of a word in Latin letters that consists of whole morae, in any of the common
// systems: "sakura", "shi" and "si", "kitte" and "matcha", "kon'ya", "Tōkyō" and "to-kyo-". A long
// vowel that is marked becomes the vowel with ー. None for any other word, for a word without a
// vowel, of less than two letters or of more than 64 characters.
std::optional<std::u32string> kanaOf(std::u32string_view word);

} // namespace wybeta::wysim::words
