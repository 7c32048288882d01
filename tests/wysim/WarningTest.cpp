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
        openBytes(scoreOf({noteOf("C4", 4), restOf(2) + backupOf(3) + noteOf("E4", 1)}));
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

TEST(Warning, NamesThePartsAndVoicesThatAreLeftOut) {
    const auto sung = noteOf("C4", 4, lyricOf("la") + voiceOf(1));
    const auto flute = SmallPart{"Flute", {noteOf("C5", 4)}};
    EXPECT_EQ(warningsOf(scoreOf({flute, {"Alto", {sung}}})),
              Lines{"'Flute' has no words in verse 1 and is left out"});
    EXPECT_EQ(warningsOf(scoreOf({flute,
                                  {"Alto", {sung + backupOf(4) + noteOf("A3", 4, voiceOf(2))}},
                                  {"Oboe", {noteOf("C5", 4)}}})),
              Lines{"'Flute', 'Alto (voice 2)' and 'Oboe' have no words in verse 1 and are left "
                    "out"});
}

TEST(Warning, IsNotGivenOnAPartOfRestsThatIsLeftOut) {
    const auto score =
        scoreOf({{"Flute", {restOf(4)}}, {"Alto", {noteOf("C4", 4, lyricOf("la"))}}});
    EXPECT_EQ(warningsOf(score), Lines{});
    EXPECT_EQ(trackNames(songFrom(score)), Lines{"Alto"});
}

TEST(Warning, CountsTheNotesOfChordsThatAreNotSung) {
    const auto chord = noteOf("G4", 2, lyricOf("la")) + noteOf("E4", 2, "<chord/>");
    EXPECT_EQ(warningsOf(scoreOf({chord})), Lines{"a chord gives its top note only, in measure 1 "
                                                  "of 'Voice' at line 5, column 2"});
    EXPECT_EQ(warningsOf(scoreOf({chord + noteOf("C4", 2, "<chord/>") + chord})),
              Lines{"a chord gives its top note only, in measure 1 of 'Voice' at line 5, column 2, "
                    "and 2 more"});
}

TEST(Warning, TellsWhereWordsOfAChordAreLost) {
    const auto chord = [](const std::string& lower) {
        return openBytes(scoreOf(
            {noteOf("E4", 2, lyricOf("low")) + noteOf("G4", 2, "<chord/>" + lyricOf(lower))}));
    };
    EXPECT_EQ(chord("low").warnings.size(), 1u);
    const auto opened = chord("high");
    EXPECT_EQ(linesOf(opened.song), Lines{"0 2 G4 high*"});
    ASSERT_EQ(opened.warnings.size(), 2u);
    EXPECT_EQ(opened.warnings[1],
              "a chord has words of its own on each of its notes, and those of the top note are "
              "sung, in measure 1 of 'Voice' at line 4, column 2");
}

TEST(Warning, TellsWhereANoteIsCut) {
    const auto opened = openBytes(scoreOf({noteOf("C4", 4) + backupOf(2) + noteOf("D4", 2)}));
    EXPECT_EQ(opened.warnings, Lines{"a note ends where the next of its voice begins, in measure 1 "
                                     "of 'Voice' at line 4, column 2"});
    EXPECT_EQ(linesOf(opened.song), (Lines{"0 2 C4 ", "2 2 D4 "}));
}

} // namespace

} // namespace wybeta::tests
