// SPDX-License-Identifier: GPL-3.0-or-later
//
// What a page is told, in JSON.
#pragma once

#include "wysim/session/Fitting.h"
#include "wysim/session/ScratchTrack.h"
#include "wysim/session/SongEditing.h"
#include "wysim/words/TextFinding.h"

#include <cstddef>
#include <string>
#include <vector>

namespace wybeta::wysim::page {

// The members of the object that tells of a song, without the braces around them.
std::string songMembers(const session::SongEditing& editing);

// What there is to say of a lyric. The syllables are those that it gives, of which some may be
// lost for want of notes.
std::string checkJson(const words::CheckedLyric& checked, const session::Syllables& syllables,
                      std::size_t lost);

std::string fitJson(const std::vector<session::FittedSongWord>& words);

} // namespace wybeta::wysim::page
