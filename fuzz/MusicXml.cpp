// SPDX-License-Identifier: GPL-3.0-or-later
//
// The input is a score in MusicXML, or a compressed one when it begins like a zip file. It is
// refused with BadInput, or is a song that keeps through writing and reading: as a project file to
// the byte, as a score in all that a score's grid of times can say.
#include "fuzz/Check.h"
#include "fuzz/SongChecks.h"
#include "wysim/song/BadInput.h"
#include "wysim/song/MusicXmlWriter.h"
#include "wysim/song/Song.h"
#include "wysim/song/SongFile.h"
#include "wysim/song/Time.h"
#include "wysim/terminal/Progress.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace wybeta::fuzz {

namespace {

using wysim::song::Song;

Song readScore(const std::string& bytes) {
    wysim::terminal::Progress progress;
    return wysim::song::songFromBytes(bytes, ".musicxml", {}, progress).song;
}

// Whether the time is one that every score of wysim can hold exactly.
bool isOnGrid(double time) {
    const double ticks = time * 480;
    return wysim::song::isSameTime(ticks, std::round(ticks));
}

// Times beyond the grid are rounded in a score, and a long song takes too long to write.
bool keepsAsScore(const Song& song) {
    for (const auto& track : song.tracks) {
        for (const auto& note : track.notes) {
            if (!isOnGrid(note.start) || !isOnGrid(note.length) || note.start + note.length > 500) {
                return false;
            }
        }
    }
    return isOnGrid(song.pickup) && isOnGrid(song.time.measureLength());
}

// What a score holds of a song, with times in ticks, since fractions don't add up to the last bit.
std::vector<std::string> described(const Song& song) {
    const auto ticks = [](double time) { return std::to_string(std::llround(time * 480)); };
    std::vector<std::string> lines = {song.title, std::to_string(song.time.beats) + "/" +
                                                      std::to_string(song.time.beatType) + " " +
                                                      ticks(song.pickup)};
    for (const auto& track : song.tracks) {
        lines.push_back(track.name);
        for (const auto& note : track.notes) {
            lines.push_back(ticks(note.start) + " " + ticks(note.length) + " " +
                            std::to_string(note.pitch) + (note.typed ? " typed " : " ") +
                            (note.marks.isSlurred ? "slurred " : "") +
                            (note.marks.endsPhrase ? "last " : "") + note.lyric);
        }
    }
    return lines;
}

// Whether each note is beamed to the one before it.
std::vector<std::string> beamsOf(const Song& song) {
    std::vector<std::string> beams;
    for (const auto& track : song.tracks) {
        for (const auto& note : track.notes) {
            beams.emplace_back(note.marks.isBeamed ? "beamed" : "");
        }
    }
    return beams;
}

// Beams of notes that are a quarter or longer, such as tied ones, are not written; all others are.
void checkScore(const Song& song) {
    try {
        const auto again = readScore(wysim::song::musicXmlFromSong(song));
        checkEqual(described(again), described(song));
        checkEqual(beamsOf(readScore(wysim::song::musicXmlFromSong(again))), beamsOf(again));
    } catch (const wysim::song::BadInput& error) {
        fail(std::string("a score that was written is refused: ") + error.what());
    }
}

void readSong(const std::string& bytes) {
    Song song;
    try {
        song = readScore(bytes);
    } catch (const wysim::song::BadInput&) {
        return;
    }
    checkReadSong(song);
    if (keepsAsScore(song)) {
        checkScore(song);
    }
}

} // namespace

} // namespace wybeta::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    wybeta::fuzz::readSong(std::string(wybeta::fuzz::textOf(data, size)));
    return 0;
}
