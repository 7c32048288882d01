// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/song/Numbers.h"

#include <array>
#include <cctype>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <locale>
#include <sstream>
#include <system_error>

namespace wybeta::wysim::song {

namespace {

constexpr std::array kNames = {"C", "C#", "D", "D#", "E", "F", "F#", "G", "G#", "A", "A#", "B"};

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view kSpace = " \t\r\n";
    const auto first = text.find_first_not_of(kSpace);
    return first == std::string_view::npos
               ? std::string_view()
               : text.substr(first, text.find_last_not_of(kSpace) - first + 1);
}

// In semitones above C; -1 for what is no name.
int stepOf(char letter) {
    switch (std::toupper(static_cast<unsigned char>(letter))) {
    case 'C':
        return 0;
    case 'D':
        return 2;
    case 'E':
        return 4;
    case 'F':
        return 5;
    case 'G':
        return 7;
    case 'A':
        return 9;
    case 'B':
        return 11;
    default:
        return -1;
    }
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

std::string formatPitch(int pitch) {
    return kNames.at(static_cast<std::size_t>(pitch % 12)) + std::to_string(pitch / 12 - 1);
}

std::optional<int> parsePitch(std::string_view text) {
    const int step = text.empty() ? -1 : stepOf(text.front());
    if (step < 0) {
        return parseInteger(text);
    }
    text.remove_prefix(1);
    int alter = 0;
    if (!text.empty() && (text.front() == '#' || text.front() == 'b')) {
        alter = text.front() == '#' ? 1 : -1;
        text.remove_prefix(1);
    }
    const auto octave = parseInteger(text);
    if (!octave || *octave < -1 || *octave > 9) {
        return std::nullopt;
    }
    return (*octave + 1) * 12 + step + alter;
}

} // namespace wybeta::wysim::song
