// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/song/MusicXmlReader.h"

#include "wysim/song/BadInput.h"
#include "wysim/song/MusicXmlWriter.h"
#include "wysim/song/Numbers.h"
#include "wysim/song/ScoreLyric.h"
#include "wysim/song/ScoreVoice.h"
#include "wysim/song/XmlDocument.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <map>
#include <optional>
#include <set>
#include <string_view>
#include <utility>

namespace wybeta::wysim::song {

namespace {

using pugi::xml_node;

// The whole text of an element, which comments and CDATA sections may cut into pieces.
std::string textOf(xml_node element) {
    std::string text;
    for (const auto piece : element.children()) {
        if (piece.type() == pugi::node_pcdata || piece.type() == pugi::node_cdata) {
            text += piece.value();
        }
    }
    return text;
}

// "2" as well as "part1verse2"; a lyric without a number belongs to the first verse.
int verseOf(xml_node lyric) {
    const std::string_view number = lyric.attribute("number").value();
    const auto lastOther = number.find_last_not_of("0123456789");
    const auto digits = number.substr(lastOther == std::string_view::npos ? 0 : lastOther + 1);
    return parseInteger(digits).value_or(1);
}

// Whether wysim wrote the score, whose lyrics are then what a person typed, marks and all.
bool isOwnScore(xml_node score) {
    const auto encoding = score.child("identification").child("encoding");
    return encoding.child_value("software") == std::string_view(kSoftware);
}

// The words of a lyric; where two share a note, an elision stands between them.
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

// Goes through a part from measure to measure and sorts its notes by voice.
class PartReader {
public:
    PartReader(const XmlDocument& document, int verse)
        : document_(document), verse_(verse), isOwn_(isOwnScore(document.root())) {}

    void readMeasure(xml_node measure) {
        start_ = end_;
        now_ = start_;
        for (const auto child : measure.children()) {
            readMeasureChild(child);
            end_ = std::max(end_, now_);
        }
        firstMeasure_ = firstMeasure_.value_or(end_);
    }

    std::map<std::string, ScoreVoice>& voices() { return voices_; }
    const std::set<int>& verses() const { return verses_; }
    bool hasNotes() const { return hasNotes_; }
    std::optional<TimeSignature> time() const { return time_; }
    double firstMeasure() const { return firstMeasure_.value_or(0); }

private:
    void readMeasureChild(xml_node child) {
        const std::string_view name = child.name();
        if (name == "note") {
            readNote(child);
        } else if (name == "backup") {
            move(child, -quarters(child));
        } else if (name == "forward") {
            move(child, quarters(child));
        } else if (name == "attributes") {
            readAttributes(child);
        }
    }

    void readAttributes(xml_node attributes) {
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

    void readNote(xml_node element) {
        if (!element.child("grace").empty()) {
            return;
        }
        const double length = quarters(element);
        if (!element.child("chord")) {
            noteStart_ = now_;
            move(element, length);
        }
        if (!element.child("rest") && !element.child("cue")) {
            addNote(element, length);
        }
    }

    void addNote(xml_node element, double length) {
        ScoreNote written;
        written.note.start = noteStart_;
        written.note.length = length;
        written.note.pitch = readPitch(element);
        checkPlaced(written.note, element);
        for (const auto tie : element.children("tie")) {
            const std::string_view type = tie.attribute("type").value();
            written.beginsTie = written.beginsTie || type == "start";
            written.endsTie = written.endsTie || type == "stop";
        }
        for (const auto lyric : element.children("lyric")) {
            auto syllable = readLyric(lyric, isOwn_);
            if (!syllable.text.empty()) {
                verses_.insert(verseOf(lyric));
            }
            if (verseOf(lyric) == verse_ && written.syllable.text.empty()) {
                written.syllable = std::move(syllable);
            }
        }
        hasNotes_ = true;
        voices_[voiceOf(element)].add(std::move(written));
    }

    // Voices are optional where each staff has one.
    static std::string voiceOf(xml_node note) {
        const auto voice = note.child("voice");
        return voice ? textOf(voice) : "staff " + textOf(note.child("staff"));
    }

    int readPitch(xml_node element) const {
        const auto pitch = element.child("pitch");
        const auto unpitched = element.child("unpitched");
        const std::string step =
            textOf(pitch ? pitch.child("step") : unpitched.child("display-step"));
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

    void checkPlaced(const SongNote& note, xml_node element) const {
        try {
            checkNote(note);
        } catch (const BadInput& error) {
            throw BadInput(error.what() + document_.place(element));
        }
    }

    void move(xml_node element, double by) {
        constexpr double kNearly = 1e-6;
        if (now_ + by < start_ - kNearly || now_ + by > kLongestSong) {
            throw BadInput::expectedFound("a time within the measure and the song",
                                          "one beyond" + document_.place(element));
        }
        now_ = std::max(now_ + by, start_);
    }

    double quarters(xml_node element) const {
        const double duration = number(element.child("duration"), element);
        if (duration < 0) {
            throw BadInput::expectedFound("a duration of 0 or more",
                                          formatNumber(duration) + document_.place(element));
        }
        return duration / divisions_;
    }

    double number(xml_node element) const { return number(element, element); }
    double number(xml_node element, xml_node near) const {
        const auto value = parseNumber(textOf(element));
        if (!value) {
            throw BadInput::expectedFound(element ? std::string("a number as ") + element.name()
                                                  : std::string("a duration"),
                                          "'" + textOf(element) + "'" + document_.place(near));
        }
        return *value;
    }

    const XmlDocument& document_;
    int verse_;
    bool isOwn_;
    double divisions_ = 1;
    double start_ = 0; // of the measure
    double now_ = 0;
    double end_ = 0; // the furthest that the part has come
    double noteStart_ = 0;
    std::map<std::string, ScoreVoice> voices_;
    std::set<int> verses_;
    bool hasNotes_ = false;
    std::optional<TimeSignature> time_;
    std::optional<double> firstMeasure_;
};

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
        hasNotes_ = hasNotes_ || reader.hasNotes();
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
