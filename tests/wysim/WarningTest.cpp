// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/wysim/SmallScores.h"
#include "tests/wysim/SongFixture.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace wybeta::tests {

namespace {

using Lines = std::vector<std::string>;

TEST(Warning, IsNotGivenOnAScoreThatIsSungAsItIsWritten) {
    EXPECT_EQ(warningsOf(scoreOf({noteOf("C4", 4, lyricOf("la"))})), Lines{});
}

TEST(Warning, TellsWhereABackupGoesBeyondTheStartOfItsMeasure) {
    const auto opened =
        openBytes(scoreOf({noteOf("C4", 4), noteOf("D4", 2) + backupOf(3) + noteOf("E4", 1)}));
    EXPECT_EQ(opened.warnings, Lines{"a backup beyond the start of its measure goes to that start, "
                                     "in measure 2 of 'Voice' at line 8, column 2"});
    EXPECT_EQ(linesOf(opened.song), (Lines{"0 4 C4 ", "4 1 E4 "}));
}

TEST(Warning, IsGivenOnceForAllOfAKind) {
    const auto measure = noteOf("C4", 1) + backupOf(2);
    EXPECT_EQ(warningsOf(scoreOf({measure, measure, measure})),
              Lines{"a backup beyond the start of its measure goes to that start, in measure 1 of "
                    "'Voice' at line 5, column 2, and 2 more"});
}

TEST(Warning, NamesThePart) {
    const auto warnings =
        warningsOf(scoreOf({{"Alto", {noteOf("C4", 1)}}, {"", {noteOf("C4", 1) + backupOf(2)}}}));
    ASSERT_EQ(warnings.size(), 1u);
    EXPECT_NE(warnings[0].find(", in measure 1 of 'Part 2' at line"), std::string::npos);
}

} // namespace

} // namespace wybeta::tests
