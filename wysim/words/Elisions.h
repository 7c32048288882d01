// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wysim/words/KnownWords.h"

namespace wybeta::wysim::words {

// The rule for words with letters left out for an apostrophe: within ("heav'n", "wand'ring",
// "kiss'd", "o'er"), at the end ("singin'", "thro'") or in front ("'neath"). A vowel that is left
// out takes its syllable with it, unless the consonants around it could not be sung then.
Derivations deriveFromElision(const KnownWords& known, const std::string& word);

} // namespace wybeta::wysim::words
