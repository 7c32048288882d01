// SPDX-License-Identifier: GPL-3.0-or-later
//
// What a page is told, in JSON.
#pragma once

#include "wysim/laying/LaidText.h"
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

// A word of a text that is not sung, and what there is to say of it.
struct UnsungWord {
    laying::LaidWord word;
    const words::CheckedLyric& check;
};

struct CountedLine {
    laying::LaidLine line;
    std::vector<UnsungWord> unsung;
};

std::string linesJson(const std::vector<CountedLine>& lines);

// How a text was laid, and how many words it replaced.
std::string laidJson(const laying::LaidText& laid, std::size_t replaced);

std::string fitJson(const std::vector<session::FittedSongWord>& words);

} // namespace wybeta::wysim::page
