// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wysim/song/Song.h"
#include "wysim/words/LyricReader.h"

namespace wybeta::wysim::words {

// The song of a file with its words as a person may have typed them: the text without its phonemes
// in brackets wherever the notes of the word get the same from that. Other words stay.
song::Song withPlainWords(LyricReader& reader, song::Song song);

} // namespace wybeta::wysim::words
