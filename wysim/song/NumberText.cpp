// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/song/NumberText.h"

#include <charconv>
#include <cmath>
#include <locale>
#include <sstream>
#include <system_error>

namespace wybeta::wysim::song {

namespace {

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view kSpace = " \t\r\n";
    const auto first = text.find_first_not_of(kSpace);
    return first == std::string_view::npos
               ? std::string_view()
               : text.substr(first, text.find_last_not_of(kSpace) - first + 1);
}

// Some libraries read hexadecimal digits as well.
bool isDecimal(std::string_view text) {
    return text.find_first_not_of("0123456789.+-eE") == std::string_view::npos;
}

} // namespace

std::string formatNumber(double value) {
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text.precision(10);
    text << value;
    return text.str();
}

std::optional<double> parseNumber(std::string_view text) {
    text = trimmed(text);
    std::istringstream stream{std::string(text)};
    stream.imbue(std::locale::classic());
    double value = 0;
    const bool isNumber = isDecimal(text) && stream >> std::noskipws >> value && stream.eof();
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
