// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/program/Program.h"

#include "simulator/Editor.h"
#include "simulator/RunningModule.h"
#include "wysim/laying/LaidText.h"
#include "wysim/program/CommandLine.h"
#include "wysim/program/TextFile.h"
#include "wysim/session/Comparison.h"
#include "wysim/session/Fitting.h"
#include "wysim/session/Laying.h"
#include "wysim/session/Proof.h"
#include "wysim/session/Session.h"
#include "wysim/song/BadInput.h"
#include "wysim/song/Example.h"
#include "wysim/song/FileBytes.h"
#include "wysim/song/MusicXmlWriter.h"
#include "wysim/song/NumberText.h"
#include "wysim/song/Song.h"
#include "wysim/song/SongFile.h"
#include "wysim/terminal/Console.h"
#include "wysim/terminal/Progress.h"
#include "wysim/words/CheckReport.h"
#include "wysim/words/PlainWords.h"
#include "wysim/words/SongWords.h"
#include "wysim/words/TextCheck.h"
#include "wysim/words/Wording.h"

#include <algorithm>
#include <cstddef>
#include <exception>
#include <filesystem>
#include <functional>
#include <new>
#include <optional>
#include <stdexcept>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

namespace wybeta::wysim::program {

namespace {

namespace fs = std::filesystem;

constexpr int kDone = 0;
constexpr int kModuleTrouble = 1;
constexpr int kBadInput = 2;
constexpr int kWordsLeft = 3;

constexpr auto kExampleHint =
    "This is an example. Type 'show' to see what each note carries, 'type 1 good morning' to\n"
    "sing something else, and 'save FILE.svg' to draw it. To open a song of your own, run\n"
    "'wysim SONG', or drop the song on the program. 'wysim --help' tells of more.\n";

// Runs the commands of a script. Mistakes are told with their lines, and the script goes on.
int runScript(std::istream& lines, const std::string& name, session::Session& session,
              const Streams& streams) {
    int status = kDone;
    std::string line;
    for (std::size_t number = 1; !session.isOver() && std::getline(lines, line); ++number) {
        try {
            streams.out << "> " << words::withoutReturn(line) << "\n";
            session.run(words::withoutReturn(line));
        } catch (const song::BadInput& error) {
            streams.out.flush();
            streams.err << "wysim: " << name << ", line " << number << ": " << error.what()
                        << "; nothing changed.\n";
            status = kBadInput;
        }
    }
    return status;
}

int runPrompt(session::Session& session, const Streams& streams) {
    streams.out << "'help' lists the commands, 'quit' ends.\n";
    std::string line;
    while (!session.isOver()) {
        streams.out << "wysim> " << std::flush;
        if (!terminal::readTerminalLine(line)) {
            streams.out << "\n";
            break;
        }
        try {
            session.run(line);
        } catch (const song::BadInput& error) {
            streams.out << error.what() << "; nothing changed.\n";
        }
    }
    return kDone;
}

int runCommands(session::Session& session, const CommandLine& line, const Streams& streams) {
    if (!line.script && line.svg) {
        return kDone;
    }
    if (!line.script && streams.isInputTerminal) {
        return runPrompt(session, streams);
    }
    if (!line.script || line.script == "-") {
        return runScript(streams.in, "standard input", session, streams);
    }
    auto file = openTextFile(*line.script, "a script that can be read");
    return runScript(file, *line.script, session, streams);
}

void printSummary(const song::Song& song, const std::string& file, std::ostream& out) {
    out << (song.title.empty() ? file : song.title) << ": " << song.tracks.size() << " track"
        << (song.tracks.size() == 1 ? "" : "s") << ", " << countNotes(song) << " notes\n";
}

// The streams of a run that may write a file to standard output. What it tells goes to standard
// error then, as its 'out'.
struct RunStreams : Streams {
    std::ostream& standardOutput;

    void write(const std::string& file, std::string_view text) const {
        if (file == kStandardOutput) {
            standardOutput << text;
        } else {
            song::writeFile(fs::u8path(file), text);
            out << "wrote " << file << "\n";
        }
    }
};

RunStreams streamsOf(const CommandLine& line, const Streams& streams) {
    const auto files = {line.svg, line.save, line.json};
    const auto count = std::count(files.begin(), files.end(), std::string(kStandardOutput));
    if (count > 1) {
        throw song::BadInput::expectedFound("one file for standard output", std::to_string(count));
    }
    return {{streams.in, count == 0 ? streams.out : streams.err, streams.err,
             streams.isInputTerminal, streams.isErrorTerminal, streams.closesAtEnd},
            streams.out};
}

int runSession(const CommandLine& line, const song::Song& song, simulator::Editor& editor,
               words::LyricReader& reader, const RunStreams& streams) {
    if (line.file.empty()) {
        streams.out << kExampleHint;
    }
    session::Session session(editor, reader, song, fs::u8path(line.file), streams.out);
    const int status = runCommands(session, line, streams);
    if (line.svg) {
        streams.write(*line.svg, session.picture());
    }
    return status;
}

// Without words there is nothing to fit, and nothing to write.
void expectWords(const song::Song& song) {
    if (words::wordsOf(song).empty()) {
        throw song::BadInput::expectedFound(
            "a song with words to fit", "none; lay a text under it first: 'wysim lay SONG TEXT'");
    }
}

// Standard output has no ending that would choose between the kinds of files.
std::string textToSave(const std::string& file, const song::Song& song) {
    return file == kStandardOutput ? song::musicXmlFromSong(song)
                                   : song::songFileText(fs::u8path(file), song);
}

// Writes the song with its words typed, and its picture, as far as they are asked for.
void writeSong(const CommandLine& line, const song::Song& typed, simulator::Editor& editor,
               const RunStreams& streams) {
    if (line.save) {
        streams.write(*line.save, textToSave(*line.save, typed));
    }
    if (line.svg) {
        streams.write(*line.svg, session::fittedPicture(editor, typed));
    }
}

int runFit(const CommandLine& line, const song::Song& song, simulator::Editor& editor,
           words::LyricReader& reader, terminal::Progress& progress, const RunStreams& streams) {
    expectWords(song);
    const auto words =
        session::fitWords(editor, reader, words::withPlainWords(reader, song), line.ways, progress);
    streams.out << session::fittingTable(words);
    writeSong(line, session::fittedSong(song, words), editor, streams);
    streams.out << session::fittingTotals(words, line.ways);
    return session::areAllFitted(words) ? kDone : kWordsLeft;
}

// The index of a track that is named, or else counted from 1.
std::optional<std::size_t> findTrack(const std::string& named, const song::Song& song) {
    const auto& tracks = song.tracks;
    const auto found = std::find_if(tracks.begin(), tracks.end(),
                                    [&named](const auto& track) { return track.name == named; });
    if (found != tracks.end()) {
        return static_cast<std::size_t>(found - tracks.begin());
    }
    const auto number = song::parseInteger(named);
    const bool isTrack =
        number && *number >= 1 && static_cast<std::size_t>(*number) <= tracks.size();
    return isTrack ? std::optional(static_cast<std::size_t>(*number) - 1) : std::nullopt;
}

std::size_t trackNamed(const std::optional<std::string>& named, const song::Song& song) {
    if (!named) {
        return 0;
    }
    const auto track = findTrack(*named, song);
    if (!track) {
        throw song::BadInput::expectedFound("the name of a track or a number from 1 to " +
                                                std::to_string(song.tracks.size()) + " as --track",
                                            words::inQuotes(*named));
    }
    return *track;
}

void printReplaced(std::size_t words, std::ostream& out) {
    if (words > 0) {
        out << words << (words == 1 ? " word that was there is" : " words that were there are")
            << " replaced\n";
    }
}

int runLay(const CommandLine& line, const song::Song& song, simulator::Editor& editor,
           words::LyricReader& reader, const RunStreams& streams) {
    const auto text = laying::linesOfText(readText(line.text, streams.in));
    const auto track = trackNamed(line.track, song);
    const auto laid = laying::TextLaying(reader, line.ways.guesses).lay(text, song, track);
    session::proveLaid(editor, laid);
    auto& out = streams.out;
    printReplaced(session::countWords(song, track), out);
    out << session::layingTable(laid);
    const auto typed = session::laidSong(song, track, laid);
    writeSong(line, typed, editor, streams);
    if (line.json) {
        streams.write(*line.json, session::layingJson(laid, track));
    }
    out << session::layingTotals(laid);
    return session::countLaid(laid).isAllLaid() ? kDone : kWordsLeft;
}

int runOnSong(const CommandLine& line, const song::Song& song, simulator::Editor& editor,
              terminal::Progress& progress, const RunStreams& streams) {
    words::LyricReader reader;
    printSummary(song, line.file, streams.out);
    switch (line.command) {
    case Command::Compare:
        streams.out << session::comparisonText(
            session::compareWords(editor, reader, song, progress));
        return kDone;
    case Command::Fit:
        return runFit(line, song, editor, reader, progress, streams);
    case Command::Lay:
        return runLay(line, song, editor, reader, streams);
    default:
        return runSession(line, song, editor, reader, streams);
    }
}

int runCheck(const CommandLine& line, const std::vector<std::string>& text,
             simulator::Editor& editor, terminal::Progress& progress, std::ostream& out) {
    words::LyricReader reader;
    session::Proof proof(editor);
    const auto checked = words::TextCheck(reader, proof.prover()).checkLines(text, progress);
    out << (line.writesJson ? words::checkJson(checked) : words::checkReport(checked));
    return words::isAllSung(checked) ? kDone : kWordsLeft;
}

bool areOneFile(const fs::path& one, const fs::path& other) {
    std::error_code ignored;
    return fs::equivalent(one, other, ignored) ||
           fs::weakly_canonical(one, ignored) == fs::weakly_canonical(other, ignored);
}

// Never writes over what was read, nor one file over another.
void expectOtherFiles(const CommandLine& line) {
    std::vector<fs::path> others;
    if (!line.text.empty()) {
        others.push_back(fs::u8path(line.text));
    }
    for (const auto& written : {line.svg, line.save, line.json}) {
        if (!written || *written == kStandardOutput) {
            continue;
        }
        const auto path = fs::u8path(*written);
        song::expectOtherFile(path, fs::u8path(line.file));
        for (const auto& other : others) {
            if (areOneFile(path, other)) {
                throw song::BadInput::expectedFound("a file of its own to write",
                                                    "another for " + *written);
            }
        }
        others.push_back(path);
    }
}

song::Song openSong(const CommandLine& line, terminal::Progress& progress, std::ostream& err) {
    if (line.file.empty()) {
        return song::exampleSong();
    }
    const auto path = fs::u8path(line.file);
    auto opened = song::readSongFile(path, {line.verse}, progress);
    if (line.track && !findTrack(*line.track, opened.song)) {
        opened = song::readSongFile(path, {line.verse, true}, progress);
    }
    for (const auto& warning : opened.warnings) {
        err << "wysim: " << line.file << ": " << warning << ".\n";
    }
    expectOtherFiles(line);
    return std::move(opened.song);
}

// Lets `work` use an editor with the module, and returns the exit status that it gives.
int useModule(const CommandLine& line, const std::function<int(simulator::Editor&)>& work) {
    simulator::RunningModule module(moduleFile(line.module));
    int status = kDone;
    module.use([&](simulator::Editor& editor) { status = work(editor); });
    module.stop();
    return status;
}

int run(const CommandLine& line, const Streams& streams) {
    auto progress =
        streams.isErrorTerminal ? terminal::Progress(streams.err) : terminal::Progress();
    if (line.command == Command::Check) {
        const auto text = readTextLines(line.file, streams.in);
        return useModule(line, [&](simulator::Editor& editor) {
            return runCheck(line, text, editor, progress, streams.out);
        });
    }
    const auto runStreams = streamsOf(line, streams);
    const auto song = openSong(line, progress, streams.err);
    return useModule(line, [&](simulator::Editor& editor) {
        return runOnSong(line, song, editor, progress, runStreams);
    });
}

int runToTheEnd(const std::vector<std::string>& arguments, const Streams& streams) {
    try {
        const auto line = parseCommandLine(arguments);
        if (!line.help.empty()) {
            streams.out << line.help;
        }
        const int status = line.help.empty() ? run(line, streams) : kDone;
        if (!streams.out.flush()) {
            throw std::runtime_error(
                "expected to write the output, found that it cannot be written");
        }
        return status;
    } catch (const song::BadInput& error) {
        streams.out.flush();
        streams.err << "wysim: " << error.what() << ".\n";
        return kBadInput;
    } catch (const std::bad_alloc&) {
        streams.err << "wysim: " << song::kOutOfMemory << ".\n";
        return kModuleTrouble;
    } catch (const std::exception& error) {
        streams.out.flush();
        streams.err << "wysim: " << error.what() << ".\n";
        return kModuleTrouble;
    }
}

} // namespace

int runWysim(const std::vector<std::string>& arguments, const Streams& streams) {
    const int status = runToTheEnd(arguments, streams);
    if (streams.closesAtEnd) {
        streams.err.flush();
        streams.out << "\nPress Enter to close this window.\n" << std::flush;
        std::string line;
        std::getline(streams.in, line);
    }
    return status;
}

} // namespace wybeta::wysim::program
