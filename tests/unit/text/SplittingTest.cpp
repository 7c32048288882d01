// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/Splitting.h"

#include <gtest/gtest.h>

#include <cctype>
#include <limits>
#include <string_view>
#include <vector>

namespace wybeta::text {
namespace {

using Pieces = std::vector<std::string_view>;

TEST(Splitting, KeepsEmptyPieces) {
    EXPECT_EQ(splitText("a,,b", ","), (Pieces{"a", "", "b"}));
    EXPECT_EQ(splitText(",", ","), (Pieces{"", ""}));
    EXPECT_EQ(splitText("a,", ","), (Pieces{"a", ""}));
}

TEST(Splitting, GivesOneEmptyPieceForAnEmptyText) {
    EXPECT_EQ(splitText("", ","), Pieces{""});
}

TEST(Splitting, GivesTheWholeTextWhereTheDelimiterIsNotFound) {
    EXPECT_EQ(splitText("a b", ","), Pieces{"a b"});
}

TEST(Splitting, TakesTheWholeDelimiterFromTheLeft) {
    EXPECT_EQ(splitText("a . b . c", " . "), (Pieces{"a", "b", "c"}));
    EXPECT_EQ(splitText("a.b", " . "), Pieces{"a.b"});
    EXPECT_EQ(splitText("-----", "--"), (Pieces{"", "", "-"}));
}

TEST(Splitting, CutsAtRunsOfWhiteSpaceForAnEmptyDelimiter) {
    EXPECT_EQ(splitText(" b \t ae\r\nn\v\f", ""), (Pieces{"b", "ae", "n"}));
    EXPECT_EQ(splitText("b", ""), Pieces{"b"});
}

TEST(Splitting, GivesNoPieceOfWhiteSpaceAlone) {
    EXPECT_EQ(splitText("", ""), Pieces{});
    EXPECT_EQ(splitText(" \t\n", ""), Pieces{});
}

TEST(Splitting, LeavesTheRestWholeBehindTheGreatestNumberOfCuts) {
    EXPECT_EQ(splitText("a,b,c", ",", 0), Pieces{"a,b,c"});
    EXPECT_EQ(splitText("a,b,c", ",", 1), (Pieces{"a", "b,c"}));
    EXPECT_EQ(splitText("a,b,c", ",", 2), (Pieces{"a", "b", "c"}));
    EXPECT_EQ(splitText("a,b,c", ",", 3), (Pieces{"a", "b", "c"}));
    EXPECT_EQ(splitText(" a  b  c ", "", 0), Pieces{"a  b  c "});
    EXPECT_EQ(splitText(" a  b  c ", "", 1), (Pieces{"a", "b  c "}));
    EXPECT_EQ(splitText(" a  b  c ", "", 3), (Pieces{"a", "b", "c"}));
    EXPECT_EQ(splitText(" ", "", 0), Pieces{});
}

TEST(Splitting, HasNoLimitForANegativeNumberOfCuts) {
    EXPECT_EQ(splitText("a,b,c", ",", -1), (Pieces{"a", "b", "c"}));
    EXPECT_EQ(splitText("a,b,c", ",", std::numeric_limits<int>::min()), (Pieces{"a", "b", "c"}));
    EXPECT_EQ(splitText("a b c", "", -7), (Pieces{"a", "b", "c"}));
}

TEST(Splitting, GivesViewsIntoTheText) {
    const std::string_view text = "a,b";
    const Pieces pieces = splitText(text, ",");
    EXPECT_EQ(pieces.at(0).data(), text.data());
    EXPECT_EQ(pieces.at(1).data(), text.data() + 2);
}

TEST(SplittingJoin, PutsTheSeparatorBetweenThePieces) {
    EXPECT_EQ(joinText({"b", "ae", "n"}, " "), "b ae n");
    EXPECT_EQ(joinText({"b"}, " "), "b");
    EXPECT_EQ(joinText({"", "", ""}, " . "), " .  . ");
}

TEST(SplittingJoin, GivesAnEmptyTextForNoPieces) {
    EXPECT_EQ(joinText({}, " "), "");
}

TEST(SplittingJoin, UndoesSplitText) {
    for (const std::string_view text : {"", ",", "a,,b", ",a,b,"}) {
        EXPECT_EQ(joinText(splitText(text, ","), ","), text);
    }
}

TEST(SplittingIsSpace, AgreesWithTheCLocaleOnEveryByte) {
    for (int byte = 0; byte <= 0xFF; ++byte) {
        EXPECT_EQ(isSpace(static_cast<char>(byte)), std::isspace(byte) != 0) << byte;
    }
}

TEST(SplittingTrimmed, TakesWhiteSpaceOffBothEndsOnly) {
    EXPECT_EQ(trimmed("\t\n\v\f\r a b \t\n\v\f\r"), "a b");
    EXPECT_EQ(trimmed("a"), "a");
    EXPECT_EQ(trimmed(" \t "), "");
    EXPECT_EQ(trimmed(""), "");
}

} // namespace
} // namespace wybeta::text
