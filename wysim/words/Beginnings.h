// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wysim/words/KnownWords.h"

namespace wybeta::wysim::words {

// The rule for words with a beginning that the dictionary has without it: "unguessed", "bestrew",
// "whereon"; and for "th'" and "'t" before a word, as in "th'eternal" and "'twill".
Derivations deriveFromPrefix(const KnownWords& known, const std::string& word);

} // namespace wybeta::wysim::words
