// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/song/PartReader.h"

#include "wysim/song/BadInput.h"
#include "wysim/song/NumberText.h"
#include "wysim/song/Pitch.h"
#include "wysim/song/ScoreElements.h"
#include "wysim/song/Text.h"
#include "wysim/song/Time.h"

#include <algorithm>
#include <cmath>
#include <string_view>
#include <utility>
#include <vector>

namespace wybeta::wysim::song {

using pugi::xml_node;

namespace {

// Voices are optional where each staff has one.
std::string voiceOf(xml_node note) {
    const auto voice = note.child("voice");
    return onOneLine(voice ? textOf(voice) : "staff " + textOf(note.child("staff")));
}

bool hasType(xml_node element, std::string_view type) {
    return element.attribute("type").value() == type;
}

// Of a slur or a beam; the first is the one without a number.
std::string numberOf(xml_node element) {
    return element.attribute("number").as_string("1");
}

// Only the first beam joins notes: each further one is drawn beside it.
bool isBeamed(xml_node note) {
    for (const auto beam : note.children("beam")) {
        if (numberOf(beam) == "1") {
            const auto state = onOneLine(textOf(beam));
            return state == "continue" || state == "end";
        }
    }
    return false;
}

bool endsPhrase(xml_node note) {
    for (const auto notations : note.children("notations")) {
        for (const auto articulations : notations.children("articulations")) {
            if (!articulations.child("breath-mark").empty() ||
                !articulations.child("caesura").empty()) {
                return true;
            }
        }
    }
    return false;
}

// A slur from a note that is not sung, such as a grace note, leads to no further note, and one to
// such a note ends before it.
void readSlurs(xml_node element, bool isSung, ScoreVoice& voice) {
    std::vector<std::string> begun;
    for (const auto notations : element.children("notations")) {
        for (const auto slur : notations.children("slur")) {
            if (hasType(slur, "stop")) {
                voice.endSlur(numberOf(slur));
            } else if (hasType(slur, "start")) {
                begun.push_back(numberOf(slur));
            }
        }
    }
    for (const auto& number : begun) {
        isSung ? voice.beginSlur(number) : voice.dropSlur(number);
    }
}

void readTies(xml_node element, ScoreNote& note) {
    for (const auto tie : element.children("tie")) {
        note.beginsTie = note.beginsTie || hasType(tie, "start");
        note.endsTie = note.endsTie || hasType(tie, "stop");
    }
}

} // namespace

PartReader::PartReader(const XmlDocument& document, int verse, ScoreWarnings& warnings)
    : verse_(verse), warnings_(warnings), isOwn_(isOwnScore(document.root())) {}

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
        goForward(child, distanceOf(child));
    } else if (name == "attributes") {
        readAttributes(child);
    } else if (leadsBack(child)) {
        warnings_.add("a repeat is sung once", child);
    }
    if (name == "barline") {
        readBarline(child);
    }
}

// A double bar ends the phrases of all voices, of which the last need not fill the measure.
void PartReader::readBarline(xml_node barline) {
    const std::string style = textOf(barline.child("bar-style"));
    if (style.find('-') == std::string::npos) {
        return;
    }
    const std::string_view location = barline.attribute("location").as_string("right");
    const double right = location == "right" ? std::max(end_, now_) : now_;
    for (auto& voice : voices_) {
        voice.second.endPhrase(location == "left" ? start_ : right);
    }
}

void PartReader::readAttributes(xml_node attributes) {
    for (const auto child : attributes.children()) {
        const std::string_view name = child.name();
        if (name == "divisions") {
            readDivisions(child);
        } else if (name == "time") {
            readTime(child);
        } else if (name == "transpose") {
            readTransposition(child);
        }
    }
}

void PartReader::readDivisions(xml_node divisions) {
    divisions_ = number(divisions);
    if (divisions_ <= 0) {
        throw BadInput::expectedFound("divisions above 0",
                                      textOf(divisions) + warnings_.placeOf(divisions));
    }
}

void PartReader::readTime(xml_node element) {
    const auto time = timeSignatureOf(element);
    if (!time) {
        warnings_.add("a time signature that is not one such as 4/4 is passed over", element);
    } else if (!time_) {
        time_ = time;
    } else if (time->beats != time_->beats || time->beatType != time_->beatType) {
        warnings_.add("a change of the time signature is passed over", element);
    }
}

// What is written for some instruments, and for some tenors, is not what sounds.
void PartReader::readTransposition(xml_node transpose) {
    const auto semitones = transpose.child("chromatic");
    const auto octaves = transpose.child("octave-change");
    const double sum = (semitones ? number(semitones) : 0) + 12 * (octaves ? number(octaves) : 0);
    if (std::abs(sum) > kHighestPitch) {
        throw BadInput::expectedFound("a transposition of at most 127 semitones",
                                      formatNumber(sum) + warnings_.placeOf(transpose));
    }
    transposition_ = static_cast<int>(std::lround(sum));
}

void PartReader::readNote(xml_node element) {
    const bool isGrace = !element.child("grace").empty();
    const double length = isGrace ? 0 : lengthOf(element);
    if (!isGrace && !element.child("chord")) {
        noteStart_ = now_;
        goForward(element, length);
    }
    const bool isSung = !isSilent(element) && length != 0;
    if (isSung) {
        addNote(element, length);
    } else if (isSilent(element)) {
        passOver(element);
    } else {
        keepWords(element, isGrace ? "a grace note" : "a note without length");
    }
    const auto voice = voices_.find(voiceOf(element));
    if (voice != voices_.end()) {
        readSlurs(element, isSung, voice->second);
    }
}

double PartReader::lengthOf(xml_node note) {
    if (const auto length = quarters(note)) {
        return isSameTime(*length, 0) ? 0 : *length;
    }
    warnings_.add(note.child("type") ? "a note without a duration is as long as it is drawn"
                                     : "a note without a duration is a quarter note long",
                  note);
    return drawnLength(note);
}

void PartReader::passOver(xml_node silent) {
    if (!silent.child("rest")) {
        warnings_.add("a cue note is not sung", silent);
    } else if (!readWords(silent).text.empty()) {
        warnings_.add("the words of a rest are not sung", silent);
    }
}

void PartReader::keepWords(xml_node element, const std::string& kind) {
    const auto words = readWords(element);
    if (words.text.empty()) {
        warnings_.add(kind + " is not sung", element);
    } else {
        warnings_.add(kind + " is not sung, and its words go to the note after it", element);
        voices_[voiceOf(element)].addWords(words);
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
    written.note.marks.isBeamed = isBeamed(element);
    written.note.marks.endsPhrase = endsPhrase(element);
    written.syllable = readWords(element);
    voices_[voiceOf(element)].add(std::move(written));
}

ScoreSyllable PartReader::readWords(xml_node element) {
    ScoreSyllable words;
    for (const auto lyric : element.children("lyric")) {
        if (verseOf(lyric) != verse_) {
            continue;
        }
        if (words.text.empty()) {
            words = readLyric(lyric, isOwn_);
        } else if (!readLyric(lyric, isOwn_).text.empty()) {
            warnings_.add("a note has two lyrics in one verse, and the first is sung", lyric);
        }
    }
    return words;
}

int PartReader::readPitch(xml_node element) {
    const auto pitch = element.child("pitch");
    const auto unpitched = element.child("unpitched");
    if (!pitch && !unpitched.child("display-step")) {
        warnings_.add("a note without a pitch becomes " + formatPitch(SongNote().pitch), element);
        return SongNote().pitch;
    }
    const std::string step = textOf(pitch ? pitch.child("step") : unpitched.child("display-step"));
    const std::string octave =
        textOf(pitch ? pitch.child("octave") : unpitched.child("display-octave"));
    const auto natural = parsePitch(step + octave);
    const auto alter = pitch.child("alter") ? number(pitch.child("alter")) : 0;
    if (step.size() != 1 || !natural || std::abs(alter) > kHighestPitch) {
        throw BadInput::expectedFound("a note with a pitch", "none" + warnings_.placeOf(element));
    }
    return *natural + static_cast<int>(std::lround(alter)) + (pitch ? transposition_ : 0);
}

void PartReader::checkPlaced(const SongNote& note, xml_node element) const {
    try {
        checkNote(note);
    } catch (const BadInput& error) {
        throw BadInput(error.what() + warnings_.placeOf(element));
    }
}

void PartReader::goBack(xml_node backup) {
    const double time = now_ - distanceOf(backup);
    if (isBefore(time, start_)) {
        warnings_.add("a backup beyond the start of its measure goes to that start", backup);
    }
    now_ = std::max(time, start_);
}

double PartReader::distanceOf(xml_node element) {
    const auto distance = quarters(element);
    if (!distance) {
        warnings_.add(std::string("a ") + element.name() + " without a duration is passed over",
                      element);
    }
    return distance.value_or(0);
}

void PartReader::goForward(xml_node element, double by) {
    if (now_ + by > kLongestSong) {
        throw BadInput::expectedFound("a time up to 1000000 quarter notes",
                                      "one beyond" + warnings_.placeOf(element));
    }
    now_ += by;
}

std::optional<double> PartReader::quarters(xml_node element) const {
    if (onOneLine(textOf(element.child("duration"))).empty()) {
        return std::nullopt;
    }
    const double duration = number(element.child("duration"), element);
    if (duration < 0) {
        throw BadInput::expectedFound("a duration of 0 or more",
                                      formatNumber(duration) + warnings_.placeOf(element));
    }
    return duration / divisions_;
}

double PartReader::number(xml_node element, xml_node near) const {
    const auto value = parseNumber(textOf(element));
    if (!value) {
        throw BadInput::expectedFound(std::string("a number as ") + element.name(),
                                      inQuotes(textOf(element)) + warnings_.placeOf(near));
    }
    return *value;
}

} // namespace wybeta::wysim::song
