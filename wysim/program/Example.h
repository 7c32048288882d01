// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wysim/song/Song.h"

namespace wybeta::wysim::program {

// Two bars to try things on, for who has no song at hand yet.
song::Song exampleSong();

} // namespace wybeta::wysim::program
