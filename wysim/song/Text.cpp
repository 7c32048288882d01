// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/song/Text.h"

#include <cstddef>

namespace wybeta::wysim::song {

std::string listOf(const std::vector<std::string>& texts) {
    std::string list;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const auto* const gap = i == 0 ? "" : i + 1 == texts.size() ? " and " : ", ";
        list += gap + texts[i];
    }
    return list;
}

} // namespace wybeta::wysim::song
