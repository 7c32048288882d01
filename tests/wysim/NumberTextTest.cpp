// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/song/NumberText.h"

#include <gtest/gtest.h>

#include <optional>

namespace wybeta::tests {

namespace {

using namespace wysim::song;

TEST(NumberText, IsWrittenWithoutNeedlessDigits) {
    EXPECT_EQ(formatNumber(2), "2");
    EXPECT_EQ(formatNumber(0.5), "0.5");
    EXPECT_EQ(formatNumber(99999), "99999");
}

TEST(NumberText, IsAWholeTextOnly) {
    EXPECT_EQ(parseNumber(" 1.5\n"), 1.5);
    EXPECT_EQ(parseInteger("-7"), -7);
    for (const auto* const text :
         {"", " ", "1x", "x", "1 2", "--1", "+-1", "0x1", "1p2", "inf", "nan", "1e999"}) {
        EXPECT_EQ(parseNumber(text), std::nullopt) << text;
        EXPECT_EQ(parseInteger(text), std::nullopt) << text;
    }
}

} // namespace

} // namespace wybeta::tests
