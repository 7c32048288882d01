// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/song/ScoreElements.h"

#include "wysim/song/MusicXmlWriter.h"
#include "wysim/song/NoteValue.h"
#include "wysim/song/Numbers.h"

#include <optional>
#include <string_view>

namespace wybeta::wysim::song {

using pugi::xml_node;

namespace {

std::optional<int> lastNumberIn(std::string_view text) {
    constexpr std::string_view kDigits = "0123456789";
    const auto end = text.find_last_of(kDigits) + 1;
    const auto before = text.substr(0, end).find_last_not_of(kDigits);
    const auto start = before == std::string_view::npos ? 0 : before + 1;
    return parseInteger(text.substr(start, end - start));
}

} // namespace

std::string textOf(xml_node element) {
    std::string text;
    for (const auto piece : element.children()) {
        if (piece.type() == pugi::node_pcdata || piece.type() == pugi::node_cdata) {
            text += piece.value();
        }
    }
    return text;
}

bool isOwnScore(xml_node score) {
    const auto encoding = score.child("identification").child("encoding");
    return encoding.child_value("software") == std::string_view(kSoftware);
}

bool isSilent(xml_node note) {
    return note.child("rest") || note.child("cue");
}

int verseOf(xml_node lyric) {
    const auto number = lastNumberIn(lyric.attribute("number").value());
    return number ? *number : lastNumberIn(lyric.attribute("name").value()).value_or(1);
}

double drawnLength(xml_node note) {
    const std::string_view type = note.child_value("type");
    double length = 1;
    for (const auto& value : kNoteValues) {
        length = type == value.name ? value.quarters : length;
    }
    double extension = length;
    for (auto dot = note.child("dot"); dot; dot = dot.next_sibling("dot")) {
        extension /= 2;
        length += extension;
    }
    const auto tuplet = note.child("time-modification");
    const auto normal = parseInteger(tuplet.child_value("normal-notes")).value_or(1);
    const auto actual = parseInteger(tuplet.child_value("actual-notes")).value_or(1);
    return normal > 0 && actual > 0 ? length * normal / actual : length;
}

ScoreSyllable readLyric(xml_node lyric, bool isTyped) {
    ScoreSyllable syllable;
    std::string text;
    bool isFirst = true;
    for (const auto child : lyric.children()) {
        const std::string_view name = child.name();
        const std::string value = textOf(child);
        if (name == "elision") {
            text += ' ';
        } else if (name == "text") {
            text += value;
        } else if (name == "syllabic") {
            syllable.leavesWordOpen = value == "begin" || value == "middle";
            syllable.continuesWord =
                isFirst ? value == "middle" || value == "end" : syllable.continuesWord;
            isFirst = false;
        }
    }
    syllable.text = isTyped ? onOneLine(text) : typedText(text);
    return syllable;
}

} // namespace wybeta::wysim::song
