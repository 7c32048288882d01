// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <pugixml.hpp>

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

} // namespace wybeta::wysim::song
