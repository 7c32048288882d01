// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/song/Pitch.h"

#include "wysim/song/NumberText.h"

#include <array>
#include <cctype>
#include <cstddef>

namespace wybeta::wysim::song {

namespace {

constexpr std::array kNames = {"C", "C#", "D", "D#", "E", "F", "F#", "G", "G#", "A", "A#", "B"};

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
