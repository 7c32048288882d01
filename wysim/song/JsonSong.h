// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wysim/song/Song.h"

#include <string>

namespace wybeta::wysim::song {

// The simulator's own project file. What is written is read again as the same song.
std::string jsonFromSong(const Song& song);

// Throws BadInput, saying where.
Song songFromJson(const std::string& bytes);

} // namespace wybeta::wysim::song
