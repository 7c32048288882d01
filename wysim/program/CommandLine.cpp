// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/program/CommandLine.h"

#include "wysim/song/BadInput.h"
#include "wysim/song/NumberText.h"
#include "wysim/song/SongFile.h"

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
    "Without --script or --svg you type commands at a prompt; 'help' lists them.\n"
    "'wysim compare SONG' types each word of the song and reports its number of syllables.";
constexpr auto kExitStatuses =
    "Exit status: 0 done, 2 a mistake in a file, a command or an option, 1 the module could not\n"
    "be loaded or did something that it must not.";

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
                                            "'" + text + "'");
    }
    if (song::endingOf(fs::u8path(song)) == ".json") {
        throw song::BadInput::expectedFound("--verse with a score only", "it with " + song);
    }
    return *verse;
}

std::string scriptFrom(const std::string& name) {
    if (name.empty()) {
        throw song::BadInput::expectedFound("the name of a file as --script", "nothing");
    }
    return name;
}

std::string pictureFrom(const std::string& name) {
    if (song::endingOf(fs::u8path(name)) != ".svg") {
        throw song::BadInput::expectedFound("a name that ends in .svg as --svg", "'" + name + "'");
    }
    return name;
}

} // namespace

CommandLine parseCommandLine(std::vector<std::string> arguments) {
    CommandLine line;
    CLI::App app(kDescription, "wysim");
    app.footer(kExitStatuses);
    app.fallthrough();
    app.add_option("SONG", line.song, "The song to open")->type_name("");
    app.add_option("--module", line.module, "The module file or folder (default: the one built)")
        ->type_name("FILE");
    std::optional<std::string> verse;
    std::optional<std::string> script;
    std::optional<std::string> svg;
    app.add_option("--verse", verse,
                   "The verse of the score to sing (default: the first that has words)")
        ->type_name("N");
    app.add_option("--script", script, "Take the commands from a file, or from - (standard input)")
        ->type_name("FILE");
    app.add_option("--svg", svg, "Write a picture of the song, before and after, at the end")
        ->type_name("FILE");
    auto* const compare =
        app.add_subcommand("compare", "Compare syllables with notes, word by word");
    compare->add_option("SONG", line.song, "The song to compare")->type_name("");
    // CLI11 takes the arguments from the back.
    std::reverse(arguments.begin(), arguments.end());
    try {
        app.parse(std::move(arguments));
    } catch (const CLI::CallForHelp&) {
        line.help = app.help();
        return line;
    } catch (const CLI::ParseError& error) {
        throw song::BadInput::expectedFound("arguments as 'wysim --help' shows them", error.what());
    }
    line.isComparison = compare->parsed();
    if (line.song.empty()) {
        throw song::BadInput::expectedFound("a song ('wysim --help' tells more)", "none");
    }
    if (line.isComparison && (script || svg)) {
        throw song::BadInput::expectedFound("'compare' without --script and --svg", "one of them");
    }
    if (verse) {
        line.verse = verseFrom(*verse, line.song);
    }
    if (script) {
        line.script = scriptFrom(*script);
    }
    if (svg) {
        line.svg = pictureFrom(*svg);
    }
    return line;
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
