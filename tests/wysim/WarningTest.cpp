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

// A score with a note for each of the verses.
std::string verses(const Lines& numbers) {
    std::string notes;
    for (const auto& number : numbers) {
        notes += noteOf("C4", 1, lyricOf("la", number));
    }
    return scoreOf({notes});
}

TEST(Warning, TellsWhichVerseIsSungWhenThereAreSeveral) {
    EXPECT_EQ(warningsOf(verses({"1", "2"})), Lines{"verse 1 is sung, verse 2 is not"});
    EXPECT_EQ(warningsOf(verses({"1", "4", "2"})),
              Lines{"verse 1 is sung, verses 2 and 4 are not"});
    EXPECT_EQ(warningsOf(verses({"1", "2"}), 2), Lines{});
}

TEST(Warning, TellsWhenAnotherVerseThanTheFirstIsSung) {
    EXPECT_EQ(warningsOf(verses({"2"})), Lines{"verse 1 has no words; verse 2 is sung"});
    EXPECT_EQ(warningsOf(verses({"5", "2", "3"})),
              Lines{"verse 1 has no words; verse 2 is sung, verses 3 and 5 are not"});
}

TEST(Warning, TellsThatTheVerseThatIsAskedForHasNoWords) {
    EXPECT_EQ(warningsOf(verses({"1"}), 2), Lines{"verse 2 has no words; verse 1 has"});
    EXPECT_EQ(warningsOf(verses({"1", "2", "3"}), 4),
              Lines{"verse 4 has no words; verses 1, 2 and 3 have"});
    EXPECT_EQ(warningsOf(verses({}), 1), Lines{"verse 1 has no words, and no other has"});
}

TEST(Warning, IsNotGivenOnAMelodyWithoutWords) {
    EXPECT_EQ(warningsOf(scoreOf({noteOf("C4", 1)})), Lines{});
}

} // namespace

} // namespace wybeta::tests
