// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/song/NumberText.h"

#include "wysim/song/Text.h"

#include <charconv>
#include <cmath>
#include <locale>
#include <sstream>
#include <system_error>

namespace wybeta::wysim::song {

std::string formatNumber(double value) {
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text.precision(10);
    text << value;
    return text.str();
}

std::optional<double> parseNumber(std::string_view text) {
    std::istringstream stream{std::string(trimmed(text))};
    stream.imbue(std::locale::classic());
    double value = 0;
    const bool isNumber = stream >> std::noskipws >> value && stream.eof();
    return isNumber && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

std::optional<int> parseInteger(std::string_view text) {
    text = trimmed(text);
    const char* const end = text.data() + text.size();
    int value = 0;
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    return error == std::errc() && stop == end ? std::optional(value) : std::nullopt;
}

} // namespace wybeta::wysim::song
