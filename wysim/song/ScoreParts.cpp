// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/song/ScoreParts.h"

#include "wysim/song/ScoreElements.h"
#include "wysim/song/ScoreLyric.h"

#include <cstddef>
#include <map>

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
    const auto beginPart = [&](xml_node part) {
        const auto name = partName(score, part.attribute("id").value(), parts.size() + 1);
        parts.push_back({name, {}, false, {}});
    };
    for (const auto part : score.children("part")) {
        beginPart(part);
        for (const auto measure : part.children("measure")) {
            addMeasure(measure, isTyped, parts.back());
        }
    }
    // In a score by time, each measure holds a piece of each part.
    std::map<std::string, std::size_t> places;
    for (const auto measure : score.children("measure")) {
        for (const auto piece : measure.children("part")) {
            const auto [place, isNew] =
                places.try_emplace(piece.attribute("id").value(), parts.size());
            if (isNew) {
                beginPart(piece);
            }
            addMeasure(piece, isTyped, parts[place->second]);
        }
    }
    return parts;
}

} // namespace wybeta::wysim::song
