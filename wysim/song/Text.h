// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

namespace wybeta::wysim::song {

// "one", "one and two", "one, two and three".
std::string listOf(const std::vector<std::string>& texts);

} // namespace wybeta::wysim::song
