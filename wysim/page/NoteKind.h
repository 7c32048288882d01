// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wysim/picture/NoteText.h"
#include "wysim/song/Song.h"

#include <string_view>

namespace wybeta::wysim::page {

// What a note carries, as a page tells it apart.
enum class NoteKind {
    Word,    // a lyric that is sung begins here
    Further, // a further syllable of the word before
    Unsung,  // a lyric without phonemes
    Empty,
};

// The text is that of the note.
NoteKind kindOf(const song::SongNote& note, const picture::NoteText& text);

std::string_view nameOf(NoteKind kind);

} // namespace wybeta::wysim::page
