// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wysim/song/Song.h"

#include <string>

namespace wybeta::wysim::picture {

// Draws the tracks of a song as piano rolls in SVG, as wide as a screen: the song before on the
// left, after on the right, row by row. Each note carries its lyric above and its syllable inside.
// Both songs have the same tracks.
std::string svgPicture(const song::Song& before, const song::Song& after);

} // namespace wybeta::wysim::picture
