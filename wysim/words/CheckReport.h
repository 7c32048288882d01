// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wysim/words/TextFinding.h"

#include <nlohmann/json_fwd.hpp>

#include <string>
#include <vector>

namespace wybeta::wysim::words {

bool isAllSung(const std::vector<CheckedLyric>& lines);

// For people: each line with its syllables, what was found in it below, and the totals at the end.
std::string checkReport(const std::vector<CheckedLyric>& lines);

// The same for programs.
std::string checkJson(const std::vector<CheckedLyric>& lines);

// An array of the suggestions, each with its "text", with "replaces": "lyric" where that is not for
// the word alone, and with "guess": true where it is one.
nlohmann::ordered_json suggestionsJson(const Finding& finding);

// What there is to say of a finding, without its place.
std::string sentenceOn(const Finding& finding);

// A name for programs, such as "kana-pair".
std::string nameOf(Reason reason);

} // namespace wybeta::wysim::words
