// SPDX-License-Identifier: GPL-3.0-or-later
//
// A melody as it is to be sung: where its phrases begin, and which of its notes look held.
#pragma once

#include "wysim/song/Song.h"

#include <array>
#include <cstddef>
#include <vector>

namespace wybeta::wysim::laying {

// What in a score shows that a note goes on with the syllable of the note before it.
enum class HeldBy { Slurs, SlursAndBeams, Nothing, Beams };

constexpr std::size_t kWaysToHold = 4;

struct MelodyNote {
    bool beginsPhrase = false;
    // Whether rests or marks show where the phrase of the note begins and ends.
    bool isPhraseSure = true;
    std::array<bool, kWaysToHold> looksHeld = {};
    bool repeatsPitch = false; // of the note before it
    bool isShorter = false;    // than the note before it
    double weight = 0;         // of its place in the bar: 0 for a downbeat, up to 1
};

// Phrases end at rests, breath marks and double bars, and a long stretch without any at long notes
// and bar lines.
std::vector<MelodyNote> melodyOf(const song::Song& song, std::size_t track);

} // namespace wybeta::wysim::laying
