// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <pugixml.hpp>

#include <optional>
#include <set>
#include <string>
#include <vector>

namespace wybeta::wysim::song {

// A part of a score, before its notes are read.
struct ScorePart {
    std::string name;
    std::vector<pugi::xml_node> measures;
    bool hasNotes = false;
    std::set<int> verses; // that have words in it
};

// The parts in the order of the score.
std::vector<ScorePart> partsOf(pugi::xml_node score);

struct VerseChoice {
    int verse = 1;
    bool hasWords = false;
    std::string warning; // of what a person may not expect; empty when there is nothing
};

// Chooses among the verses that have words: the one that is asked for, or else the first.
VerseChoice chooseVerse(std::optional<int> asked, const std::vector<ScorePart>& parts);

} // namespace wybeta::wysim::song
