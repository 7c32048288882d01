// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/song/ScoreElements.h"

#include "wysim/song/NumberText.h"

#include <optional>
#include <sstream>
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

// "3+2" as a sum; none where a term is no number of beats.
std::optional<int> sumOf(const std::string& beats) {
    std::istringstream terms(beats);
    int sum = 0;
    for (std::string term; std::getline(terms, term, '+');) {
        const auto value = parseInteger(term);
        if (!value || *value < 1 || *value > kMaxBeats - sum) {
            return std::nullopt;
        }
        sum += *value;
    }
    return sum;
}

} // namespace

std::string textOf(xml_node element) {
    std::string text = element.value();
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
    return !note.child("rest").empty() || !note.child("cue").empty();
}

std::optional<TimeSignature> timeSignatureOf(xml_node time) {
    const auto beats = sumOf(textOf(time.child("beats")));
    const auto beatType = parseInteger(textOf(time.child("beat-type")));
    const TimeSignature signature{beats.value_or(0), beatType.value_or(0)};
    const bool isOne = !time.child("beats").next_sibling("beats");
    return isOne && isTimeSignature(signature) ? std::optional(signature) : std::nullopt;
}

bool leadsBack(xml_node element) {
    const bool isSound = element.name() == std::string_view("sound");
    const auto sound = isSound ? element : element.child("sound");
    return element.child("repeat").attribute("direction").value() == std::string_view("backward") ||
           !sound.attribute("dacapo").empty() || !sound.attribute("dalsegno").empty();
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
    syllable.isTyped = isTyped;
    syllable.text = isTyped ? onOneLine(text) : typedText(text);
    return syllable;
}

} // namespace wybeta::wysim::song
