// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/session/Session.h"

#include "wysim/picture/SongPicture.h"
#include "wysim/session/Proof.h"
#include "wysim/session/SongChanges.h"
#include "wysim/song/BadInput.h"
#include "wysim/song/FileBytes.h"
#include "wysim/song/NumberText.h"
#include "wysim/song/Pitch.h"
#include "wysim/song/SongFile.h"
#include "wysim/terminal/TextTable.h"
#include "wysim/words/CheckReport.h"
#include "wysim/words/LyricText.h"
#include "wysim/words/TextCheck.h"
#include "wysim/words/Wording.h"

#include <algorithm>
#include <utility>

namespace wybeta::wysim::session {

namespace {

// Takes the first word off a text.
std::string_view takeWord(std::string_view& text) {
    const auto word = text.substr(0, text.find_first_of(" \t"));
    text = words::trimmed(text.substr(word.size()));
    return word;
}

void expectNothing(std::string_view arguments) {
    if (!arguments.empty()) {
        throw song::BadInput::expectedFound("the command alone",
                                            words::inQuotes(arguments) + " behind it");
    }
}

// One of the numbers 1 to `last`, as an index.
std::size_t indexFrom(std::string_view number, std::size_t last, const std::string& what) {
    if (last == 0) {
        throw song::BadInput::expectedFound(what, "none in the track");
    }
    const auto value = song::parseInteger(number);
    if (!value || *value < 1 || static_cast<std::size_t>(*value) > last) {
        throw song::BadInput::expectedFound(what + " from 1 to " + std::to_string(last),
                                            words::inQuotes(number));
    }
    return static_cast<std::size_t>(*value) - 1;
}

double time(std::string_view text, const char* what) {
    const auto value = song::parseNumber(text);
    if (!value) {
        throw song::BadInput::expectedFound(std::string(what) + " in quarter notes",
                                            words::inQuotes(text));
    }
    return *value;
}

// Says which notes of a track carry no lyric. They may be many: the first few are named.
std::string notesWithoutLyric(const SongInEditor& song, std::size_t track) {
    constexpr std::size_t kMostNamed = 6;
    std::size_t count = 0;
    std::string numbers;
    for (std::size_t i = 0; i < song.countNotes(track); ++i) {
        if (!song.note(track, i).lyric().empty()) {
            continue;
        }
        if (count < kMostNamed) {
            numbers += (count == 0 ? "" : ", ") + std::to_string(i + 1);
        }
        ++count;
    }
    if (count == 0) {
        return "every note carries a lyric";
    }
    return "notes without a lyric: " + std::to_string(count) +
           (count == 1 ? " (note " : " (notes ") + numbers + (count > kMostNamed ? ", ...)" : ")");
}

// Two quotation marks stand for an empty lyric.
std::string lyricFrom(std::string_view text) {
    return text == "\"\"" ? std::string() : std::string(text);
}

} // namespace

const std::vector<Session::Command> Session::kCommands = {
    {"show", "[FROM [TO]]", "list the notes of the track", &Session::show, false},
    {"tracks", "[NUMBER]", "list the tracks, or go to one", &Session::tracks, false},
    {"type", "NOTE TEXT",
     "type a lyric into a note: all up to the end of the line, without quotation marks\n"
     "(\"\" alone empties it); a hyphen holds a syllable over one more note: type 1 Glo-ria",
     &Session::type, true},
    {"add", "START LENGTH PITCH [TEXT]", "add a note, such as: add 4 1 C4 love", &Session::add,
     true},
    {"delete", "NOTE", "delete a note", &Session::remove, true},
    {"undo", "", "take the last edit back", &Session::undo, true},
    {"redo", "", "do the last undone edit again", &Session::redo, true},
    {"notify", "", "tell the extension that the project changed", &Session::notify, true},
    {"save", "FILE", "write the song (.json, .musicxml, .xml) or its picture (.svg)",
     &Session::save, false},
    {"history", "", "list the commands so far; !3 runs the third again", &Session::history, false},
    {"help", "[COMMAND]", "show this list, or tell of one command", &Session::help, false},
    {"quit", "", "end the session", &Session::quit, false},
};

Session::Session(simulator::Editor& editor, words::LyricReader& reader, const song::Song& song,
                 std::filesystem::path file, std::ostream& out)
    : editor_(editor), reader_(reader), opened_(song), file_(std::move(file)),
      editing_(editor, song), out_(out) {}

void Session::run(std::string_view line) {
    line = words::trimmed(line);
    if (line.empty() || line.front() == '#') {
        return;
    }
    const auto command = recalled(line);
    if (command != line) {
        out_ << command << "\n";
    }
    history_.push_back(command);
    perform(command);
}

std::string Session::picture() const {
    return picture::svgPicture(opened_, inEditor().song());
}

std::string Session::recalled(std::string_view line) const {
    if (line.front() != '!') {
        return std::string(line);
    }
    if (history_.empty()) {
        throw song::BadInput::expectedFound("a command to run again", "an empty history");
    }
    return history_[indexFrom(line.substr(1), history_.size(), "a command of the history")];
}

void Session::perform(std::string_view line) {
    const auto& command = commandNamed(takeWord(line));
    if (command.changesNotes) {
        change(command, line);
    } else {
        (this->*command.perform)(line);
    }
}

const Session::Command& Session::commandNamed(std::string_view name) {
    const auto command =
        std::find_if(kCommands.begin(), kCommands.end(),
                     [name](const auto& candidate) { return candidate.name == name; });
    if (command == kCommands.end()) {
        throw song::BadInput::expectedFound("a command ('help' lists them)", words::inQuotes(name));
    }
    return *command;
}

void Session::change(const Command& command, std::string_view arguments) {
    remarks_.clear();
    const auto before = placedNotes(inEditor());
    (this->*command.perform)(arguments);
    auto lines = changesSince(before, inEditor());
    if (lines.empty()) {
        lines.emplace_back("no lyric changed");
    }
    lines.insert(lines.end(), remarks_.begin(), remarks_.end());
    for (const auto& line : lines) {
        out_ << line << "\n";
    }
}

void Session::checkLyric(const std::string& lyric) {
    song::checkText(lyric);
    if (words::charactersOf(lyric).size() > words::TextCheck::kLongestLine) {
        return;
    }
    auto project = editor_.openProject();
    Proof proof(project);
    const auto checked = words::TextCheck(reader_, proof.prover()).checkLyric(lyric);
    for (const auto& finding : checked.findings) {
        if (!isSung(finding.reason)) {
            remarks_.push_back(sentenceOn(finding));
        }
    }
    editor_.notify();
}

void Session::show(Arguments arguments) {
    const auto from = takeWord(arguments);
    const auto to = takeWord(arguments);
    expectNothing(arguments);
    const auto count = inEditor().countNotes(track_);
    const std::size_t first = from.empty() ? 0 : noteIndex(from);
    std::size_t end = from.empty() ? count : first + 1;
    if (!to.empty()) {
        end = noteIndex(to) + 1;
    }
    if (end <= first && !from.empty()) {
        throw song::BadInput::expectedFound("the first note to show before the last", "it behind");
    }
    terminal::TextTable table({"note", "start", "length", "pitch", "lyric"});
    for (std::size_t i = first; i < end; ++i) {
        const auto note = inEditor().songNote(track_, i);
        table.add({std::to_string(i + 1), song::formatNumber(note.start),
                   song::formatNumber(note.length), song::formatPitch(note.pitch), note.lyric});
    }
    out_ << table.text();
    if (from.empty() && count > 0) {
        out_ << notesWithoutLyric(inEditor(), track_) << "\n";
    }
}

void Session::tracks(Arguments arguments) {
    if (!arguments.empty()) {
        track_ = indexFrom(arguments, inEditor().countTracks(), "a track");
    }
    terminal::TextTable table({"track", "notes", "name"});
    for (std::size_t i = 0; i < inEditor().countTracks(); ++i) {
        table.add({std::to_string(i + 1) + (i == track_ ? " *" : ""),
                   std::to_string(inEditor().countNotes(i)), inEditor().trackName(i)});
    }
    out_ << table.text();
}

void Session::type(Arguments arguments) {
    const auto index = noteIndex(takeWord(arguments));
    if (arguments.empty()) {
        throw song::BadInput::expectedFound("a text behind the note (\"\" for none)", "nothing");
    }
    const auto lyric = lyricFrom(arguments);
    checkLyric(lyric);
    editing_.type(track_, index, lyric);
}

void Session::add(Arguments arguments) {
    song::SongNote note;
    note.start = time(takeWord(arguments), "a start");
    note.length = time(takeWord(arguments), "a length");
    const auto pitchText = takeWord(arguments);
    const auto pitch = song::parsePitch(pitchText);
    if (!pitch) {
        throw song::BadInput::expectedFound("a pitch such as C4, F#3 or 60",
                                            words::inQuotes(pitchText));
    }
    note.pitch = *pitch;
    note.lyric = lyricFrom(arguments);
    checkLyric(note.lyric);
    editing_.add(track_, note);
}

void Session::remove(Arguments arguments) {
    editing_.remove(track_, noteIndex(arguments));
}

void Session::undo(Arguments arguments) {
    expectNothing(arguments);
    editing_.undo();
}

void Session::redo(Arguments arguments) {
    expectNothing(arguments);
    editing_.redo();
}

void Session::notify(Arguments arguments) {
    expectNothing(arguments);
    editor_.notify();
}

void Session::save(Arguments arguments) {
    if (arguments.empty()) {
        throw song::BadInput::expectedFound("the name of a file", "nothing");
    }
    if (arguments == "-") {
        throw song::BadInput::expectedFound("the name of a file",
                                            "'-', and standard output is for what a session tells");
    }
    const auto path = std::filesystem::u8path(std::string(arguments));
    song::expectOtherFile(path, file_);
    const auto text =
        song::endingOf(path) == ".svg" ? picture() : song::songFileText(path, inEditor().song());
    song::writeFile(path, text);
    out_ << "wrote " << arguments << "\n";
}

void Session::history(Arguments arguments) {
    expectNothing(arguments);
    for (std::size_t i = 0; i < history_.size(); ++i) {
        out_ << "  " << i + 1 << "  " << history_[i] << "\n";
    }
}

void Session::help(Arguments arguments) {
    if (!arguments.empty()) {
        out_ << helpOn({commandNamed(arguments)});
        return;
    }
    out_ << helpOn(kCommands)
         << "Notes are counted from 1 within the track, times in quarter notes from 0.\n";
}

std::string Session::helpOn(const std::vector<Command>& commands) {
    terminal::TextTable table({"command", "what it does"});
    for (const auto& command : commands) {
        auto call = std::string(command.name) + " " + std::string(command.arguments);
        for (auto rest = command.help; !rest.empty();) {
            const auto line = rest.substr(0, rest.find('\n'));
            table.add({call, std::string(line)});
            call.clear();
            rest.remove_prefix(std::min(line.size() + 1, rest.size()));
        }
    }
    return table.text();
}

void Session::quit(Arguments arguments) {
    expectNothing(arguments);
    isOver_ = true;
}

std::size_t Session::noteIndex(std::string_view number) const {
    return indexFrom(number, inEditor().countNotes(track_), "a note");
}

} // namespace wybeta::wysim::session
