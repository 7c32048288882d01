// SPDX-License-Identifier: GPL-3.0-or-later
//
// Times are sums of fractions of a quarter note: what is nearly equal is meant to be equal.
#pragma once

#include <cmath>

namespace wybeta::wysim::song {

constexpr double kNearly = 1e-6;

inline bool isSameTime(double a, double b) {
    return std::abs(a - b) < kNearly;
}

inline bool isBefore(double a, double b) {
    return a < b - kNearly;
}

// How many whole measures or rows a time is, given as a fraction of them.
inline double wholeOf(double count) {
    return std::floor(count + kNearly);
}

} // namespace wybeta::wysim::song
