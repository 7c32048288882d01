// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/IProjectNode.h"

#include "pluginterfaces/base/smartpointer.h"

#include <string>
#include <vector>

namespace wybeta::tracks {

// The notes of one track that get a new lyric, in track order. The three lists have the same
// length; the texts are UTF-8.
struct LyricsDivision {
    // Null where the event does not answer IProjectNode.
    std::vector<Steinberg::IPtr<host::IProjectNode>> notes;
    std::vector<std::string> newLyrics;
    // What undo brings back: for a typed note the text from before the typing.
    std::vector<std::string> oldLyrics;
    // The event of the first note, by which undo and redo find its record; never dereferenced.
    const void* firstEvent = nullptr;
};

} // namespace wybeta::tracks
