// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "simulator/Editor.h"
#include "wysim/song/Song.h"

namespace wybeta::wysim::session {

// The song of a file with its words as a person may have typed them: the text without its phonemes
// in brackets wherever the notes of the word get the same from that. Other words stay. Tries the
// words in a track that it adds to the editor.
song::Song withPlainWords(simulator::Editor& editor, song::Song song);

} // namespace wybeta::wysim::session
