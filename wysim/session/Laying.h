// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "simulator/Editor.h"
#include "wysim/laying/LaidText.h"
#include "wysim/song/Song.h"

#include <cstddef>
#include <string>

namespace wybeta::wysim::session {

// Types each laid word into an empty track of the editor, to see that its notes carry what was
// read. Throws ModuleDisagrees.
void proveLaid(simulator::Editor& editor, const laying::LaidText& laid);

// The song with the words typed into the track, yet to be divided. All words that were there go.
song::Song laidSong(song::Song song, std::size_t track, const laying::LaidText& laid);

// A table with a row for each line, and the line that counts them.
std::string layingTable(const laying::LaidText& laid);
std::string layingTotals(const laying::LaidText& laid);

// The words in JSON, in the order of the text.
std::string layingJson(const laying::LaidText& laid, const std::string& track);

// Whether every word is sung and has its notes.
bool isAllLaid(const laying::LaidText& laid);

} // namespace wybeta::wysim::session
