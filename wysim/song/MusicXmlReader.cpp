// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/song/MusicXmlReader.h"

#include "wysim/song/BadInput.h"
#include "wysim/song/PartReader.h"
#include "wysim/song/ScoreElements.h"
#include "wysim/song/ScoreLyric.h"
#include "wysim/song/XmlDocument.h"

#include <pugixml.hpp>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <set>
#include <string_view>
#include <utility>

namespace wybeta::wysim::song {

namespace {

using pugi::xml_node;

class ScoreReader {
public:
    ScoreReader(const XmlDocument& document, int verse, terminal::Progress& progress)
        : document_(document), verse_(verse), progress_(progress) {}

    Song read() {
        const auto score = document_.root();
        if (std::string_view(score.name()) != "score-partwise") {
            throw BadInput::expectedFound("a MusicXML score of the kind 'score-partwise'",
                                          "'" + std::string(score.name()) + "'");
        }
        song_.title = titleOf(score);
        progress_.start("reading", countMeasures(score));
        for (const auto part : score.children("part")) {
            readPart(part);
        }
        progress_.finish();
        if (hasNotes_ && song_.tracks.empty()) {
            throw BadInput::expectedFound("words in verse " + std::to_string(verse_),
                                          foundVerses());
        }
        checkSong(song_);
        return std::move(song_);
    }

private:
    static std::string titleOf(xml_node score) {
        const auto title = textOf(score.child("work").child("work-title"));
        return onOneLine(title.empty() ? textOf(score.child("movement-title")) : title);
    }

    static std::size_t countMeasures(xml_node score) {
        std::size_t count = 0;
        for (const auto part : score.children("part")) {
            const auto measures = part.children("measure");
            count += static_cast<std::size_t>(std::distance(measures.begin(), measures.end()));
        }
        return count;
    }

    void readPart(xml_node part) {
        PartReader reader(document_, verse_);
        for (const auto measure : part.children("measure")) {
            reader.readMeasure(measure);
            progress_.step();
        }
        hasNotes_ = hasNotes_ || !reader.voices().empty();
        verses_.insert(reader.verses().begin(), reader.verses().end());
        auto& voices = reader.voices();
        const auto sung = std::count_if(voices.begin(), voices.end(),
                                        [](const auto& voice) { return voice.second.isSung(); });
        for (auto& [voice, notes] : voices) {
            if (notes.isSung()) {
                takeTime(reader);
                const auto name = partName(part) + (sung > 1 ? " (voice " + voice + ")" : "");
                song_.tracks.push_back({name, notes.takeSungNotes()});
            }
        }
    }

    // The bars of the first sung part are those of the song.
    void takeTime(const PartReader& reader) {
        if (!song_.tracks.empty() || !reader.time()) {
            return;
        }
        Song bars;
        bars.time = *reader.time();
        checkTime(bars);
        if (reader.firstMeasure() < bars.time.measureLength()) {
            bars.pickup = reader.firstMeasure();
        }
        song_.time = bars.time;
        song_.pickup = bars.pickup;
    }

    std::string partName(xml_node part) const {
        const auto listed =
            document_.root()
                .child("part-list")
                .find_child_by_attribute("score-part", "id", part.attribute("id").value());
        const std::string name = onOneLine(textOf(listed.child("part-name")));
        return name.empty() ? "Part " + std::to_string(song_.tracks.size() + 1) : name;
    }

    std::string foundVerses() const {
        std::string found;
        for (const int verse : verses_) {
            found += (found.empty() ? "words in verse " : " and ") + std::to_string(verse);
        }
        return found.empty() ? "no words at all" : found;
    }

    const XmlDocument& document_;
    int verse_;
    terminal::Progress& progress_;
    Song song_;
    bool hasNotes_ = false;
    std::set<int> verses_;
};

} // namespace

Song songFromMusicXml(const std::string& bytes, int verse, terminal::Progress& progress) {
    const XmlDocument document(bytes);
    return ScoreReader(document, verse, progress).read();
}

} // namespace wybeta::wysim::song
