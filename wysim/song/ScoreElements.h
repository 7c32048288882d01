// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wysim/song/ScoreLyric.h"
#include "wysim/song/Song.h"

#include <pugixml.hpp>

#include <array>
#include <optional>
#include <string>

namespace wybeta::wysim::song {

// What a score of wysim names as the software that wrote it.
constexpr auto kSoftware = "wysim";

// How a score calls a note of a length.
struct NoteValue {
    const char* name;
    double quarters;
};

constexpr std::array<NoteValue, 14> kNoteValues = {{{"maxima", 32},
                                                    {"long", 16},
                                                    {"breve", 8},
                                                    {"whole", 4},
                                                    {"half", 2},
                                                    {"quarter", 1},
                                                    {"eighth", 1.0 / 2},
                                                    {"16th", 1.0 / 4},
                                                    {"32nd", 1.0 / 8},
                                                    {"64th", 1.0 / 16},
                                                    {"128th", 1.0 / 32},
                                                    {"256th", 1.0 / 64},
                                                    {"512th", 1.0 / 128},
                                                    {"1024th", 1.0 / 256}}};

// The whole text of an element, which comments and CDATA sections may cut into pieces.
std::string textOf(pugi::xml_node element);

// Whether wysim wrote the score, whose lyrics are then what a person typed, marks and all.
bool isOwnScore(pugi::xml_node score);

// Whether a note is a rest, or sounds in another part.
bool isSilent(pugi::xml_node note);

// The sum of the beats of "3+2/8"; none where they cannot be the bars of a song.
std::optional<TimeSignature> timeSignatureOf(pugi::xml_node time);

// Whether a barline, a direction or a sound leads back to music before it.
bool leadsBack(pugi::xml_node element);

// By the lyric's number, which may be "2" as well as "part1verse2", or else by its name; a lyric
// without either belongs to the first verse.
int verseOf(pugi::xml_node lyric);

// In quarter notes: as long as a note or a rest is drawn; a quarter for want of a drawing.
double drawnLength(pugi::xml_node note);

// The words of a lyric; where two share a note, an elision stands between them.
ScoreSyllable readLyric(pugi::xml_node lyric, bool isTyped);

} // namespace wybeta::wysim::song
