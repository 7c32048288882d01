// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/song/MusicXmlWriter.h"

#include "wysim/song/Pitch.h"
#include "wysim/song/ScoreElements.h"
#include "wysim/song/ScoreLyric.h"

#include <pugixml.hpp>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <sstream>
#include <string_view>
#include <vector>

namespace wybeta::wysim::song {

namespace {

using pugi::xml_node;
using Ticks = std::int64_t;

void addText(xml_node parent, const char* name, const std::string& text) {
    parent.append_child(name).text().set(text.c_str());
}

// The division of the quarter note in which every note of the song begins and ends on a tick.
Ticks divisionsFor(const Song& song) {
    constexpr std::array<Ticks, 12> kUsual = {1, 2, 4, 8, 3, 6, 12, 24, 48, 96, 480, 10080};
    const auto fits = [&song](Ticks divisions) {
        const auto isWhole = [divisions](double time) {
            const double ticks = time * static_cast<double>(divisions);
            return std::abs(ticks - std::round(ticks)) < 1e-3;
        };
        for (const auto& track : song.tracks) {
            for (const auto& note : track.notes) {
                if (!isWhole(note.start) || !isWhole(note.length)) {
                    return false;
                }
            }
        }
        return isWhole(song.pickup) && isWhole(song.time.measureLength());
    };
    const auto* const found = std::find_if(kUsual.begin(), kUsual.end(), fits);
    return found == kUsual.end() ? kUsual.back() : *found;
}

// How a note of that length is drawn, when one sign says it.
void addNoteType(xml_node note, double quarters) {
    for (const auto& value : kNoteValues) {
        if (quarters == value.quarters || quarters == 1.5 * value.quarters) {
            addText(note, "type", value.name);
            if (quarters != value.quarters) {
                note.append_child("dot");
            }
        }
    }
}

void addPitch(xml_node note, int pitch) {
    const auto element = note.append_child("pitch");
    const auto name = formatPitch(pitch);
    const bool isSharp = name[1] == '#';
    addText(element, "step", name.substr(0, 1));
    if (isSharp) {
        addText(element, "alter", "1");
    }
    addText(element, "octave", name.substr(isSharp ? 2 : 1));
}

// The syllabic of each note's lyric: a division is one word over several notes.
std::vector<const char*> syllabicsOf(const SongTrack& track) {
    std::vector<const char*> syllabics(track.notes.size(), "single");
    std::size_t previous = 0;
    for (std::size_t i = 0; i < track.notes.size(); ++i) {
        const auto& note = track.notes[i];
        if (note.lyric.empty()) {
            continue;
        }
        const bool continues =
            !note.typed && continuesDivision(track.notes[previous].lyric, note.lyric) && i != 0;
        if (continues) {
            const bool wasFirst = syllabics[previous] == std::string_view("single");
            syllabics[previous] = wasFirst ? "begin" : "middle";
            syllabics[i] = "end";
        }
        previous = i;
    }
    return syllabics;
}

// Where each run of slurred notes has the two ends of its slur: "start", "stop", or null between.
std::vector<const char*> slurEndsOf(const SongTrack& track) {
    std::vector<const char*> ends(track.notes.size(), nullptr);
    for (std::size_t i = 1; i < track.notes.size(); ++i) {
        if (!track.notes[i].marks.isSlurred) {
            continue;
        }
        const bool goesOn = i > 1 && track.notes[i - 1].marks.isSlurred;
        ends[i - 1] = goesOn ? nullptr : "start";
        ends[i] = "stop";
    }
    return ends;
}

class PartWriter {
public:
    PartWriter(xml_node part, const Song& song, Ticks divisions)
        : part_(part), song_(song), divisions_(divisions) {}

    void write(const SongTrack& track) {
        const auto syllabics = syllabicsOf(track);
        const auto slurEnds = slurEndsOf(track);
        for (std::size_t i = 0; i < track.notes.size(); ++i) {
            writeNote(track.notes[i], syllabics[i], slurEnds[i]);
        }
        writeBeams();
        if (!measure_) {
            beginMeasure();
        }
        writeRest(ticks(endOf(song_)));
        writeRest(measureEnd_);
    }

private:
    Ticks ticks(double quarters) const {
        return std::llround(quarters * static_cast<double>(divisions_));
    }

    void beginMeasure() {
        const double start = static_cast<double>(now_) / static_cast<double>(divisions_);
        const bool isFirst = !measure_;
        measure_ = part_.append_child("measure");
        measureEnd_ = std::max(ticks(measureAfter(song_, start)), now_ + 1);
        const bool isPickup = isFirst && song_.pickup > 0;
        number_ += isPickup ? 0 : 1;
        measure_.append_attribute("number").set_value(number_);
        if (isPickup) {
            measure_.append_attribute("implicit").set_value("yes");
        }
        if (isFirst) {
            writeAttributes();
        }
    }

    void writeAttributes() {
        auto attributes = measure_.append_child("attributes");
        addText(attributes, "divisions", std::to_string(divisions_));
        auto time = attributes.append_child("time");
        addText(time, "beats", std::to_string(song_.time.beats));
        addText(time, "beat-type", std::to_string(song_.time.beatType));
    }

    // Writes pieces up to that time, one for each measure that it reaches into.
    template <class WritePiece>
    void writePieces(Ticks end, WritePiece writePiece) {
        while (now_ < end) {
            if (!measure_ || now_ >= measureEnd_) {
                beginMeasure();
            }
            const Ticks length = std::min(end, measureEnd_) - now_;
            writePiece(length);
            now_ += length;
        }
    }

    void writeRest(Ticks end) {
        writePieces(end, [this](Ticks length) {
            auto rest = measure_.append_child("note");
            rest.append_child("rest");
            finishNote(rest, length);
        });
    }

    void writeNote(const SongNote& note, const char* syllabic, const char* slurEnd) {
        const Ticks start = std::max(ticks(note.start), now_);
        const Ticks end = std::max(ticks(note.start + note.length), start + 1);
        writeRest(start);
        bool isFirst = true;
        writePieces(end, [&](Ticks length) {
            const bool isLast = now_ + length >= end;
            auto element = measure_.append_child("note");
            addPitch(element, note.pitch);
            finishNote(element, length, !isFirst, !isLast);
            addNotations(element, isFirst ? slurEnd : nullptr, isLast && note.marks.endsPhrase);
            if (isFirst && !note.lyric.empty()) {
                addLyric(element, note.lyric, syllabic);
            }
            keepPiece(element, length, isFirst && note.marks.isBeamed);
            isFirst = false;
        });
    }

    // Only notes shorter than a quarter have beams.
    void keepPiece(xml_node element, Ticks length, bool isBeamed) {
        const bool isShort = length < divisions_;
        const bool isJoined = isBeamed && isShort && !pieces_.empty() && pieces_.back().isShort;
        pieces_.push_back({element, isShort, isJoined});
    }

    void writeBeams() {
        for (std::size_t i = 0; i < pieces_.size(); ++i) {
            const auto& piece = pieces_[i];
            const bool leadsOn = i + 1 < pieces_.size() && pieces_[i + 1].isJoined;
            if (piece.isJoined) {
                addBeam(piece.element, leadsOn ? "continue" : "end");
            } else if (leadsOn) {
                addBeam(piece.element, "begin");
            }
        }
    }

    static void addBeam(xml_node note, const char* state) {
        const auto notations = note.child("notations");
        auto beam = note.insert_child_before("beam", notations ? notations : note.child("lyric"));
        if (!beam) {
            beam = note.append_child("beam");
        }
        beam.append_attribute("number").set_value(1);
        beam.text().set(state);
    }

    void finishNote(xml_node note, Ticks length, bool endsTie = false,
                    bool beginsTie = false) const {
        addText(note, "duration", std::to_string(length));
        if (endsTie) {
            note.append_child("tie").append_attribute("type").set_value("stop");
        }
        if (beginsTie) {
            note.append_child("tie").append_attribute("type").set_value("start");
        }
        addText(note, "voice", "1");
        addNoteType(note, static_cast<double>(length) / static_cast<double>(divisions_));
    }

    static void addNotations(xml_node note, const char* slurEnd, bool endsPhrase) {
        if (slurEnd == nullptr && !endsPhrase) {
            return;
        }
        auto notations = note.append_child("notations");
        if (slurEnd != nullptr) {
            auto slur = notations.append_child("slur");
            slur.append_attribute("type").set_value(slurEnd);
            slur.append_attribute("number").set_value(1);
        }
        if (endsPhrase) {
            notations.append_child("articulations").append_child("breath-mark");
        }
    }

    static void addLyric(xml_node note, const std::string& text, const char* syllabic) {
        auto lyric = note.append_child("lyric");
        lyric.append_attribute("number").set_value("1");
        addText(lyric, "syllabic", syllabic);
        addText(lyric, "text", text);
    }

    // A note of the score: one of a song that reaches over bars becomes several.
    struct Piece {
        xml_node element;
        bool isShort;
        bool isJoined; // by a beam to the piece before it
    };

    xml_node part_;
    const Song& song_;
    Ticks divisions_;
    xml_node measure_;
    Ticks measureEnd_ = 0;
    Ticks now_ = 0;
    int number_ = 0;
    std::vector<Piece> pieces_;
};

} // namespace

std::string musicXmlFromSong(const Song& song) {
    pugi::xml_document document;
    auto declaration = document.append_child(pugi::node_declaration);
    declaration.append_attribute("version").set_value("1.0");
    declaration.append_attribute("encoding").set_value("UTF-8");
    auto score = document.append_child("score-partwise");
    score.append_attribute("version").set_value("3.1");
    addText(score.append_child("work"), "work-title", song.title);
    addText(score.append_child("identification").append_child("encoding"), "software", kSoftware);
    auto partList = score.append_child("part-list");
    const auto divisions = divisionsFor(song);
    for (std::size_t i = 0; i < song.tracks.size(); ++i) {
        const auto id = "P" + std::to_string(i + 1);
        auto listed = partList.append_child("score-part");
        listed.append_attribute("id").set_value(id.c_str());
        addText(listed, "part-name", song.tracks[i].name);
        auto part = score.append_child("part");
        part.append_attribute("id").set_value(id.c_str());
        PartWriter(part, song, divisions).write(song.tracks[i]);
    }
    std::ostringstream text;
    document.save(text, "  ");
    return text.str();
}

} // namespace wybeta::wysim::song
