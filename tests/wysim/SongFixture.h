// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wysim/song/Song.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace wybeta::tests {

// A file of tests/wysim/data.
std::filesystem::path dataFile(const std::string& name);
std::string bytesOf(const std::filesystem::path& path);

// Opens what a file with that ending would hold.
wysim::song::OpenedSong openBytes(const std::string& bytes, const std::string& ending = ".musicxml",
                                  std::optional<int> verse = {});
wysim::song::Song songFrom(const std::string& bytes, const std::string& ending = ".musicxml");
std::vector<std::string> warningsOf(const std::string& bytes, std::optional<int> verse = {});
// What songFrom finds wrong; empty when it reads a song.
std::string refusalOfBytes(const std::string& bytes, const std::string& ending = ".musicxml");

wysim::song::Song readSong(const std::filesystem::path& path, std::optional<int> verse = {});
// What readSong finds wrong; empty when it reads a song.
std::string refusalOf(const std::filesystem::path& path, std::optional<int> verse = {});

std::vector<std::string> trackNames(const wysim::song::Song& song);
// "start length pitch lyric" of each note of a track, typed lyrics with a star.
std::vector<std::string> linesOf(const wysim::song::Song& song, std::size_t track = 0);
// The pitch of each note of a track, such as "C4 ~D4 =E4,": "~" is before a note that is slurred to
// the note before it, "=" before one that is beamed to it, and "," after the last of a phrase.
std::string marksOf(const wysim::song::Song& song, std::size_t track = 0);

// A folder that goes when the test is over.
class TemporaryFolder {
public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    std::filesystem::path file(const std::string& name) const {
        return path_ / std::filesystem::u8path(name);
    }
    std::filesystem::path write(const std::string& name, const std::string& bytes) const;
    bool isEmpty() const { return std::filesystem::is_empty(path_); }

private:
    std::filesystem::path path_;
};

// One run of wysim, with the built module unless the arguments name another.
struct Run {
    int status;
    std::string out;
    std::string err;
};
Run runProgram(std::vector<std::string> arguments, const std::string& input = {});
// A session on a song with commands from standard input.
Run runScript(const std::filesystem::path& song, const std::string& commands);

} // namespace wybeta::tests
