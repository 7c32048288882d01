// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wysim/song/Song.h"

#include <string>

namespace wybeta::wysim::page {

// The name, the type and the text of a file, in JSON: the song as it is now for "musicxml" and
// "json", the song as it was opened beside it for "svg". The name of the file is made from that of
// the song. Throws BadInput for other kinds.
std::string fileJson(const std::string& kind, const std::string& name, const song::Song& opened,
                     const song::Song& now);

} // namespace wybeta::wysim::page
