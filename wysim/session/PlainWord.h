// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wysim/session/ScratchTrack.h"
#include "wysim/session/SongWords.h"

#include <string>

namespace wybeta::wysim::session {

// The text of a word without its phonemes in brackets, where its notes get the same from that.
std::string plainWord(ScratchTrack& scratch, const SongWord& word);

} // namespace wybeta::wysim::session
