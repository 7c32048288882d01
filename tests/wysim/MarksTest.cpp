// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/Options.h"
#include "tests/wysim/SmallScores.h"
#include "tests/wysim/SongFixture.h"
#include "wysim/song/Song.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

namespace wybeta::tests {

namespace {

std::string slur(const std::string& type, const std::string& number = "1") {
    return "<notations><slur type='" + type + "' number='" + number + "'/></notations>";
}

std::string slurs(const std::string& first, const std::string& second) {
    return slur(first) + slur(second);
}

std::string tied(const std::string& type) {
    return "<tie type='" + type + "'/>";
}

std::string beam(const std::string& state) {
    return "<beam number='1'>" + state + "</beam>";
}

std::string articulation(const std::string& name) {
    return "<notations><articulations><" + name + "/></articulations></notations>";
}

std::string barline(const std::string& style, const std::string& location = "right") {
    return "<barline location='" + location + "'><bar-style>" + style + "</bar-style></barline>";
}

std::string grace(const std::string& pitch, const std::string& more) {
    return "<note><grace/><pitch><step>" + pitch.substr(0, 1) + "</step><octave>" +
           pitch.substr(1) + "</octave></pitch>" + more + "</note>";
}

// The marks of the track of a score whose measures hold that.
std::string marksIn(const std::vector<std::string>& measures, std::size_t track = 0) {
    return marksOf(songFrom(scoreOf(measures)), track);
}

TEST(SlurOfAScore, JoinsItsNotesButNotTheNotesAround) {
    EXPECT_EQ(marksIn({noteOf("C4", 1) + noteOf("D4", 1, slur("start")) + noteOf("E4", 1) +
                       noteOf("F4", 1, slur("stop")) + noteOf("G4", 1)}),
              "C4 D4 ~E4 ~F4 G4");
}

TEST(SlurOfAScore, MayHaveNoNumber) {
    const auto plain = [](const std::string& type) {
        return "<notations><slur type='" + type + "'/></notations>";
    };
    EXPECT_EQ(marksIn({noteOf("C4", 1, plain("start")) + noteOf("D4", 1, slur("stop", "1"))}),
              "C4 ~D4");
}

TEST(SlurOfAScore, ReachesOverARestAndABar) {
    EXPECT_EQ(marksIn({noteOf("C4", 3, slur("start")) + restOf(1),
                       noteOf("D4", 2, slur("stop")) + noteOf("E4", 2)}),
              "C4 ~D4 E4");
}

TEST(SlurOfAScore, GoesOnThroughTiedNotes) {
    EXPECT_EQ(marksIn({noteOf("C4", 1, slur("start")) + noteOf("D4", 1, tied("start")) +
                       noteOf("D4", 1, tied("stop")) + noteOf("E4", 1, slur("stop"))}),
              "C4 ~D4 ~E4");
}

TEST(SlurOfAScore, MayBeginAndEndAtAnyOfTiedNotes) {
    for (const bool isFirst : {true, false}) {
        const auto held = [isFirst](const std::string& type) {
            return noteOf("C4", 1, tied("start") + (isFirst ? slur(type) : "")) +
                   noteOf("C4", 1, tied("stop") + (isFirst ? "" : slur(type)));
        };
        EXPECT_EQ(marksIn({held("start") + noteOf("D4", 1, slur("stop"))}), "C4 ~D4");
        EXPECT_EQ(marksIn({noteOf("D4", 1, slur("start")) + held("stop") + noteOf("E4", 1)}),
                  "D4 ~C4 E4");
    }
}

TEST(SlurOfAScore, JoinsNothingAroundOneTiedNote) {
    EXPECT_EQ(marksIn({noteOf("B3", 1) + noteOf("C4", 1, tied("start") + slur("start")) +
                       noteOf("C4", 1, tied("stop") + slur("stop")) + noteOf("D4", 1)}),
              "B3 C4 D4");
}

TEST(SlurOfAScore, FromAGraceNoteIsNone) {
    EXPECT_EQ(marksIn({noteOf("C4", 1) + grace("E4", slur("start")) +
                       noteOf("D4", 1, slur("stop")) + noteOf("E4", 1)}),
              "C4 D4 E4");
}

TEST(SlurOfAScore, FromAGraceNoteEndsNoOtherSlur) {
    EXPECT_EQ(marksIn({noteOf("C4", 1, slur("start", "1")) + grace("E4", slur("start", "2")) +
                       noteOf("D4", 1, slur("stop", "2")) + noteOf("E4", 1, slur("stop", "1"))}),
              "C4 ~D4 ~E4");
}

TEST(SlurOfAScore, ToAGraceNoteEndsBeforeIt) {
    EXPECT_EQ(marksIn({noteOf("C4", 1, slur("start")) + noteOf("D4", 1) +
                       grace("E4", slur("stop")) + noteOf("F4", 1)}),
              "C4 ~D4 F4");
}

TEST(SlurOfAScore, FromARestOrACueNoteIsNone) {
    for (const auto& silent :
         {restOf(1, slur("start")), noteOf("E4", 1, "<cue/>" + slur("start"))}) {
        EXPECT_EQ(marksIn({noteOf("C4", 1) + silent + noteOf("D4", 1, slur("stop"))}), "C4 D4");
    }
}

TEST(SlurOfAScore, ThatNeverEndsIsNone) {
    EXPECT_EQ(marksIn({noteOf("C4", 1, slur("start")) + noteOf("D4", 1) + noteOf("E4", 1)}),
              "C4 D4 E4");
    EXPECT_EQ(marksIn({noteOf("C4", 1, slur("start")) + noteOf("D4", 1, slur("start")) +
                       noteOf("E4", 1, slur("stop"))}),
              "C4 D4 ~E4");
    EXPECT_EQ(marksIn({noteOf("C4", 1, slur("start")) + noteOf("D4", 1) +
                       grace("F4", slur("start")) + noteOf("E4", 1, slur("stop"))}),
              "C4 D4 E4");
}

TEST(SlurOfAScore, ThatNeverBeganIsNone) {
    EXPECT_EQ(marksIn({noteOf("C4", 1) + noteOf("D4", 1, slur("stop")) + noteOf("E4", 1)}),
              "C4 D4 E4");
    EXPECT_EQ(marksIn({restOf(1, slur("stop")) + noteOf("D4", 1, slur("stop"))}), "D4");
}

TEST(SlurOfAScore, MayOverlapAnotherOfAnotherNumber) {
    EXPECT_EQ(marksIn({noteOf("C4", 1, slur("start", "1")) + noteOf("D4", 1, slur("start", "2")) +
                       noteOf("E4", 1, slur("stop", "1")) + noteOf("F4", 1) +
                       noteOf("G4", 1, slur("stop", "2")) + noteOf("A4", 1)}),
              "C4 ~D4 ~E4 ~F4 ~G4 A4");
}

TEST(SlurOfAScore, MayHoldAShorterOne) {
    EXPECT_EQ(marksIn({noteOf("C4", 1, slur("start", "1")) + noteOf("D4", 1, slur("start", "2")) +
                       noteOf("E4", 1, slur("stop", "2")) + noteOf("F4", 1) +
                       noteOf("G4", 1, slur("stop", "1")) + noteOf("A4", 1)}),
              "C4 ~D4 ~E4 ~F4 ~G4 A4");
}

TEST(SlurOfAScore, MayBeginWhereAnotherEndsInEitherOrder) {
    for (const auto& both : {slurs("stop", "start"), slurs("start", "stop")}) {
        EXPECT_EQ(
            marksIn({noteOf("B3", 1) + noteOf("C4", 1, slur("start")) + noteOf("D4", 1, both) +
                     noteOf("E4", 1, slur("stop")) + noteOf("F4", 1)}),
            "B3 C4 ~D4 ~E4 F4");
    }
}

TEST(SlurOfAScore, JoinsTheTopNotesOfChords) {
    const auto chord = [](const std::string& low, const std::string& top, const std::string& type) {
        return noteOf(low, 1, slur(type)) + noteOf(top, 1, "<chord/>");
    };
    EXPECT_EQ(marksIn({chord("C4", "G4", "start") + chord("D4", "A4", "stop") +
                       chord("C4", "G4", "continue")}),
              "G4 ~A4 G4");
}

TEST(SlurOfAScore, StaysInItsVoice) {
    const auto voices = noteOf("C5", 1, voiceOf(1) + slur("start")) +
                        noteOf("D5", 1, voiceOf(1) + slur("stop")) + backupOf(2) +
                        noteOf("C4", 1, voiceOf(2)) + noteOf("D4", 1, voiceOf(2) + slur("stop"));
    EXPECT_EQ(marksIn({voices}), "C5 ~D5");
    EXPECT_EQ(marksIn({voices}, 1), "C4 D4");
}

TEST(SlurOfAScore, EndsWithItsPart) {
    const auto song =
        songFrom(scoreOf({{"Alto", {noteOf("C4", 1, slur("start"))}},
                          {"Bass", {noteOf("C3", 1) + noteOf("D3", 1, slur("stop"))}}}));
    EXPECT_EQ(marksOf(song, 1), "C3 D3");
}

TEST(BeamOfAScore, JoinsItsNotesButNotTheNotesAround) {
    EXPECT_EQ(marksIn({noteOf("B3", 1) + noteOf("C4", 1, beam("begin")) +
                       noteOf("D4", 1, beam("continue")) + noteOf("E4", 1, beam("end")) +
                       noteOf("F4", 1, beam("begin")) + noteOf("G4", 1, beam("end"))}),
              "B3 C4 =D4 =E4 F4 =G4");
}

TEST(BeamOfAScore, MayHaveNoNumber) {
    EXPECT_EQ(
        marksIn({noteOf("C4", 1, "<beam>begin</beam>") + noteOf("D4", 1, "<beam>\n end\n</beam>")}),
        "C4 =D4");
}

TEST(BeamOfAScore, ThatIsNotTheFirstJoinsNothing) {
    EXPECT_EQ(
        marksIn({noteOf("C4", 1, beam("begin")) + noteOf("D4", 1, "<beam number='2'>end</beam>") +
                 noteOf("E4", 1, "<beam number='1'>forward hook</beam>")}),
        "C4 D4 E4");
}

TEST(BeamOfAScore, HasNoNoteBeforeTheFirstToJoin) {
    EXPECT_EQ(marksIn({grace("B3", beam("begin")) + noteOf("C4", 1, beam("continue")) +
                       noteOf("D4", 1, beam("end"))}),
              "C4 =D4");
}

TEST(BeamOfAScore, OverATieJoinsItsFurtherNotes) {
    EXPECT_EQ(
        marksIn({noteOf("C4", 1, tied("start") + beam("begin")) +
                 noteOf("C4", 1, tied("stop") + beam("continue")) + noteOf("D4", 1, beam("end"))}),
        "C4 =D4");
}

TEST(BeamOfAScore, OfChordsStandsAtOneOfTheirNotes) {
    EXPECT_EQ(marksIn({noteOf("C4", 1, beam("begin")) + noteOf("E4", 1, "<chord/>") +
                       noteOf("D4", 1, beam("end")) + noteOf("F4", 1, "<chord/>")}),
              "E4 =F4");
}

TEST(PhraseOfAScore, EndsWithABreathMarkOrACaesura) {
    for (const auto* const name : {"breath-mark", "caesura"}) {
        EXPECT_EQ(marksIn({noteOf("C4", 1, articulation(name)) + noteOf("D4", 1)}), "C4, D4");
    }
    EXPECT_EQ(marksIn({noteOf("C4", 1, articulation("staccato")) + noteOf("D4", 1)}), "C4 D4");
}

TEST(PhraseOfAScore, EndsWithABreathMarkAmongOtherNotations) {
    EXPECT_EQ(marksIn({noteOf("C4", 1,
                              slur("start") + "<notations><articulations><accent/></articulations>"
                                              "<articulations><tenuto/><breath-mark/>"
                                              "</articulations></notations>") +
                       noteOf("D4", 1, slur("stop"))}),
              "C4, ~D4");
}

TEST(PhraseOfAScore, EndsWithADoubleBar) {
    for (const auto* const style : {"light-light", "light-heavy", "heavy-light", "heavy-heavy"}) {
        EXPECT_EQ(marksIn({noteOf("C4", 2) + noteOf("D4", 2) + barline(style), noteOf("E4", 4)}),
                  "C4 D4, E4")
            << style;
        EXPECT_EQ(marksIn({noteOf("C4", 4), barline(style, "left") + noteOf("E4", 4)}), "C4, E4")
            << style;
        EXPECT_EQ(marksIn({noteOf("C4", 2) + barline(style, "middle") + noteOf("E4", 2)}), "C4, E4")
            << style;
    }
}

TEST(PhraseOfAScore, GoesOnOverOtherBars) {
    for (const auto* const style : {"regular", "dashed", "dotted", "heavy", "tick", "none", ""}) {
        EXPECT_EQ(marksIn({noteOf("C4", 4) + barline(style), noteOf("E4", 4)}), "C4 E4") << style;
    }
}

TEST(PhraseOfAScore, GoesOnThroughANoteThatIsHeldOverADoubleBar) {
    EXPECT_EQ(marksIn({noteOf("C4", 4, tied("start")) + barline("light-light"),
                       noteOf("C4", 2, tied("stop")) + noteOf("D4", 2)}),
              "C4 D4");
}

TEST(PhraseOfAScore, EndsWithADoubleBarInEachVoiceThatReachesIt) {
    const std::vector<std::string> measures = {
        noteOf("C5", 4, voiceOf(1)) + backupOf(4) + noteOf("C4", 1, voiceOf(2)) +
            noteOf("D4", 1, voiceOf(2)) + barline("light-light"),
        noteOf("E5", 4, voiceOf(1))};
    EXPECT_EQ(marksIn(measures), "C5, E5");
    EXPECT_EQ(marksIn(measures, 1), "C4 D4");
}

TEST(PhraseOfAScore, EndsWithTheLastOfTiedNotes) {
    EXPECT_EQ(
        marksIn({noteOf("C4", 4, tied("start")),
                 noteOf("C4", 2, tied("stop") + articulation("breath-mark")) + noteOf("D4", 2)}),
        "C4, D4");
}

TEST(PhraseOfAScore, EndsWithAnyNoteOfAChord) {
    EXPECT_EQ(marksIn({noteOf("G4", 1) + noteOf("C4", 1, "<chord/>" + articulation("breath-mark")) +
                       noteOf("D4", 1)}),
              "G4, D4");
}

TEST(MarksOfTheExampleMelodies, EndAPhraseForEachLineOfTheText) {
    const auto melody = [](const std::string& name) {
        return marksOf(readSong(sourceFile("wysim/songs/" + name + ".musicxml")));
    };
    const auto countLines = [](const std::string& name) {
        const auto text = bytesOf(sourceFile("wysim/songs/" + name + ".txt"));
        return std::count(text.begin(), text.end(), '\n');
    };
    for (const std::string name : {"silent-night", "hotaru-no-hikari"}) {
        const auto marks = melody(name);
        const auto phrases = std::count(marks.begin(), marks.end(), ',');
        EXPECT_EQ(marks.back(), ',') << name;
        EXPECT_EQ(phrases, countLines(name)) << name;
        EXPECT_EQ(phrases, countLines(name + "-2")) << name;
    }
    EXPECT_EQ(melody("silent-night").substr(0, 30), "G4 ~=A4 G4 E4 G4 ~=A4 G4 E4, D");
    EXPECT_EQ(melody("hotaru-no-hikari").substr(0, 47),
              "C4 F4 F4 F4 A4 G4 ~F4 G4 A4 F4 F4 A4 ~C5 D5, D5");
}

// A slur carries one kana, and each line has twelve.
TEST(MarksOfTheExampleMelodies, LeaveOneGroupOfNotesForEachKana) {
    const auto song = readSong(sourceFile("wysim/songs/hotaru-no-hikari.musicxml"));
    const auto& notes = song.tracks.at(0).notes;
    EXPECT_EQ(std::count_if(notes.begin(), notes.end(),
                            [](const auto& note) { return !note.marks.isSlurred; }),
              4 * 12);
}

} // namespace

} // namespace wybeta::tests
