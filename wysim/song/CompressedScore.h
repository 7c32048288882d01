// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace wybeta::wysim::song {

// Whether the bytes begin like a compressed score, whatever their file is called.
bool isCompressed(const std::string& bytes);

// The score in a compressed one, and what to warn of. Throws BadInput, also when the score is
// larger than the limit.
struct UnpackedScore {
    std::string bytes;
    std::vector<std::string> warnings;
};
UnpackedScore unpackScore(const std::string& bytes, std::size_t limit);

} // namespace wybeta::wysim::song
