// SPDX-License-Identifier: GPL-3.0-or-later
//
// The input is a project file of wysim. It is refused with BadInput, or is a song that keeps
// through writing and reading.
#include "wysim/song/JsonSong.h"
#include "fuzz/Check.h"
#include "fuzz/SongChecks.h"
#include "wysim/song/BadInput.h"
#include "wysim/song/Song.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace wybeta::fuzz {

namespace {

void readSong(const std::string& bytes) {
    wysim::song::Song song;
    try {
        song = wysim::song::songFromJson(bytes);
    } catch (const wysim::song::BadInput&) {
        return;
    }
    checkReadSong(song);
}

} // namespace

} // namespace wybeta::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    wybeta::fuzz::readSong(std::string(wybeta::fuzz::textOf(data, size)));
    return 0;
}
