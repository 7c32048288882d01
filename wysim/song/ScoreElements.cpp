// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/song/ScoreElements.h"

#include "wysim/song/MusicXmlWriter.h"
#include "wysim/song/Numbers.h"

#include <string_view>

namespace wybeta::wysim::song {

using pugi::xml_node;

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
    const std::string_view number = lyric.attribute("number").value();
    const auto lastOther = number.find_last_not_of("0123456789");
    const auto digits = number.substr(lastOther == std::string_view::npos ? 0 : lastOther + 1);
    return parseInteger(digits).value_or(1);
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
