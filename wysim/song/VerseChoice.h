// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <set>
#include <string>

namespace wybeta::wysim::song {

struct VerseChoice {
    int verse = 1;
    bool hasWords = false;
    std::string warning; // of what a person may not expect; empty when there is nothing
};

// Chooses among the verses that have words: the one that is asked for, or else the first.
VerseChoice chooseVerse(std::optional<int> asked, const std::set<int>& verses);

} // namespace wybeta::wysim::song
