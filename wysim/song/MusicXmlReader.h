// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wysim/song/ScoreChoice.h"
#include "wysim/song/Song.h"
#include "wysim/song/XmlDocument.h"
#include "wysim/terminal/Progress.h"

#include <string>

namespace wybeta::wysim::song {

// Reads a score in MusicXML. Each voice that has words in the verse becomes a
// track; in a score without any words, and in one that wysim wrote, each voice does, and a part
// without notes becomes an empty one. Repeats are sung once. Throws BadInput, saying where, when it
// cannot be read at all.
//
// Without a verse that is asked for, it is the first; where that has no words, the first that has.
OpenedSong songFromMusicXml(const std::string& bytes, const ScoreChoice& choice,
                            terminal::Progress& progress);
// The same of a score that was compressed: what it says of a place names no line.
OpenedSong songFromMusicXml(UnpackedXml unpacked, const ScoreChoice& choice,
                            terminal::Progress& progress);

} // namespace wybeta::wysim::song
