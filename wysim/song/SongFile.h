// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wysim/song/ScoreChoice.h"
#include "wysim/song/Song.h"
#include "wysim/terminal/Progress.h"

#include <cstddef>
#include <filesystem>
#include <string>

namespace wybeta::wysim::song {

// Of a file, and of what it unpacks to. The largest of 45 scores of songs for voice and piano have
// 1.3 MB unpacked.
constexpr std::size_t kLargestSongFile = std::size_t{64} * 1024 * 1024;

// A song from what a file with that ending holds: .json, or any other for a score, which may be
// compressed. The verse matters to scores only; none leaves the choice to the
// reader. Throws BadInput, saying where.
OpenedSong songFromBytes(const std::string& bytes, const std::string& ending,
                         const ScoreChoice& choice, terminal::Progress& progress);

// Reads a song by the ending of the file's name: .musicxml or .xml, .mxl, .json. Throws BadInput,
// naming the file; it is larger than allowed also when its unpacked score is.
OpenedSong readSongFile(const std::filesystem::path& path, const ScoreChoice& choice,
                        terminal::Progress& progress);

// The same from the bytes of a file of that name, wherever it is.
OpenedSong songFromFile(const std::filesystem::path& name, const std::string& bytes,
                        const ScoreChoice& choice, terminal::Progress& progress);

// What is written to a file of that name: JSON for .json, MusicXML for .musicxml and .xml. Throws
// BadInput for any other ending.
std::string songFileText(const std::filesystem::path& path, const Song& song);

// Throws BadInput when both paths lead to the same file: a song is never written over.
void expectOtherFile(const std::filesystem::path& path, const std::filesystem::path& song);

// The ending of a file's name in small letters, such as ".json".
std::string endingOf(const std::filesystem::path& path);

} // namespace wybeta::wysim::song
