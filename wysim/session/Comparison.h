// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "simulator/Editor.h"
#include "wysim/song/Song.h"
#include "wysim/terminal/Progress.h"
#include "wysim/words/LyricReader.h"
#include "wysim/words/SongWords.h"

#include <cstddef>
#include <string>
#include <vector>

namespace wybeta::wysim::session {

struct ComparedWord {
    words::SongWord word;
    std::size_t syllables; // that the extension gives
    std::string knownBy;   // what in the extension divided it: "dictionary", "kana", "brackets"
};

// Types each word of the song into an empty track of an editor that holds nothing else. Throws
// BadInput when the song has no words, ModuleDisagrees.
std::vector<ComparedWord> compareWords(simulator::Editor& editor, words::LyricReader& reader,
                                       const song::Song& song, terminal::Progress& progress);

// A table of the words, and the totals.
std::string comparisonText(const std::vector<ComparedWord>& words);

} // namespace wybeta::wysim::session
