// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/song/ScoreParts.h"

#include "wysim/song/ScoreElements.h"
#include "wysim/song/ScoreLyric.h"

#include <cstddef>

namespace wybeta::wysim::song {

namespace {

using pugi::xml_node;

std::string partName(xml_node score, const char* id, std::size_t number) {
    const auto listed = score.child("part-list").find_child_by_attribute("score-part", "id", id);
    const auto name = onOneLine(textOf(listed.child("part-name")));
    return name.empty() ? "Part " + std::to_string(number) : name;
}

void addMeasure(xml_node measure, bool isTyped, ScorePart& part) {
    part.measures.push_back(measure);
    for (const auto note : measure.children("note")) {
        if (isSilent(note)) {
            continue;
        }
        part.hasNotes = true;
        for (const auto lyric : note.children("lyric")) {
            if (!readLyric(lyric, isTyped).text.empty()) {
                part.verses.insert(verseOf(lyric));
            }
        }
    }
}

} // namespace

std::vector<ScorePart> partsOf(xml_node score) {
    const bool isTyped = isOwnScore(score);
    std::vector<ScorePart> parts;
    for (const auto element : score.children("part")) {
        auto& part = parts.emplace_back();
        part.name = partName(score, element.attribute("id").value(), parts.size());
        for (const auto measure : element.children("measure")) {
            addMeasure(measure, isTyped, part);
        }
    }
    return parts;
}

} // namespace wybeta::wysim::song
