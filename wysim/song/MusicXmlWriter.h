// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wysim/song/Song.h"

#include <string>

namespace wybeta::wysim::song {

// The song as an uncompressed MusicXML score, one part for each track. A division is written as a
// word whose syllables are the texts of its notes. Slurs, beams and breath marks are written as the
// notes' marks have them, but for beams at notes of a quarter and longer.
std::string musicXmlFromSong(const Song& song);

} // namespace wybeta::wysim::song
