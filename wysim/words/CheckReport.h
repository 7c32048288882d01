// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wysim/words/TextFinding.h"

#include <string>
#include <vector>

namespace wybeta::wysim::words {

bool isAllSung(const std::vector<CheckedLyric>& lines);

// For people: each line with its syllables, what was found in it below, and the totals at the end.
std::string checkReport(const std::vector<CheckedLyric>& lines);

// The same for programs.
std::string checkJson(const std::vector<CheckedLyric>& lines);

// What there is to say of a finding, without its place.
std::string sentenceOn(const Finding& finding);

// A name for programs, such as "kana-pair".
std::string nameOf(Reason reason);

} // namespace wybeta::wysim::words
