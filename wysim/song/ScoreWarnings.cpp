// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/song/ScoreWarnings.h"

#include "wysim/song/ScoreLyric.h"
#include "wysim/song/Text.h"

#include <algorithm>
#include <string_view>

namespace wybeta::wysim::song {

using pugi::xml_node;

void ScoreWarnings::add(const std::string& sentence, xml_node element) {
    const auto known = std::find_if(kinds_.begin(), kinds_.end(), [&sentence](const auto& kind) {
        return kind.sentence == sentence;
    });
    if (known == kinds_.end()) {
        kinds_.push_back({sentence, 0, placeOf(element)});
    } else {
        ++known->others;
    }
}

std::vector<std::string> ScoreWarnings::sentences() const {
    std::vector<std::string> sentences;
    for (const auto& kind : kinds_) {
        const auto others =
            kind.others == 0 ? std::string() : ", and " + std::to_string(kind.others) + " more";
        sentences.push_back(kind.sentence + kind.place + others);
    }
    return sentences;
}

std::string ScoreWarnings::placeOf(xml_node element) const {
    auto measure = element;
    while (measure && measure.name() != std::string_view("measure")) {
        measure = measure.parent();
    }
    const auto number = onOneLine(measure.attribute("number").value());
    const auto measureText = number.empty() ? std::string() : "measure " + number + " of ";
    const auto where =
        (part_.empty() ? "" : " in " + measureText + inQuotes(part_)) + document_.place(element);
    return where.empty() ? "" : "," + where;
}

} // namespace wybeta::wysim::song
