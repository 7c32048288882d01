// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/song/Pitch.h"

#include <gtest/gtest.h>

#include <optional>

namespace wybeta::tests {

namespace {

using namespace wysim::song;

TEST(Pitch, IsNamedAsMusiciansDo) {
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
