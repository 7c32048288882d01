// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace wybeta::wysim::song {

// What a score draws at a note that shows which notes share a syllable and where a singer breathes.
struct NoteMarks {
    bool isSlurred = false;  // to the note before it
    bool isBeamed = false;   // to the note before it
    bool endsPhrase = false; // by a breath mark or a double bar
};

// Times are counted in quarter notes from the start of the song.
struct SongNote {
    double start = 0;
    double length = 1;
    int pitch = 60;     // in semitones; 60 is the C in the middle of the keyboard
    std::string lyric;  // UTF-8, one line
    bool typed = false; // whether a person typed the lyric, as opposed to a division
    // Whether the score begins a syllable here; its further notes hold the syllable. Known of notes
    // of a score that another program wrote, and not kept in files.
    bool beginsSyllable = false;
    NoteMarks marks = {};
};

struct SongTrack {
    std::string name;
    std::vector<SongNote> notes; // one after the other, as one singer sings them
};

struct TimeSignature {
    int beats = 4;
    int beatType = 4;

    double measureLength() const { return 4.0 * beats / beatType; }
};

struct Song {
    std::string title;
    TimeSignature time;
    double pickup = 0; // length of an incomplete first measure; 0 when the song begins with a bar
    std::vector<SongTrack> tracks;
};

// A song from a file, and what of the file it does not hold as it is written there.
struct OpenedSong {
    Song song;
    std::vector<std::string> warnings; // each a sentence without its full stop
};

// What keeps the work on a song finite: about a week of music at a moderate tempo.
constexpr double kLongestSong = 1'000'000;
constexpr int kHighestPitch = 127;
constexpr int kMaxBeats = 256;

std::size_t countNotes(const Song& song);
// Where the last note of the song ends.
double endOf(const Song& song);
// Where the first measure that is complete or begins after `time` begins.
double measureAfter(const Song& song, double time);

// Whether a line of text in a song can hold the character.
bool isTextCharacter(char32_t character);

bool isTimeSignature(const TimeSignature& time);

// Throws BadInput when a value lies outside what a song can hold.
void checkText(std::string_view text);
void checkNote(const SongNote& note);
void checkTime(const Song& song);

// Whether the second note begins before the first has ended.
bool overlap(const SongNote& first, const SongNote& second);

// Throws BadInput unless the song has a track, in each the notes one after the other, and a time
// signature, a title and names that a song can hold. The notes by themselves are left to checkNote.
void checkSong(const Song& song);

} // namespace wybeta::wysim::song
