// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/song/Pitch.h"

#include "wysim/song/NumberText.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstddef>

namespace wybeta::wysim::song {

namespace {

constexpr std::array kNames = {"C", "C#", "D", "D#", "E", "F", "F#", "G", "G#", "A", "A#", "B"};

} // namespace

std::string formatPitch(int pitch) {
    return kNames.at(static_cast<std::size_t>(pitch % 12)) + std::to_string(pitch / 12 - 1);
}

std::optional<int> parsePitch(std::string_view text) {
    const auto letter = static_cast<unsigned char>(text.empty() ? ' ' : text.front());
    const std::string step(1, static_cast<char>(std::toupper(letter)));
    const auto* const name = std::find(kNames.begin(), kNames.end(), step);
    if (name == kNames.end()) {
        return parseInteger(text);
    }
    text.remove_prefix(1);
    auto pitch = static_cast<int>(name - kNames.begin());
    if (!text.empty() && (text.front() == '#' || text.front() == 'b')) {
        pitch += text.front() == '#' ? 1 : -1;
        text.remove_prefix(1);
    }
    const auto octave = parseInteger(text);
    if (!octave || *octave < -1 || *octave > 9) {
        return std::nullopt;
    }
    return (*octave + 1) * 12 + pitch;
}

} // namespace wybeta::wysim::song
