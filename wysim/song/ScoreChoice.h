// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>

namespace wybeta::wysim::song {

// What of a score becomes a song.
struct ScoreChoice {
    std::optional<int> verse =
        {};                     // none: the first one; where that has no words, the first that has
    bool takesAllParts = false; // parts and voices without words beside those that have some
};

} // namespace wybeta::wysim::song
