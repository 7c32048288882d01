// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace wybeta::wysim::song {

// A pitch in semitones as a musician writes it: 60 is "C4", 61 "C#4".
std::string formatPitch(int pitch);
// Reads "C4", "c#4", "Bb3" or a number of semitones.
std::optional<int> parsePitch(std::string_view text);

} // namespace wybeta::wysim::song
