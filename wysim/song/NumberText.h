// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace wybeta::wysim::song {

// The same in every locale: a point for the fraction, and no more digits than needed.
std::string formatNumber(double value);

// The number that the whole text is, white space around it allowed; none for anything else, for
// infinities and for what is not a number.
std::optional<double> parseNumber(std::string_view text);
std::optional<int> parseInteger(std::string_view text);

} // namespace wybeta::wysim::song
