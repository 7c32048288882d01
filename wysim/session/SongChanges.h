// SPDX-License-Identifier: GPL-3.0-or-later
//
// What a command did to the notes of a song.
#pragma once

#include "simulator/Event.h"
#include "simulator/HostObject.h"
#include "wysim/session/SongInEditor.h"

#include <cstddef>
#include <string>
#include <vector>

namespace wybeta::wysim::session {

struct PlacedNote {
    simulator::Handle<simulator::Event> event;
    std::size_t track;
    std::size_t index;
    std::string lyric;
};

// The notes of a song as they are now.
std::vector<PlacedNote> placedNotes(const SongInEditor& song);

// A line for each note that has changed, come or gone since.
std::vector<std::string> changesSince(const std::vector<PlacedNote>& before,
                                      const SongInEditor& song);

} // namespace wybeta::wysim::session
