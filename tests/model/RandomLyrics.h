// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <random>
#include <string>
#include <string_view>

namespace wybeta::tests {

// Choices that a seed decides, the same on every system; or bytes, one for each choice, and after
// the last of them a seed that is always the same.
class Random {
public:
    explicit Random(std::uint32_t seed) : engine_(seed) {}
    // The bytes have to outlive this.
    explicit Random(std::string_view bytes) : hasBytes_(true), bytes_(bytes) {}

    std::size_t below(std::size_t limit) { return next() % limit; }
    bool oneIn(std::size_t chances) { return below(chances) == 0; }
    // Whether there were bytes, and none is left.
    bool isUsedUp() const { return hasBytes_ && bytes_.empty(); }

    template <class List>
    const auto& pick(const List& list) {
        return *(std::begin(list) + static_cast<std::ptrdiff_t>(below(std::size(list))));
    }

private:
    std::uint_fast32_t next() {
        if (bytes_.empty()) {
            return engine_();
        }
        const auto byte = static_cast<unsigned char>(bytes_.front());
        bytes_.remove_prefix(1);
        return byte;
    }

    std::mt19937 engine_;
    bool hasBytes_ = false;
    std::string_view bytes_;
};

// A lyric such as users type, or should not. May take up `present`, the lyric of some note.
std::string randomLyric(Random& random, const std::string& present);

} // namespace wybeta::tests
