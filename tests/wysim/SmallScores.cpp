// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/wysim/SmallScores.h"

#include <cstddef>

namespace wybeta::tests {

std::string lyricOf(const std::string& text, const std::string& number) {
    return "<lyric number='" + number + "'><text>" + text + "</text></lyric>";
}

std::string noteOf(const std::string& pitch, int duration, const std::string& more) {
    return "<note><pitch><step>" + pitch.substr(0, 1) + "</step><octave>" + pitch.substr(1) +
           "</octave></pitch><duration>" + std::to_string(duration) + "</duration>" + more +
           "</note>\n";
}

std::string restOf(int duration, const std::string& more) {
    return "<note><rest/><duration>" + std::to_string(duration) + "</duration>" + more +
           "</note>\n";
}

std::string voiceOf(int number) {
    return "<voice>" + std::to_string(number) + "</voice>";
}

std::string backupOf(int duration) {
    return "<backup><duration>" + std::to_string(duration) + "</duration></backup>\n";
}

std::string scoreOf(const std::vector<SmallPart>& parts) {
    std::string list;
    std::string music;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const auto id = "id='P" + std::to_string(i + 1) + "'";
        list += "<score-part " + id + "><part-name>" + parts[i].name + "</part-name></score-part>";
        music += "<part " + id + ">\n";
        for (std::size_t j = 0; j < parts[i].measures.size(); ++j) {
            music += "<measure number='" + std::to_string(j + 1) + "'>\n" + parts[i].measures[j] +
                     "</measure>\n";
        }
        music += "</part>\n";
    }
    return "<score-partwise><part-list>" + list + "</part-list>\n" + music + "</score-partwise>\n";
}

std::string scoreOf(const std::vector<std::string>& measures) {
    return scoreOf({SmallPart{"Voice", measures}});
}

} // namespace wybeta::tests
