// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wysim/song/Song.h"

namespace wybeta::wysim::song {

// Two bars to try things on, for who has no song at hand yet.
Song exampleSong();
// The same for who reads Japanese.
Song japaneseExampleSong();

} // namespace wybeta::wysim::song
