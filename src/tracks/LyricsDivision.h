// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/IProjectNode.h"

#include "pluginterfaces/base/smartpointer.h"

#include <string>
#include <vector>

namespace wybeta::lyrics {

// The notes of one track that get a new lyric, in track order. The three lists are of one length;
// the texts are UTF-8.
struct LyricsDivision {
    // Null where the event does not answer IProjectNode.
    std::vector<Steinberg::IPtr<host::IProjectNode>> notes;
    std::vector<std::string> newLyrics;
    // What undo brings back: for a typed note the text from before the typing.
    std::vector<std::string> oldLyrics;
    // The event of the first note, as its note record has it; an address that is never followed.
    const void* firstEvent = nullptr;
};

} // namespace wybeta::lyrics
