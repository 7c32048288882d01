// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/wysim/SongFixture.h"

#include "tests/Options.h"
#include "wysim/program/Program.h"
#include "wysim/song/BadInput.h"
#include "wysim/song/NumberText.h"
#include "wysim/song/Pitch.h"
#include "wysim/song/SongFile.h"
#include "wysim/terminal/Progress.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <random>
#include <sstream>
#include <system_error>

namespace wybeta::tests {

namespace fs = std::filesystem;
using namespace wysim::program;
using namespace wysim::song;
using namespace wysim::terminal;

fs::path dataFile(const std::string& name) {
    return sourceFile("tests/wysim/data/" + name);
}

std::string bytesOf(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

OpenedSong openBytes(const std::string& bytes, const std::string& ending,
                     std::optional<int> verse) {
    Progress progress;
    return songFromBytes(bytes, ending, {verse}, progress);
}

Song songFrom(const std::string& bytes, const std::string& ending) {
    return openBytes(bytes, ending).song;
}

std::vector<std::string> warningsOf(const std::string& bytes, std::optional<int> verse) {
    return openBytes(bytes, ".musicxml", verse).warnings;
}

std::string refusalOfBytes(const std::string& bytes, const std::string& ending) {
    try {
        songFrom(bytes, ending);
        return {};
    } catch (const BadInput& error) {
        return error.what();
    }
}

Song readSong(const fs::path& path, std::optional<int> verse) {
    Progress progress;
    return readSongFile(path, {verse}, progress).song;
}

std::string refusalOf(const fs::path& path, std::optional<int> verse) {
    try {
        readSong(path, verse);
        return {};
    } catch (const BadInput& error) {
        return error.what();
    }
}

std::vector<std::string> trackNames(const Song& song) {
    std::vector<std::string> names;
    names.reserve(song.tracks.size());
    for (const auto& track : song.tracks) {
        names.push_back(track.name);
    }
    return names;
}

std::vector<std::string> linesOf(const Song& song, std::size_t track) {
    std::vector<std::string> lines;
    for (const auto& note : song.tracks.at(track).notes) {
        lines.push_back(formatNumber(note.start) + " " + formatNumber(note.length) + " " +
                        formatPitch(note.pitch) + " " + note.lyric + (note.typed ? "*" : ""));
    }
    return lines;
}

std::string marksOf(const Song& song, std::size_t track) {
    std::string line;
    for (const auto& note : song.tracks.at(track).notes) {
        line += std::string(line.empty() ? "" : " ") + (note.marks.isSlurred ? "~" : "") +
                (note.marks.isBeamed ? "=" : "") + formatPitch(note.pitch) +
                (note.marks.endsPhrase ? "," : "");
    }
    return line;
}

TemporaryFolder::TemporaryFolder()
    : path_(fs::temp_directory_path() / ("wysim-" + std::to_string(std::random_device()()))) {
    fs::create_directories(path_);
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
}

fs::path TemporaryFolder::write(const std::string& name, const std::string& bytes) const {
    std::ofstream(file(name), std::ios::binary) << bytes;
    return file(name);
}

Run runProgram(std::vector<std::string> arguments, const std::string& input) {
    std::istringstream in(input);
    std::ostringstream out;
    std::ostringstream err;
    if (std::find(arguments.begin(), arguments.end(), "--module") == arguments.end()) {
        arguments.insert(arguments.begin(), "--module=" + modulePath().u8string());
    }
    const int status = runWysim(arguments, {in, out, err});
    return {status, out.str(), err.str()};
}

Run runScript(const fs::path& song, const std::string& commands) {
    return runProgram({song.u8string(), "--script", "-"}, commands);
}

} // namespace wybeta::tests
