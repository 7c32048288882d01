// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <random>
#include <string>
#include <string_view>

namespace wybeta::tests {

// Choices that the seed alone decides, the same on every system.
class Random {
public:
    explicit Random(std::uint32_t seed) : engine_(seed) {}

    std::size_t below(std::size_t limit) { return engine_() % limit; }
    bool oneIn(std::size_t chances) { return below(chances) == 0; }

    template <class List>
    const auto& pick(const List& list) {
        return *(std::begin(list) + static_cast<std::ptrdiff_t>(below(std::size(list))));
    }

private:
    std::mt19937 engine_;
};

// A lyric such as users type, or should not. May take up `present`, the lyric of some note.
std::string randomLyric(Random& random, const std::string& present);

} // namespace wybeta::tests
