// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/wysim/ScoreFixture.h"

#include <sstream>

namespace wybeta::tests {

namespace {

std::string lyric(const std::string& text, const char* syllabic) {
    return std::string("<lyric number=\"1\"><syllabic>") + syllabic + "</syllabic><text>" + text +
           "</text></lyric>";
}

} // namespace

std::string scoreOfSyllables(const std::string& syllables) {
    std::string notes;
    std::istringstream pieces(syllables);
    bool isOpen = false;
    for (std::string piece; pieces >> piece;) {
        notes += "<note><pitch><step>C</step><octave>4</octave></pitch><duration>1</duration>";
        if (piece != "_") {
            const bool leavesOpen = piece.back() == '-';
            const char* const first = leavesOpen ? "begin" : "single";
            const char* const further = leavesOpen ? "middle" : "end";
            notes += lyric(piece.substr(0, piece.size() - (leavesOpen ? 1 : 0)),
                           isOpen ? further : first);
            isOpen = leavesOpen;
        }
        notes += "</note>";
    }
    return "<score-partwise><part-list><score-part id=\"P1\"><part-name>Voice</part-name>"
           "</score-part></part-list><part id=\"P1\"><measure number=\"1\"><attributes>"
           "<divisions>1</divisions></attributes>" +
           notes + "</measure></part></score-partwise>";
}

} // namespace wybeta::tests
