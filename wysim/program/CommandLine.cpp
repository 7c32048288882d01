// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/program/CommandLine.h"

#include "wysim/song/BadInput.h"
#include "wysim/song/NumberText.h"
#include "wysim/song/SongFile.h"
#include "wysim/words/Wording.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <optional>
#include <utility>

#ifdef _WIN32
#include <windows.h>
#endif

namespace wybeta::wysim::program {

namespace {

namespace fs = std::filesystem;

constexpr auto kDescription =
    "Opens a song in a simulated editor in which WY Beta divides its lyrics.\n\n"
    "A song is a score in MusicXML (.musicxml, .xml, .mxl) or a file of wysim's own (.json).\n"
    "Without a song, an example is opened. Without --script or --svg you type commands at a\n"
    "prompt; 'help' lists them. The subcommands do one piece of work and end; each has a\n"
    "--help.\n\n"
    "A melody without words gets them by 'lay', from a text with a line for each phrase. Or open\n"
    "it, type each word into its first note (type 1 Glo-ria: a hyphen holds a syllable over one\n"
    "more note), see with 'show' what each note carries, and 'save song.musicxml'. 'fit' is for a\n"
    "song that has its words.";
constexpr auto kExitStatuses =
    "Exit status: 0 done, 3 done but words are left that 'fit' could not fit, that 'lay' found no\n"
    "notes for or that are not sung, 2 a mistake in a file, a command or an option, 1 the module\n"
    "could not be loaded or did something that it must not.";

fs::path programFolder() {
#ifdef _WIN32
    std::wstring path(32768, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return fs::path(path).parent_path();
#else
    return fs::read_symlink("/proc/self/exe").parent_path();
#endif
}

// The library for this system inside a module folder.
fs::path libraryInside(const fs::path& folder) {
#ifdef _WIN32
    return folder / "Contents" / "x86_64-win" / folder.filename();
#else
    return folder / "Contents" / "x86_64-linux" / folder.stem().concat(".so");
#endif
}

int verseFrom(const std::string& text, const std::string& song) {
    const auto verse = song::parseInteger(text);
    if (!verse || *verse < 1) {
        throw song::BadInput::expectedFound("a whole number of at least 1 as --verse",
                                            words::inQuotes(text));
    }
    if (song.empty() || song::endingOf(fs::u8path(song)) == ".json") {
        throw song::BadInput::expectedFound("--verse with a score only",
                                            "it with " + (song.empty() ? "the example" : song));
    }
    return *verse;
}

void expectEnding(const std::optional<std::string>& file, const std::vector<std::string>& endings,
                  const char* expected) {
    if (file && *file != kStandardOutput &&
        std::count(endings.begin(), endings.end(), song::endingOf(fs::u8path(*file))) == 0) {
        throw song::BadInput::expectedFound(expected, words::inQuotes(*file));
    }
}

// The options as CLI11 finds them, and what becomes of them.
class Parser {
public:
    Parser() {
        app_.footer(kExitStatuses);
        app_.set_version_flag("--version", "wysim " WYSIM_VERSION, "Tell the version and end");
        addFile(app_, "SONG", "The song to open");
        addVerse(app_);
        app_.add_option("--script", line_.script,
                        "Take the commands from a file, or from - (standard input)")
            ->type_name("FILE");
        addPicture(app_);
        addModule(app_);
        addCompare();
        addFit();
        addCheck();
        addLay();
    }

    CommandLine parse(std::vector<std::string> arguments) {
        // CLI11 takes the arguments from the back.
        std::reverse(arguments.begin(), arguments.end());
        try {
            app_.parse(std::move(arguments));
        } catch (const CLI::CallForHelp&) {
            line_.help = app_.help();
            return line_;
        } catch (const CLI::CallForVersion& version) {
            line_.help = version.what() + std::string("\n");
            return line_;
        } catch (const CLI::ExtrasError&) {
            throw song::BadInput::expectedFound(expectedArguments(), unknownArguments());
        } catch (const CLI::ParseError& error) {
            throw song::BadInput::expectedFound(expectedArguments(), error.what());
        }
        takeFile();
        expectOwnOptions();
        checkValues();
        return line_;
    }

private:
    std::string expectedArguments() const {
        std::string call = "wysim ";
        for (const auto* const command : app_.get_subcommands()) {
            call += command->get_name() + " ";
        }
        return "arguments as '" + call + "--help' shows them";
    }

    std::string unknownArguments() const {
        constexpr bool kOfCommandsAsWell = true;
        std::string arguments;
        for (const auto& argument : app_.remaining(kOfCommandsAsWell)) {
            arguments += (arguments.empty() ? "" : " ") + argument;
        }
        return arguments + ", which it does not know";
    }

    void addCompare() {
        auto& compare =
            addCommand(Command::Compare, "compare", "Compare syllables with notes, word by word");
        addFile(compare, "SONG", "The song to compare");
        addVerse(compare);
    }

    void addFit() {
        auto& fit = addCommand(Command::Fit, "fit",
                               "Find what to type so that each syllable comes out on its notes");
        addFile(fit, "SONG", "The song whose words are fitted; a melody gets them by 'lay' first");
        addVerse(fit);
        fit.add_flag("--brackets", line_.ways.brackets,
                     "Write phonemes in brackets where nothing else fits");
        fit.add_flag("--guess", line_.ways.guesses,
                     "Write phonemes in brackets for words that are not sung, guessed if need be");
        addSave(fit);
        addPicture(fit);
    }

    void addCheck() {
        auto& check = addCommand(Command::Check, "check",
                                 "Tell the syllables of each line of a text, and what is not sung");
        addFile(check, "TEXTFILE", "The text to check, or - for standard input");
        check.add_flag("--json", line_.writesJson, "Write what is found as JSON");
    }

    void addLay() {
        auto& lay = addCommand(Command::Lay, "lay", "Lay a text under a melody, line by line");
        addFile(lay, "SONG", "The song whose melody gets the words");
        lay.add_option("TEXT", line_.text,
                       "The text, a line for each phrase, or - for standard input")
            ->type_name("");
        lay.add_option("--track", line_.track, "The track that is sung (default: the first)")
            ->type_name("NAME|N");
        addVerse(lay);
        lay.add_flag("--guess", line_.ways.guesses,
                     "Lay words that are not sung with phonemes in brackets, guessed if need be");
        addSave(lay);
        addPicture(lay);
        lay.add_option("--json", line_.json, "Write where each word is laid; - is standard output")
            ->type_name("FILE");
    }

    CLI::App& addCommand(Command command, const char* name, const char* description) {
        auto* const added = app_.add_subcommand(name, description);
        added->callback([this, command] { line_.command = command; });
        addModule(*added);
        return *added;
    }

    void addFile(CLI::App& app, const char* name, const char* description) {
        app.add_option_function<std::string>(
               name, [this](const std::string& file) { files_.push_back(file); }, description)
            ->type_name("");
    }
    void addVerse(CLI::App& app) {
        app.add_option("--verse", verse_,
                       "The verse of the score to sing (default: the first that has words)")
            ->type_name("N");
    }
    void addSave(CLI::App& app) {
        app.add_option("--save", line_.save,
                       "Write the song with these words typed; - is standard output")
            ->type_name("FILE");
    }
    void addPicture(CLI::App& app) {
        app.add_option("--svg", line_.svg,
                       "Write a picture of the song, before and after, at the end; - is standard "
                       "output")
            ->type_name("FILE");
    }
    void addModule(CLI::App& app) {
        app.add_option("--module", line_.module,
                       "The module file or folder (default: the WyBeta.vst3 beside wysim, or "
                       "the one built)")
            ->type_name("FILE");
    }

    void takeFile() {
        if (files_.empty() && line_.command == Command::Open) {
            return; // for the example
        }
        if (files_.size() != 1 || files_.front().empty()) {
            const char* const what = line_.command == Command::Check ? "one text" : "one song";
            const std::string found = files_.size() > 1 ? "several" : "none";
            throw song::BadInput::expectedFound(what, found + " ('wysim --help' tells more)");
        }
        line_.file = files_.front();
        if (line_.command == Command::Lay && line_.text.empty()) {
            throw song::BadInput::expectedFound("one song and one text",
                                                "no text ('wysim lay --help' tells more)");
        }
    }

    // Options of a session can stand before a command as well.
    void expectOwnOptions() const {
        const auto expectNone = [](bool isGiven, const char* option) {
            if (isGiven) {
                throw song::BadInput::expectedFound("an option that the command has", option);
            }
        };
        const bool isCheck = line_.command == Command::Check;
        const bool draws = !isCheck && line_.command != Command::Compare;
        expectNone(line_.script && line_.command != Command::Open, "--script");
        expectNone(line_.svg && !draws, "--svg");
        expectNone(verse_ && isCheck, "--verse");
    }

    void checkValues() {
        if (verse_) {
            line_.verse = verseFrom(*verse_, line_.file);
        }
        if (line_.script && line_.script->empty()) {
            throw song::BadInput::expectedFound("the name of a file as --script", "nothing");
        }
        expectEnding(line_.svg, {".svg"}, "a name that ends in .svg as --svg");
        expectEnding(line_.save, {".json", ".musicxml", ".xml"},
                     "a name that ends in .json, .musicxml or .xml as --save");
    }

    CLI::App app_{kDescription, "wysim"};
    CommandLine line_;
    std::vector<std::string> files_;
    std::optional<std::string> verse_;
};

} // namespace

CommandLine parseCommandLine(std::vector<std::string> arguments) {
    return Parser().parse(std::move(arguments));
}

fs::path moduleFile(const std::string& named) {
    auto path = fs::u8path(named);
    if (named.empty()) {
        const auto folder = programFolder();
        path = folder / "WyBeta.vst3";
        if (!fs::exists(path)) {
            path = folder.parent_path() / "WyBeta.vst3";
        }
    }
    return fs::is_directory(path) ? libraryInside(path) : path;
}

} // namespace wybeta::wysim::program
