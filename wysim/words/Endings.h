// SPDX-License-Identifier: GPL-3.0-or-later
//
// Rules for words with an ending that the dictionary has without it.
#pragma once

#include "wysim/words/KnownWords.h"

namespace wybeta::wysim::words {

// Endings with an apostrophe that are no sounds left out: "night's", "know'st", "if't".
Derivations deriveFromClitics(const KnownWords& known, const std::string& word);

// Forms of nouns, verbs and adjectives: "cowslips", "hopped", "reignèd", "ruing", "loveth".
Derivations deriveFromInflection(const KnownWords& known, const std::string& word);

// Words made of another one: "dreamless", "earthward", "silvery".
Derivations deriveFromSuffix(const KnownWords& known, const std::string& word);

} // namespace wybeta::wysim::words
