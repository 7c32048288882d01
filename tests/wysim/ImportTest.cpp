// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/Options.h"
#include "tests/wysim/SongFixture.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace wybeta::tests {

namespace {

using Lines = std::vector<std::string>;

Lines linesIn(const std::string& name, int verse = 1) {
    return linesOf(readSong(dataFile(name), verse));
}

TEST(Import, MakesOneNoteOfTiedNotes) {
    EXPECT_EQ(linesIn("ties.musicxml"), (Lines{"0 2 C4 one*", "2 7 D4 held*", "9 3 D4 last*"}));
}

TEST(Import, MakesNothingOfRests) {
    EXPECT_EQ(linesIn("rests.musicxml"), (Lines{"1 1 E4 two*", "3 1 F4 four*"}));
}

TEST(Import, KeepsTheTopNoteOfAChord) {
    EXPECT_EQ(linesIn("chords.musicxml"), (Lines{"0 2 G4 high*", "2 2 A4 top*"}));
}

TEST(Import, ReadsTheVerseThatIsAskedFor) {
    EXPECT_EQ(linesIn("verses.musicxml"), (Lines{"0 2 C4 first*", "2 2 D4 one*"}));
    EXPECT_EQ(linesIn("verses.musicxml", 2), (Lines{"0 2 C4 second*", "2 2 D4 two*"}));
    EXPECT_EQ(linesIn("verses.musicxml", 3), (Lines{"0 2 C4 third*", "2 2 D4 "}));
}

TEST(Import, NamesTheVersesThereAreWhenOneIsMissing) {
    EXPECT_NE(refusalOf(dataFile("verses.musicxml"), 4)
                  .find("expected words in verse 4, found words in verse 1 and 2 and 3"),
              std::string::npos);
}

TEST(Import, TypesAWordIntoItsFirstNoteWithoutHyphensAndMarks) {
    EXPECT_EQ(linesIn("words.musicxml"),
              (Lines{"0 1 C4 Abandon*", "1 1 D4 ", "2 1 E4 ", "3 1 F4 don't*", "4 1 C4 さくら*",
                     "5 1 D4 ", "6 1 E4 ", "7 1 F4 la*"}));
}

TEST(Import, LeavesNotesWithoutSyllablesOfTheirOwnEmpty) {
    EXPECT_EQ(linesIn("melisma.musicxml"),
              (Lines{"0 1 C4 twinkle*", "1 1 D4 ", "2 1 E4 ", "3 1 F4 "}));
}

TEST(Import, JoinsWordsThatShareANote) {
    EXPECT_EQ(linesIn("elision.musicxml"), (Lines{"0 1 C4 going away*", "1 1 D4 ", "2 2 E4 "}));
}

TEST(Import, MakesTracksOfSungPartsOnly) {
    const auto song = readSong(dataFile("unsung-part.musicxml"));
    ASSERT_EQ(song.tracks.size(), 1u);
    EXPECT_EQ(song.tracks[0].name, "Soprano");
    EXPECT_EQ(linesOf(song), Lines{"0 4 C5 sing*"});
}

TEST(Import, MakesATrackOfEachSungVoice) {
    const auto song = readSong(dataFile("two-voices.musicxml"));
    ASSERT_EQ(song.tracks.size(), 2u);
    EXPECT_EQ(song.tracks[0].name, "Choir (voice 1)");
    EXPECT_EQ(song.tracks[1].name, "Choir (voice 2)");
    EXPECT_EQ(song.tracks[1].notes.at(0).lyric, "low");
    EXPECT_EQ(song.tracks[1].notes.at(0).start, 0);
}

TEST(Import, TellsStavesApartWhereVoicesAreNotNamed) {
    EXPECT_EQ(linesIn("voiceless-staves.musicxml"), Lines{"0 4 E5 sung*"});
}

TEST(Import, KnowsAnIncompleteFirstMeasure) {
    const auto song = readSong(dataFile("pickup.musicxml"));
    EXPECT_EQ(song.pickup, 1);
    EXPECT_EQ(linesOf(song), (Lines{"0 1 D4 oh*", "1 4 G4 say*", "7 2 C#5 can*"}));
}

TEST(Import, PassesOverGraceNotes) {
    EXPECT_EQ(linesIn("grace-notes.musicxml"), Lines{"0 4 C4 plain*"});
}

TEST(Import, LeavesTimeForCueNotesThatAreNotSung) {
    EXPECT_EQ(linesIn("cue-notes.musicxml"), (Lines{"2 2 D4 love*", "4 4 E4 me*"}));
}

TEST(Import, FollowsAChangeOfDivisions) {
    EXPECT_EQ(linesIn("divisions.musicxml"),
              (Lines{"0 2 C4 half*", "2 2 D4 too*", "4 1 C4 one*", "5 3 D4 three*"}));
}

TEST(Import, ReadsCompressedScores) {
    const auto plain = linesIn("plain.musicxml");
    EXPECT_EQ(linesIn("compressed.mxl"), plain);
    EXPECT_EQ(linesIn("stored.mxl"), plain);
}

TEST(Import, ReadsScoresInUtf16) {
    const TemporaryFolder folder;
    std::string bytes("\xFF\xFE", 2);
    for (const char byte :
         R"(<score-partwise><part><measure><note><pitch><step>C</step><octave>4</octave></pitch>)"
         R"(<duration>1</duration><lyric><text>&#x304B;</text></lyric></note></measure></part>)"
         R"(</score-partwise>)") {
        if (byte != '\0') {
            bytes += byte;
            bytes += '\0';
        }
    }
    EXPECT_EQ(linesOf(readSong(folder.write("wide.xml", bytes))), Lines{"0 1 C4 か*"});
}

TEST(Import, ReadsTheExampleSongs) {
    for (const auto* const name :
         {"twinkle", "amazing-grace", "sakura", "hello-sakura", "gloria"}) {
        const auto path = sourceFile(std::string("wysim/songs/") + name + ".musicxml");
        EXPECT_EQ(refusalOf(path), "");
    }
}

} // namespace

} // namespace wybeta::tests
