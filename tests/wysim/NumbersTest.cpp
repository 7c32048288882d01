// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/song/Numbers.h"

#include <gtest/gtest.h>

#include <optional>

namespace wybeta::tests {

namespace {

using namespace wysim::song;

TEST(Numbers, AreWrittenWithoutNeedlessDigits) {
    EXPECT_EQ(formatNumber(2), "2");
    EXPECT_EQ(formatNumber(0.5), "0.5");
    EXPECT_EQ(formatNumber(99999), "99999");
}

TEST(Numbers, AreWholeTextsOnly) {
    EXPECT_EQ(parseNumber(" 1.5\n"), 1.5);
    EXPECT_EQ(parseInteger("-7"), -7);
    for (const auto* const text : {"", " ", "1x", "x", "1 2", "--1", "+-1", "0x1", "1e999"}) {
        EXPECT_EQ(parseNumber(text), std::nullopt) << text;
        EXPECT_EQ(parseInteger(text), std::nullopt) << text;
    }
}

TEST(Numbers, NamePitchesAsMusiciansDo) {
    EXPECT_EQ(formatPitch(60), "C4");
    EXPECT_EQ(formatPitch(0), "C-1");
    EXPECT_EQ(parsePitch("C4"), 60);
    EXPECT_EQ(parsePitch("bb3"), 58);
    EXPECT_EQ(parsePitch("F#3"), 54);
    EXPECT_EQ(parsePitch("127"), 127);
    for (int pitch = 0; pitch < 128; ++pitch) {
        EXPECT_EQ(parsePitch(formatPitch(pitch)), pitch);
    }
    for (const auto* const text : {"", "C", "H4", "C44", "C#", "C##4", "C4x"}) {
        EXPECT_EQ(parsePitch(text), std::nullopt) << text;
    }
}

} // namespace

} // namespace wybeta::tests
