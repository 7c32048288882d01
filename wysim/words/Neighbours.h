// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wysim/words/LyricReader.h"

#include <cstddef>
#include <string>
#include <vector>

namespace wybeta::wysim::words {

// The words of the dictionary that are one slip of the keyboard away from a word, the likelier
// first, so many at most. None for a word of less than 3 or more than 32 letters, as it could be
// any other, or for one with other characters than letters and apostrophes.
std::vector<std::u32string> knownNeighbours(std::u32string word, const LyricReader& reader,
                                            std::size_t most);

} // namespace wybeta::wysim::words
