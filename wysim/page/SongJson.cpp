// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/page/SongJson.h"

#include "wysim/page/NoteKind.h"
#include "wysim/picture/NoteText.h"
#include "wysim/session/CheckReport.h"
#include "wysim/song/Pitch.h"
#include "wysim/song/Song.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <string_view>
#include <utility>

namespace wybeta::wysim::page {

namespace {

using nlohmann::ordered_json;

// A song is told after each edit. Its JSON is written straight to the text, since a tree of a few
// thousand notes takes longer to build than all the rest of an edit.
class JsonText {
public:
    // Opens an object or a list, as a member or as an element.
    void open(std::string_view before) {
        separate();
        text_ += before;
        isFirst_ = true;
    }
    void close(char bracket) {
        text_ += bracket;
        isFirst_ = false;
    }

    void member(std::string_view name, std::string_view value) {
        startMember(name);
        addQuoted(value);
    }
    void member(std::string_view name, double value) {
        startMember(name);
        addNumber(value);
    }
    void flag(std::string_view name, bool value) {
        startMember(name);
        text_ += value ? "true" : "false";
    }

    std::string take() { return std::move(text_); }

private:
    void separate() {
        if (!isFirst_) {
            text_ += ',';
        }
        isFirst_ = false;
    }
    void startMember(std::string_view name) {
        separate();
        text_ += '"';
        text_ += name;
        text_ += "\":";
    }
    // The texts of a song hold no control characters.
    void addQuoted(std::string_view value) {
        text_ += '"';
        for (const char character : value) {
            if (character == '"' || character == '\\') {
                text_ += '\\';
            }
            text_ += character;
        }
        text_ += '"';
    }
    void addNumber(double value) {
        char digits[24];
        constexpr double kMost = 1e9;
        if (value != std::floor(value) || std::abs(value) > kMost) {
            text_ += nlohmann::json(value).dump();
            return;
        }
        const auto end =
            std::to_chars(std::begin(digits), std::end(digits), static_cast<std::int64_t>(value));
        text_.append(digits, end.ptr);
    }

    std::string text_;
    bool isFirst_ = true;
};

void addNote(JsonText& json, const song::SongNote& note, const std::string& typed) {
    const picture::NoteText text(note.lyric);
    json.open("{");
    json.member("start", note.start);
    json.member("length", note.length);
    json.member("pitch", note.pitch);
    json.member("pitchName", song::formatPitch(note.pitch));
    json.member("lyric", note.lyric);
    json.member("word", text.lyric);
    json.member("phonemes", text.syllable);
    json.member("kind", nameOf(kindOf(note, text)));
    json.member("typed", typed);
    json.close('}');
}

void addTracks(JsonText& json, const session::SongInEditor& song) {
    json.open("\"tracks\":[");
    for (std::size_t track = 0; track < song.countTracks(); ++track) {
        json.open("{");
        json.member("name", song.trackName(track));
        json.open("\"notes\":[");
        for (std::size_t index = 0; index < song.countNotes(track); ++index) {
            addNote(json, song.songNote(track, index), song.typedLyric(track, index));
        }
        json.close(']');
        json.close('}');
    }
    json.close(']');
}

std::string withHyphens(std::string name) {
    std::replace(name.begin(), name.end(), ' ', '-');
    return name;
}

} // namespace

std::string songMembers(const session::SongEditing& editing) {
    const auto& song = editing.inEditor();
    JsonText json;
    json.member("title", song.frame().title);
    json.open("\"time\":{");
    json.member("beats", song.frame().time.beats);
    json.member("beatType", song.frame().time.beatType);
    json.close('}');
    json.member("pickup", song.frame().pickup);
    json.flag("canUndo", editing.canUndo());
    json.flag("canRedo", editing.canRedo());
    addTracks(json, song);
    return json.take();
}

std::string checkJson(const session::CheckedLyric& checked, const session::Syllables& syllables,
                      std::size_t lost) {
    auto findings = ordered_json::array();
    for (const auto& finding : checked.findings) {
        findings.push_back({{"reason", session::nameOf(finding.reason)},
                            {"sung", isSung(finding.reason)},
                            {"word", finding.word},
                            {"column", finding.column},
                            {"sentence", session::sentenceOn(finding)},
                            {"mends", finding.mends}});
    }
    const ordered_json check = {
        {"lyric", checked.text}, {"syllables", syllables}, {"lost", lost}, {"findings", findings}};
    return check.dump();
}

std::string fitJson(const std::vector<session::FittedSongWord>& words) {
    using session::Outcome;
    auto left = ordered_json::array();
    for (const auto& [word, fitted] : words) {
        if (!isFitted(fitted.outcome)) {
            left.push_back({{"track", word.track},
                            {"note", word.note},
                            {"word", word.text},
                            {"outcome", withHyphens(nameOf(fitted.outcome))},
                            {"reason", fitted.reason}});
        }
    }
    auto counts = countOutcomes(words);
    const ordered_json fit = {{"words", words.size()},
                              {"asTheyAre", counts[Outcome::AsItIs]},
                              {"hyphens", counts[Outcome::Hyphens]},
                              {"otherEntries", counts[Outcome::OtherEntry]},
                              {"brackets", counts[Outcome::Brackets]},
                              {"notFitted", countNotFitted(words)},
                              {"left", left}};
    return fit.dump();
}

} // namespace wybeta::wysim::page
