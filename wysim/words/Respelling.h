// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "dictionary/PronunciationDictionary.h"

#include <string>
#include <string_view>
#include <vector>

namespace wybeta::wysim::words {

// How to sing a word that the dictionary has in another spelling or in parts.
struct Respelling {
    std::vector<std::string> syllables; // phoneme strings, "k ih s t"
    std::vector<std::string> words;     // of the dictionary that they come from, "kissed"
};

// The respellings of a word as a person wrote it, without marks around it but apostrophes:
// "Kiss'd", "o’er", "splendour", "reignèd", "to‑day". The likelier first, each with other
// syllables, five at most. None for a word with characters other than letters, apostrophes and
// hyphens, or of more than 64.
std::vector<Respelling> respellingsOf(std::u32string_view word,
                                      const dictionary::PronunciationDictionary& dictionary);

} // namespace wybeta::wysim::words
