// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/song/Song.h"

#include "wysim/song/BadInput.h"
#include "wysim/song/NumberText.h"
#include "wysim/song/Time.h"

#include <utf8cpp/utf8.h>

#include <algorithm>

namespace wybeta::wysim::song {

namespace {

constexpr int kShortestBeatType = 256;
constexpr double kShortestMeasure = 0.5;

bool isIn(double value, double least, double most) {
    return value >= least && value <= most;
}

bool isPowerOfTwo(int value) {
    return value > 0 && (value & (value - 1)) == 0;
}

} // namespace

bool isTextCharacter(char32_t character) {
    return character >= 0x20 && character != 0x7F && character != 0xFFFE && character != 0xFFFF;
}

std::size_t countNotes(const Song& song) {
    std::size_t count = 0;
    for (const auto& track : song.tracks) {
        count += track.notes.size();
    }
    return count;
}

double endOf(const Song& song) {
    double end = 0;
    for (const auto& track : song.tracks) {
        for (const auto& note : track.notes) {
            end = std::max(end, note.start + note.length);
        }
    }
    return end;
}

double measureAfter(const Song& song, double time) {
    const double length = song.time.measureLength();
    return song.pickup + length * (wholeOf((time - song.pickup) / length) + 1);
}

bool isTimeSignature(const TimeSignature& time) {
    return time.beats >= 1 && time.beats <= kMaxBeats && isPowerOfTwo(time.beatType) &&
           time.beatType <= kShortestBeatType && time.measureLength() >= kShortestMeasure;
}

void checkText(std::string_view text) {
    bool isText = utf8::is_valid(text.begin(), text.end());
    for (auto next = text.begin(); isText && next != text.end();) {
        isText = isTextCharacter(utf8::next(next, text.end()));
    }
    if (!isText) {
        throw BadInput::expectedFound("a text of one line in UTF-8",
                                      "control characters or other bytes");
    }
}

void checkNote(const SongNote& note) {
    if (!isIn(note.start, 0, kLongestSong)) {
        throw BadInput::expectedFound("a start from 0 to 1000000 quarter notes",
                                      formatNumber(note.start));
    }
    if (!isIn(note.length, 0, kLongestSong) || note.length == 0) {
        throw BadInput::expectedFound("a length above 0 and up to 1000000 quarter notes",
                                      formatNumber(note.length));
    }
    if (note.pitch < 0 || note.pitch > kHighestPitch) {
        throw BadInput::expectedFound("a pitch from 0 to 127", std::to_string(note.pitch));
    }
    checkText(note.lyric);
}

void checkTime(const Song& song) {
    const auto& time = song.time;
    if (!isTimeSignature(time)) {
        throw BadInput::expectedFound("a time signature such as 4/4",
                                      std::to_string(time.beats) + "/" +
                                          std::to_string(time.beatType));
    }
    const bool isPickupRight = song.pickup >= 0 && song.pickup < time.measureLength();
    if (!isPickupRight) {
        throw BadInput::expectedFound("a pickup shorter than a measure", formatNumber(song.pickup));
    }
}

bool overlap(const SongNote& first, const SongNote& second) {
    return isBefore(second.start, first.start + first.length);
}

void checkSong(const Song& song) {
    if (song.tracks.empty()) {
        throw BadInput::expectedFound("a song with a track", "none");
    }
    checkTime(song);
    checkText(song.title);
    for (const auto& [name, notes] : song.tracks) {
        checkText(name);
        for (std::size_t i = 1; i < notes.size(); ++i) {
            if (overlap(notes[i - 1], notes[i])) {
                throw BadInput::expectedFound(
                    "the notes of track '" + name + "' one after the other",
                    "note " + std::to_string(i + 1) + " begin before note " + std::to_string(i) +
                        " ends");
            }
        }
    }
}

} // namespace wybeta::wysim::song
