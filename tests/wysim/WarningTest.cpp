// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/wysim/SmallScores.h"
#include "tests/wysim/SongFixture.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
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

// What is said of an element that stands at the beginning of a score's first measure.
std::string said(const std::string& sentence, int line = 4) {
    return sentence + ", in measure 1 of 'Voice' at line " + std::to_string(line) + ", column 2";
}

std::string without(std::string element, const std::string& part) {
    return element.erase(element.find(part), part.size());
}

std::string graceOf(const std::string& more = "") {
    return "<note><grace/><pitch><step>B</step><octave>3</octave></pitch>" + more + "</note>\n";
}

std::string syllableOf(const std::string& text, const std::string& syllabic) {
    return "<lyric><syllabic>" + syllabic + "</syllabic><text>" + text + "</text></lyric>";
}

TEST(Warning, TellsOfGraceNotes) {
    EXPECT_EQ(warningsOf(scoreOf({graceOf() + graceOf() + noteOf("C4", 4)})),
              Lines{said("a grace note is not sung") + ", and 1 more"});
}

TEST(Warning, TellsThatTheWordsOfAGraceNoteGoToTheNextNote) {
    const auto opened = openBytes(
        scoreOf({graceOf(syllableOf("o", "begin")) + noteOf("C4", 4, syllableOf("ver", "end"))}));
    EXPECT_EQ(opened.warnings,
              Lines{said("a grace note is not sung, and its words go to the note after it")});
    EXPECT_EQ(linesOf(opened.song), Lines{"0 4 C4 over*"});
}

TEST(Warning, IsAllThatAGraceNoteLosesBeforeOtherWordsAndAtTheEnd) {
    EXPECT_EQ(linesOf(songFrom(scoreOf({graceOf(lyricOf("oh")) + noteOf("C4", 4, lyricOf("my"))}))),
              Lines{"0 4 C4 oh my*"});
    EXPECT_EQ(linesOf(songFrom(scoreOf({graceOf(lyricOf("oh")) + noteOf("C4", 4)}))),
              Lines{"0 4 C4 oh*"});
    EXPECT_EQ(linesOf(songFrom(scoreOf({noteOf("C4", 4, lyricOf("my")) + graceOf(lyricOf("oh"))}))),
              Lines{"0 4 C4 my oh*"});
    EXPECT_EQ(linesOf(songFrom(scoreOf({noteOf("C4", 4) + graceOf(lyricOf("oh"))}))),
              Lines{"0 4 C4 oh*"});
}

TEST(Warning, LeavesAVoiceInThatHasWordsOnItsLastGraceNoteOnly) {
    const auto score = scoreOf({noteOf("C4", 4, lyricOf("la") + voiceOf(1)) + backupOf(4) +
                                noteOf("A3", 4, voiceOf(2)) + graceOf(lyricOf("oh") + voiceOf(2))});
    EXPECT_EQ(linesOf(songFrom(score), 1), Lines{"0 4 A3 oh*"});
}

TEST(Warning, TellsOfNotesWithoutLength) {
    EXPECT_EQ(warningsOf(scoreOf({noteOf("C4", 0) + noteOf("D4", 4)})),
              Lines{said("a note without length is not sung")});
    const auto opened = openBytes(scoreOf({noteOf("C4", 0, lyricOf("la")) + noteOf("D4", 4)}));
    EXPECT_EQ(opened.warnings,
              Lines{said("a note without length is not sung, and its words go to the note after "
                         "it")});
    EXPECT_EQ(linesOf(opened.song), Lines{"0 4 D4 la*"});
}

TEST(Warning, TakesANoteOfHardlyAnyLengthForOneWithoutLength) {
    std::string score = scoreOf({noteOf("C4", 0, lyricOf("la")) + noteOf("D4", 4)});
    constexpr std::string_view kNoDuration = "<duration>0</duration>";
    score.replace(score.find(kNoDuration), kNoDuration.size(), "<duration>0.0000001</duration>");
    EXPECT_EQ(linesOf(openBytes(score).song), Lines{"0 4 D4 la*"});
}

TEST(Warning, TellsThatANoteWithoutADurationIsAsLongAsItIsDrawn) {
    const auto lengthOf = [](const std::string& drawing) {
        const auto note = without(noteOf("C4", 4, drawing), "<duration>4</duration>");
        const auto opened = openBytes(scoreOf({note}));
        EXPECT_EQ(opened.warnings,
                  Lines{said("a note without a duration is as long as it is drawn")});
        return opened.song.tracks[0].notes.at(0).length;
    };
    EXPECT_EQ(lengthOf("<type>half</type>"), 2);
    EXPECT_EQ(lengthOf("<type>eighth</type><dot/><dot/>"), 0.875);
    EXPECT_EQ(lengthOf("<type>quarter</type><time-modification><actual-notes>4</actual-notes>"
                       "<normal-notes>3</normal-notes></time-modification>"),
              0.75);
    EXPECT_EQ(lengthOf("<type>unknown</type>"), 1);
}

TEST(Warning, TellsThatANoteWithoutAnyLengthIsAQuarter) {
    const auto opened = openBytes(scoreOf({"<note><pitch><step>C</step><octave>4</octave></pitch>"
                                           "<duration> </duration></note>"}));
    EXPECT_EQ(opened.warnings, Lines{said("a note without a duration is a quarter note long")});
    EXPECT_EQ(linesOf(opened.song), Lines{"0 1 C4 "});
}

TEST(Warning, TellsOfBackupsAndForwardsWithoutADuration) {
    EXPECT_EQ(warningsOf(scoreOf({"<backup/>\n<forward/>\n"})),
              (Lines{said("a backup without a duration is passed over", 4),
                     said("a forward without a duration is passed over", 5)}));
}

TEST(Warning, TellsOfCueNotes) {
    EXPECT_EQ(warningsOf(scoreOf({noteOf("C4", 4, "<cue/>" + lyricOf("la"))})),
              Lines{said("a cue note is not sung")});
}

TEST(Warning, TellsOfTheWordsOfARest) {
    EXPECT_EQ(warningsOf(scoreOf({restOf(4, lyricOf("la")) + noteOf("C4", 4, lyricOf("la"))})),
              Lines{said("the words of a rest are not sung")});
}

TEST(Warning, TellsOfTwoLyricsInOneVerse) {
    const auto opened =
        openBytes(scoreOf({noteOf("C4", 4, lyricOf("one") + lyricOf("two") + lyricOf("-"))}));
    ASSERT_EQ(opened.warnings.size(), 1u);
    EXPECT_EQ(
        opened.warnings[0].find("a note has two lyrics in one verse, and the first is sung, "), 0u);
    EXPECT_EQ(linesOf(opened.song), Lines{"0 4 C4 one*"});
}

TEST(Warning, TellsOfNotesWithoutAPitch) {
    for (const auto* const pitch : {"", "<unpitched/>"}) {
        const auto opened =
            openBytes(scoreOf({"<note>" + std::string(pitch) + "<duration>1</duration></note>"}));
        EXPECT_EQ(opened.warnings, Lines{said("a note without a pitch becomes C4")});
        EXPECT_EQ(linesOf(opened.song), Lines{"0 1 C4 "});
    }
}

std::string timeOf(const std::string& beats, const std::string& beatType = "4") {
    return "<attributes><time><beats>" + beats + "</beats><beat-type>" + beatType +
           "</beat-type></time></attributes>\n";
}

TEST(Warning, TellsOfAChangeOfTheTimeSignature) {
    const auto opened = openBytes(
        scoreOf({timeOf("3") + timeOf("3") + noteOf("C4", 3), timeOf("4") + noteOf("C4", 4)}));
    EXPECT_EQ(opened.warnings, Lines{"a change of the time signature is passed over, in measure 2 "
                                     "of 'Voice' at line 9, column 14"});
    EXPECT_EQ(opened.song.time.beats, 3);
}

TEST(Warning, TellsOfTimeSignaturesThatNoSongCanHave) {
    for (const auto& time :
         {timeOf("many"), timeOf("0"), timeOf("3+x"), timeOf("3", "5"),
          std::string("<attributes><time><senza-misura/></time></attributes>"), timeOf("200+57"),
          timeOf("2147483647+2147483647"), timeOf("3</beats><beat-type>8</beat-type><beats>2")}) {
        const auto opened = openBytes(scoreOf({time + noteOf("C4", 4)}));
        ASSERT_EQ(opened.warnings.size(), 1u) << time;
        EXPECT_EQ(opened.warnings[0].find("a time signature that is not one such as 4/4 is passed "
                                          "over, in measure 1"),
                  0u);
        EXPECT_EQ(opened.song.time.beats, 4);
    }
}

TEST(Warning, TellsOfRepeats) {
    const auto forward = std::string("<barline><repeat direction='forward'/></barline>\n");
    EXPECT_EQ(warningsOf(scoreOf({forward + noteOf("C4", 4)})), Lines{});
    for (const auto* const element :
         {"<barline><repeat direction='backward'/></barline>", "<sound dacapo='yes'/>",
          "<direction><sound dalsegno='1'/></direction>"}) {
        EXPECT_EQ(warningsOf(scoreOf({element + noteOf("C4", 4)})),
                  Lines{said("a repeat is sung once")});
    }
}

TEST(Warning, TellsOfNotesOutsideOfMeasures) {
    auto score = scoreOf({noteOf("C4", 4)});
    score.insert(score.find("</part>"), noteOf("D4", 4));
    score.insert(score.find("</score-partwise>"), noteOf("D4", 4));
    EXPECT_EQ(warningsOf(score), Lines{"a note outside of the measures of the parts is not sung, "
                                       "at line 6, column 2, and 1 more"});
}

std::string replaced(std::string text, const std::string& old, const std::string& other) {
    for (auto at = text.find(old); at != std::string::npos; at = text.find(old)) {
        text.replace(at, old.size(), other);
    }
    return text;
}

TEST(Warning, TellsThatACompressedFileDoesNotNameItsScore) {
    const auto bytes = replaced(bytesOf(dataFile("stored.mxl")), "META-INF/container.xml",
                                "META-INF/xontainer.xml");
    const auto opened = openBytes(bytes);
    EXPECT_EQ(opened.warnings, Lines{"the zip file does not name its score; 'score.xml' is read"});
    EXPECT_EQ(linesOf(opened.song).size(), 4u);
    EXPECT_EQ(refusalOfBytes(replaced(bytes, "score.xml", "score.pdf")),
              "expected a score in the zip file, found none");
}

TEST(Warning, TellsOfASecondScoreInTheFile) {
    const auto score = scoreOf({noteOf("C4", 4)});
    EXPECT_EQ(warningsOf(score + score),
              Lines{"what follows the score is not read, at line 8, column 2"});
}

TEST(Warning, NamesTheMeasureOfAScoreInUtf16) {
    std::string bytes("\xFF\xFE", 2);
    for (const char letter : scoreOf({graceOf()})) {
        bytes += {letter, '\0'};
    }
    EXPECT_EQ(warningsOf(bytes), Lines{"a grace note is not sung, in measure 1 of 'Voice'"});
}

} // namespace

} // namespace wybeta::tests
