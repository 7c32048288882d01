// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/song/PartReader.h"

#include "wysim/song/BadInput.h"
#include "wysim/song/Numbers.h"
#include "wysim/song/ScoreElements.h"

#include <algorithm>
#include <cmath>
#include <string_view>
#include <utility>

namespace wybeta::wysim::song {

using pugi::xml_node;

namespace {

// Voices are optional where each staff has one.
std::string voiceOf(xml_node note) {
    const auto voice = note.child("voice");
    return voice ? textOf(voice) : "staff " + textOf(note.child("staff"));
}

} // namespace

PartReader::PartReader(const XmlDocument& document, int verse, ScoreWarnings& warnings)
    : document_(document), verse_(verse), warnings_(warnings), isOwn_(isOwnScore(document.root())) {
}

void PartReader::readMeasure(xml_node measure) {
    start_ = end_;
    now_ = start_;
    for (const auto child : measure.children()) {
        readMeasureChild(child);
        end_ = std::max(end_, now_);
    }
    firstMeasure_ = firstMeasure_.value_or(end_);
}

void PartReader::readMeasureChild(xml_node child) {
    const std::string_view name = child.name();
    if (name == "note") {
        readNote(child);
    } else if (name == "backup") {
        goBack(child);
    } else if (name == "forward") {
        goForward(child, quarters(child));
    } else if (name == "attributes") {
        readAttributes(child);
    }
}

void PartReader::readAttributes(xml_node attributes) {
    if (const auto divisions = attributes.child("divisions")) {
        divisions_ = number(divisions);
        if (divisions_ <= 0) {
            throw BadInput::expectedFound("divisions above 0",
                                          textOf(divisions) + document_.place(divisions));
        }
    }
    const auto time = attributes.child("time");
    const auto beats = parseInteger(time.child_value("beats"));
    const auto beatType = parseInteger(time.child_value("beat-type"));
    if (!time_ && beats && beatType) {
        time_ = TimeSignature{*beats, *beatType};
    }
}

void PartReader::readNote(xml_node element) {
    if (!element.child("grace").empty()) {
        return;
    }
    const double length = quarters(element);
    if (!element.child("chord")) {
        noteStart_ = now_;
        goForward(element, length);
    }
    if (!isSilent(element)) {
        addNote(element, length);
    }
}

void PartReader::addNote(xml_node element, double length) {
    ScoreNote written;
    written.element = element;
    written.note.start = noteStart_;
    written.note.length = length;
    written.note.pitch = readPitch(element);
    checkPlaced(written.note, element);
    readTies(element, written);
    readLyrics(element, written);
    voices_[voiceOf(element)].add(std::move(written));
}

void PartReader::readTies(xml_node element, ScoreNote& note) const {
    for (const auto tie : element.children("tie")) {
        const std::string_view type = tie.attribute("type").value();
        note.beginsTie = note.beginsTie || type == "start";
        note.endsTie = note.endsTie || type == "stop";
    }
}

void PartReader::readLyrics(xml_node element, ScoreNote& note) const {
    for (const auto lyric : element.children("lyric")) {
        if (verseOf(lyric) == verse_ && note.syllable.text.empty()) {
            note.syllable = readLyric(lyric, isOwn_);
        }
    }
}

int PartReader::readPitch(xml_node element) const {
    const auto pitch = element.child("pitch");
    const auto unpitched = element.child("unpitched");
    const std::string step = textOf(pitch ? pitch.child("step") : unpitched.child("display-step"));
    const std::string octave =
        textOf(pitch ? pitch.child("octave") : unpitched.child("display-octave"));
    if (unpitched && step.empty()) {
        return SongNote().pitch;
    }
    const auto natural = parsePitch(step + octave);
    const auto alter = pitch.child("alter") ? number(pitch.child("alter")) : 0;
    if (step.size() != 1 || !natural || std::abs(alter) > kHighestPitch) {
        throw BadInput::expectedFound("a note with a pitch", "none" + document_.place(element));
    }
    return *natural + static_cast<int>(std::lround(alter));
}

void PartReader::checkPlaced(const SongNote& note, xml_node element) const {
    try {
        checkNote(note);
    } catch (const BadInput& error) {
        throw BadInput(error.what() + document_.place(element));
    }
}

void PartReader::goBack(xml_node backup) {
    constexpr double kNearly = 1e-6;
    const double time = now_ - quarters(backup);
    if (time < start_ - kNearly) {
        warnings_.add("a backup beyond the start of its measure goes to that start", backup);
    }
    now_ = std::max(time, start_);
}

void PartReader::goForward(xml_node element, double by) {
    if (now_ + by > kLongestSong) {
        throw BadInput::expectedFound("a time up to 1000000 quarter notes",
                                      "one beyond" + document_.place(element));
    }
    now_ += by;
}

double PartReader::quarters(xml_node element) const {
    const double duration = number(element.child("duration"), element);
    if (duration < 0) {
        throw BadInput::expectedFound("a duration of 0 or more",
                                      formatNumber(duration) + document_.place(element));
    }
    return duration / divisions_;
}

double PartReader::number(xml_node element, xml_node near) const {
    const auto value = parseNumber(textOf(element));
    if (!value) {
        throw BadInput::expectedFound(element ? std::string("a number as ") + element.name()
                                              : std::string("a duration"),
                                      "'" + textOf(element) + "'" + document_.place(near));
    }
    return *value;
}

} // namespace wybeta::wysim::song
