// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/words/FittedWord.h"

#include <cstddef>

namespace wybeta::wysim::words {

std::string nameOf(Outcome outcome) {
    static constexpr const char* kNames[] = {"as it is",          "hyphens",    "other entry",
                                             "brackets",          "guess",      "unknown",
                                             "divided otherwise", "not reached"};
    return kNames[static_cast<std::size_t>(outcome)];
}

} // namespace wybeta::wysim::words
