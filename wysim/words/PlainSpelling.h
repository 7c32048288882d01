// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace wybeta::wysim::words {

// A word in small letters a to z, apostrophes and hyphens, whatever it was written with: capital
// letters, accents, ligatures, typographic apostrophes, dashes of any kind. An accent counts only
// on the e of a last -ed, which becomes kSungE (see Letters.h). None for a word with other
// characters, without a letter, or of more than 64 characters.
std::optional<std::string> plainSpellingOf(std::u32string_view word);

} // namespace wybeta::wysim::words
