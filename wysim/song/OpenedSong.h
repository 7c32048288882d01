// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wysim/song/Song.h"

#include <string>
#include <vector>

namespace wybeta::wysim::song {

// A song from a file, and what of the file it does not hold as it is written there.
struct OpenedSong {
    Song song;
    std::vector<std::string> warnings; // each a sentence without its full stop
};

} // namespace wybeta::wysim::song
