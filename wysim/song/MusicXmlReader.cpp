// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/song/MusicXmlReader.h"

#include "wysim/song/BadInput.h"
#include "wysim/song/PartReader.h"
#include "wysim/song/ScoreElements.h"
#include "wysim/song/ScoreLyric.h"
#include "wysim/song/ScoreParts.h"
#include "wysim/song/ScoreVoice.h"
#include "wysim/song/ScoreWarnings.h"
#include "wysim/song/Song.h"
#include "wysim/song/Text.h"
#include "wysim/song/Time.h"
#include "wysim/song/XmlDocument.h"

#include <pugixml.hpp>

#include <algorithm>
#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace wybeta::wysim::song {

namespace {

using pugi::xml_node;

// Warns of the notes that are in no measure of a part. By XPath, this takes three times as long.
class StrayNotes : public pugi::xml_tree_walker {
public:
    explicit StrayNotes(ScoreWarnings& warnings) : warnings_(warnings) {}

    bool for_each(xml_node& node) override {
        if (node.name() == std::string_view("note") && !isInPlace(node)) {
            warnings_.add("a note outside of the measures of the parts is not sung", node);
        }
        return true;
    }

private:
    static bool isInPlace(xml_node note) {
        const std::string_view inner = note.parent().name();
        const std::string_view outer = note.parent().parent().name();
        return (inner == "measure" && outer == "part") || (inner == "part" && outer == "measure");
    }

    ScoreWarnings& warnings_;
};

class ScoreReader {
public:
    ScoreReader(const XmlDocument& document, const ScoreChoice& choice,
                terminal::Progress& progress)
        : document_(document), asked_(choice), progress_(progress), warnings_(document) {}

    OpenedSong read() {
        const auto score = document_.root();
        const std::string kind = score.name();
        if (kind != "score-partwise" && kind != "score-timewise") {
            throw BadInput::expectedFound("a MusicXML score, 'score-partwise' or 'score-timewise'",
                                          inQuotes(kind));
        }
        song_.title = titleOf(score);
        const auto parts = partsOf(score);
        chooseTracks(parts);
        warnOfStrays();
        progress_.start("reading", countMeasures(parts));
        for (const auto& part : parts) {
            if (takesAll_ || part.verses.count(verse_) != 0) {
                readPart(part);
            } else if (part.hasNotes) {
                leftOut_.push_back(inQuotes(part.name));
            }
        }
        progress_.finish();
        warnOfLeftOut();
        checkSong(song_);
        return {std::move(song_), warnings_.sentences()};
    }

private:
    static std::string titleOf(xml_node score) {
        const auto title = textOf(score.child("work").child("work-title"));
        return onOneLine(title.empty() ? textOf(score.child("movement-title")) : title);
    }

    static std::size_t countMeasures(const std::vector<ScorePart>& parts) {
        std::size_t count = 0;
        for (const auto& part : parts) {
            count += part.measures.size();
        }
        return count;
    }

    // Where there are words, what is without is an accompaniment, but for the tracks of a session.
    void chooseTracks(const std::vector<ScorePart>& parts) {
        const auto choice = chooseVerse(asked_.verse, parts);
        verse_ = choice.verse;
        takesAll_ = asked_.takesAllParts || !choice.hasWords || isOwnScore(document_.root());
        if (!choice.warning.empty()) {
            warnings_.add(choice.warning);
        }
    }

    void readPart(const ScorePart& part) {
        warnings_.enterPart(part.name);
        PartReader reader(document_, verse_, warnings_);
        for (const auto measure : part.measures) {
            reader.readMeasure(measure);
            progress_.step();
        }
        if (song_.tracks.empty()) {
            takeBars(reader);
        }
        addTracks(part.name, reader.voices());
    }

    void addTracks(const std::string& name, std::map<std::string, ScoreVoice>& voices) {
        const auto isSung = [](const auto& voice) { return voice.second.isSung(); };
        const auto sung = std::count_if(voices.begin(), voices.end(), isSung);
        const bool takesVoices = takesAll_ || sung == 0;
        const bool areMany = takesVoices ? voices.size() > 1 : sung > 1;
        for (auto& voice : voices) {
            const auto ownName = name + " (voice " + voice.first + ")";
            if (takesVoices || isSung(voice)) {
                song_.tracks.push_back(
                    {areMany ? ownName : name, voice.second.takeNotes(warnings_)});
            } else {
                leftOut_.push_back(inQuotes(ownName));
            }
        }
        if (voices.empty()) {
            song_.tracks.push_back({name, {}});
        }
    }

    void warnOfLeftOut() {
        if (!leftOut_.empty()) {
            warnings_.add(listOf(leftOut_) + (leftOut_.size() == 1 ? " has" : " have") +
                          " no words in verse " + std::to_string(verse_) + " and " +
                          (leftOut_.size() == 1 ? "is" : "are") + " left out");
        }
    }

    // The bars of the first part that is read are those of the song.
    void takeBars(const PartReader& reader) {
        song_.time = reader.time().value_or(TimeSignature());
        if (reader.time() && isBefore(reader.firstMeasure(), song_.time.measureLength())) {
            song_.pickup = reader.firstMeasure();
        }
    }

    void warnOfStrays() {
        const auto next = document_.root().next_sibling();
        if (next) {
            warnings_.add("what follows the score is not read", next);
        }
        StrayNotes strays(warnings_);
        document_.root().root().traverse(strays);
    }

    const XmlDocument& document_;
    ScoreChoice asked_;
    int verse_ = 1;
    terminal::Progress& progress_;
    Song song_;
    ScoreWarnings warnings_;
    std::vector<std::string> leftOut_; // parts and voices
    bool takesAll_ = false;            // whether voices without words become tracks as well
};

} // namespace

OpenedSong songFromMusicXml(const std::string& bytes, const ScoreChoice& choice,
                            terminal::Progress& progress) {
    const XmlDocument document(bytes);
    return ScoreReader(document, choice, progress).read();
}

OpenedSong songFromMusicXml(UnpackedXml unpacked, const ScoreChoice& choice,
                            terminal::Progress& progress) {
    const XmlDocument document(std::move(unpacked));
    return ScoreReader(document, choice, progress).read();
}

} // namespace wybeta::wysim::song
