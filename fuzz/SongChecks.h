// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "fuzz/Check.h"
#include "wysim/song/BadInput.h"
#include "wysim/song/JsonSong.h"
#include "wysim/song/Song.h"

#include <string>

namespace wybeta::fuzz {

// What has to hold of every song that was read: it is within the bounds of a song, and its project
// file is read again as the same song.
inline void checkReadSong(const wysim::song::Song& song) {
    try {
        wysim::song::checkSong(song);
        for (const auto& track : song.tracks) {
            for (const auto& note : track.notes) {
                wysim::song::checkNote(note);
            }
        }
        const auto text = wysim::song::jsonFromSong(song);
        checkEqual(wysim::song::jsonFromSong(wysim::song::songFromJson(text)), text);
    } catch (const wysim::song::BadInput& error) {
        fail(std::string("a song that was read is refused: ") + error.what());
    }
}

} // namespace wybeta::fuzz
