// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "simulator/Editor.h"

#include <string>
#include <vector>

namespace wybeta::wysim::session {

// A sentence on each part of a lyric that is not sung; none on a lyric that is longer than a check
// goes. Tries the parts in another project: before the next edit, the editor has to notify the
// extension. Throws BadInput when the lyric is no line of text.
std::vector<std::string> sentencesOnUnsungParts(const simulator::Editor& editor,
                                                const std::string& lyric);

} // namespace wybeta::wysim::session
