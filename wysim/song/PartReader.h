// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wysim/song/ScoreLyric.h"
#include "wysim/song/ScoreVoice.h"
#include "wysim/song/ScoreWarnings.h"
#include "wysim/song/Song.h"
#include "wysim/song/XmlDocument.h"

#include <pugixml.hpp>

#include <map>
#include <optional>
#include <string>

namespace wybeta::wysim::song {

// Goes through a part of a score from measure to measure and sorts its notes by voice.
class PartReader {
public:
    // The warnings have to outlive this.
    PartReader(const XmlDocument& document, int verse, ScoreWarnings& warnings);

    // Throws BadInput, saying where.
    void readMeasure(pugi::xml_node measure);

    std::map<std::string, ScoreVoice>& voices() { return voices_; }
    std::optional<TimeSignature> time() const { return time_; }
    double firstMeasure() const { return firstMeasure_.value_or(0); }

private:
    void readMeasureChild(pugi::xml_node child);
    void readAttributes(pugi::xml_node attributes);
    void readDivisions(pugi::xml_node divisions);
    void readTime(pugi::xml_node element);
    void readTransposition(pugi::xml_node transpose);
    void readBarline(pugi::xml_node barline);
    void readNote(pugi::xml_node element);
    void addNote(pugi::xml_node element, double length);
    // The words of the verse.
    ScoreSyllable readWords(pugi::xml_node element);
    void passOver(pugi::xml_node silent);
    void keepWords(pugi::xml_node element, const std::string& kind);
    double lengthOf(pugi::xml_node note);
    int readPitch(pugi::xml_node element);
    void checkPlaced(const SongNote& note, pugi::xml_node element) const;
    void goBack(pugi::xml_node backup);
    double distanceOf(pugi::xml_node element); // of a backup or a forward
    void goForward(pugi::xml_node element, double by);
    // The duration of an element; none when it has none.
    std::optional<double> quarters(pugi::xml_node element) const;
    double number(pugi::xml_node element) const { return number(element, element); }
    double number(pugi::xml_node element, pugi::xml_node near) const;

    int verse_;
    ScoreWarnings& warnings_;
    bool isOwn_;
    double divisions_ = 1;
    int transposition_ = 0; // in semitones
    double start_ = 0;      // of the measure
    double now_ = 0;
    double end_ = 0; // the furthest that the part has come
    double noteStart_ = 0;
    std::map<std::string, ScoreVoice> voices_;
    std::optional<TimeSignature> time_;
    std::optional<double> firstMeasure_;
};

} // namespace wybeta::wysim::song
