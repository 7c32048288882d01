// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "simulator/Editor.h"
#include "wysim/song/Song.h"
#include "wysim/terminal/Progress.h"
#include "wysim/words/FittedWord.h"
#include "wysim/words/LyricReader.h"
#include "wysim/words/SongWords.h"
#include "wysim/words/WordFitter.h"

#include <cstddef>
#include <map>
#include <string>
#include <vector>

namespace wybeta::wysim::session {

using words::FittedWord;
using words::Outcome;

struct FittedSongWord {
    words::SongWord word;
    FittedWord fitted;
    words::Syllables carried; // by its notes, when the module divides the text
};

// Fits each word of the song, and types each text into an empty track of the editor to see what the
// notes then carry. Throws ModuleDisagrees.
std::vector<FittedSongWord> fitWords(simulator::Editor& editor, words::LyricReader& reader,
                                     const song::Song& song, words::WaysToFit ways,
                                     terminal::Progress& progress);

// The song with the fitted words typed, yet to be divided.
song::Song fittedSong(song::Song song, const std::vector<FittedSongWord>& words);

// The fitted song as it is typed beside how the editor divides it, in SVG.
std::string fittedPicture(simulator::Editor& editor, const song::Song& fitted);

// How many words there are of each outcome.
std::map<Outcome, std::size_t> countOutcomes(const std::vector<FittedSongWord>& words);
// Those that could not be fitted.
std::size_t countNotFitted(const std::vector<FittedSongWord>& words);

bool areAllFitted(const std::vector<FittedSongWord>& words);

// A table of the words, and the line that counts them.
std::string fittingTable(const std::vector<FittedSongWord>& words);
std::string fittingTotals(const std::vector<FittedSongWord>& words, words::WaysToFit ways);

} // namespace wybeta::wysim::session
