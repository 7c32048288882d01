// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/page/SongJson.h"

#include "wysim/picture/NoteText.h"
#include "wysim/session/Laying.h"
#include "wysim/song/Pitch.h"
#include "wysim/song/Song.h"
#include "wysim/words/CheckReport.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <string_view>

namespace wybeta::wysim::page {

namespace {

using nlohmann::ordered_json;

// A song is told after each edit. Its JSON is written straight to the text, which for 5,000 notes
// takes 2 milliseconds; by a tree it takes 15, four times as long as all the rest of an edit.

// Adds a member of an object. The name is in JSON, with the commas and brackets before it; the text
// is one of a song and holds no control characters.
void add(std::string& json, std::string_view name, std::string_view text) {
    json.append(name) += '"';
    if (text.find_first_of("\"\\") == std::string_view::npos) {
        json += text;
    } else {
        for (const char character : text) {
            json.append(character == '"' || character == '\\' ? 1 : 0, '\\') += character;
        }
    }
    json += '"';
}

void add(std::string& json, std::string_view name, double value) {
    constexpr double kMost = 1e9;
    json += name;
    if (value != std::floor(value) || std::abs(value) > kMost) {
        json += nlohmann::json(value).dump();
        return;
    }
    char digits[12];
    const auto end =
        std::to_chars(std::begin(digits), std::end(digits), static_cast<std::int32_t>(value));
    json.append(std::begin(digits), end.ptr);
}

// What a note carries, as a page tells it apart: a lyric that is sung begins here, a further
// syllable of the word before, a lyric without phonemes, or nothing.
std::string_view kindOf(const song::SongNote& note, const picture::NoteText& text) {
    if (note.lyric.empty()) {
        return "empty";
    }
    if (text.syllable.empty()) {
        return "unsung";
    }
    return text.lyric.empty() && !note.typed ? "further" : "word";
}

// In WebAssembly, a call with an object to destroy in sight is slow, since exceptions go through
// JavaScript there. The functions that write most of the text have none, and stay functions of
// their own: 10 milliseconds for 5,000 notes and not 17.
[[gnu::noinline]] void addPlace(std::string& json, const song::SongNote& note,
                                const std::string& pitchName) {
    add(json, R"("start":)", note.start);
    add(json, R"(,"length":)", note.length);
    add(json, R"(,"pitch":)", note.pitch);
    add(json, R"(,"pitchName":)", pitchName);
}

[[gnu::noinline]] void addTexts(std::string& json, const song::SongNote& note,
                                const picture::NoteText& text, const std::string& typed) {
    add(json, R"(,"lyric":)", note.lyric);
    add(json, R"(,"word":)", text.lyric);
    add(json, R"(,"phonemes":)", text.syllable);
    add(json, R"(,"kind":)", kindOf(note, text));
    add(json, R"(,"typed":)", typed);
}

void addNote(std::string& json, const song::SongNote& note, const std::string& typed) {
    json += '{';
    addPlace(json, note, song::formatPitch(note.pitch));
    addTexts(json, note, picture::NoteText(note.lyric), typed);
    json += '}';
}

void addTrack(std::string& json, const session::SongInEditor& song, std::size_t track) {
    add(json, R"({"name":)", song.trackName(track));
    json += R"(,"notes":[)";
    for (std::size_t index = 0; index < song.countNotes(track); ++index) {
        json.append(index == 0 ? 0 : 1, ',');
        addNote(json, song.songNote(track, index), song.typedLyric(track, index));
    }
    json += "]}";
}

std::string withHyphens(std::string name) {
    std::replace(name.begin(), name.end(), ' ', '-');
    return name;
}

} // namespace

std::string songMembers(const session::SongEditing& editing) {
    const auto& song = editing.inEditor();
    const auto& frame = song.frame();
    std::string json;
    add(json, R"("title":)", frame.title);
    add(json, R"(,"time":{"beats":)", frame.time.beats);
    add(json, R"(,"beatType":)", frame.time.beatType);
    add(json, R"(},"pickup":)", frame.pickup);
    json += editing.canUndo() ? R"(,"canUndo":true)" : R"(,"canUndo":false)";
    json += editing.canRedo() ? R"(,"canRedo":true)" : R"(,"canRedo":false)";
    json += R"(,"tracks":[)";
    for (std::size_t track = 0; track < song.countTracks(); ++track) {
        json.append(track == 0 ? 0 : 1, ',');
        addTrack(json, song, track);
    }
    return json + "]";
}

std::string checkJson(const words::CheckedLyric& checked, const session::Syllables& syllables,
                      std::size_t lost) {
    auto findings = ordered_json::array();
    for (const auto& finding : checked.findings) {
        findings.push_back({{"reason", words::nameOf(finding.reason)},
                            {"sung", isSung(finding.reason)},
                            {"word", finding.word},
                            {"column", finding.column},
                            {"sentence", words::sentenceOn(finding)},
                            {"suggestions", words::suggestionsJson(finding)}});
    }
    const ordered_json check = {
        {"lyric", checked.text}, {"syllables", syllables}, {"lost", lost}, {"findings", findings}};
    return check.dump();
}

std::string linesJson(const std::vector<CountedLine>& lines) {
    auto list = ordered_json::array();
    for (const auto& [line, unsung] : lines) {
        auto words = ordered_json::array();
        for (const auto& [word, check] : unsung) {
            words.push_back({{"word", word.text}, {"column", word.column}});
            if (!check.findings.empty()) {
                const auto& finding = check.findings.front();
                words.back()["sentence"] = words::sentenceOn(finding);
                words.back()["reason"] = words::nameOf(finding.reason);
                words.back()["suggestions"] = words::suggestionsJson(finding);
            }
        }
        list.push_back({{"line", line.number},
                        {"syllables", line.syllables},
                        {"onNotes", line.onNotes},
                        {"notes", line.notes > 0 ? ordered_json(line.notes) : ordered_json()},
                        {"unsung", words}});
    }
    return ordered_json({{"lines", list}}).dump();
}

std::string laidJson(const laying::LaidText& laid, std::size_t replaced) {
    auto rows = ordered_json::array();
    for (const auto& line : laid.lines) {
        auto left = ordered_json::array();
        for (const auto& word : session::wordsLeft(laid, line)) {
            if (word.isSung) {
                left.push_back(session::textLeft(word));
            }
        }
        const auto note = session::firstNoteOf(laid, line);
        rows.push_back({{"line", line.number},
                        {"note", note > 0 ? ordered_json(note) : ordered_json()},
                        {"syllables", line.syllables},
                        {"onNotes", line.onNotes},
                        {"notes", line.notes},
                        {"heldBy", session::waysOfHolding(line)},
                        {"left", left}});
    }
    const auto counts = session::countLaid(laid);
    const ordered_json report = {
        {"lines", laid.lines.size()}, {"asSung", counts.asSung},       {"held", counts.held},
        {"tooLong", counts.tooLong},  {"syllables", counts.syllables}, {"onNotes", counts.onNotes},
        {"notSung", counts.notSung},  {"replaced", replaced},          {"rows", rows}};
    return report.dump();
}

std::string fitJson(const std::vector<session::FittedSongWord>& words) {
    using session::Outcome;
    auto left = ordered_json::array();
    for (const auto& [word, fitted, carried] : words) {
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
                              {"guesses", counts[Outcome::Guess]},
                              {"notFitted", countNotFitted(words)},
                              {"left", left}};
    return fit.dump();
}

} // namespace wybeta::wysim::page
