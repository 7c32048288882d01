// SPDX-License-Identifier: GPL-3.0-or-later
//
// Rules for words that are spelled in another way than the dictionary spells them.
#pragma once

#include "wysim/words/KnownWords.h"

namespace wybeta::wysim::words {

// British spellings: "splendour", "skilful", "civilise", "foetal".
Derivations deriveFromVariants(const KnownWords& known, const std::string& word);

// Forms of old texts and of talk: "confesse", "countrie", "stopt", "saith", "dreamin".
Derivations deriveFromOtherForms(const KnownWords& known, const std::string& word);

} // namespace wybeta::wysim::words
