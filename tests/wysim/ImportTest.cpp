// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/Options.h"
#include "tests/wysim/SmallScores.h"
#include "tests/wysim/SongFixture.h"
#include "wysim/song/Song.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace wybeta::tests {

namespace {

using Lines = std::vector<std::string>;

Lines linesIn(const std::string& name, std::optional<int> verse = {}) {
    return linesOf(readSong(dataFile(name), verse));
}

TEST(Import, MakesOneNoteOfTiedNotes) {
    EXPECT_EQ(linesIn("ties.musicxml"), (Lines{"0 2 C4 one*", "2 7 D4 held*", "9 3 D4 last*"}));
}

TEST(Import, SingsTiedNotesOneByOneWhereEachHasWords) {
    const auto tie = [](const char* type) { return "<tie type='" + std::string(type) + "'/>"; };
    EXPECT_EQ(linesOf(songFrom(scoreOf({noteOf("C4", 1, tie("start") + lyricOf("one")) +
                                        noteOf("C4", 1, tie("stop") + lyricOf("two"))}))),
              (Lines{"0 1 C4 one*", "1 1 C4 two*"}));
}

TEST(Import, SingsTheWordsOfALowerNoteOfAChord) {
    EXPECT_EQ(linesOf(songFrom(
                  scoreOf({noteOf("G4", 2) + noteOf("E4", 2, "<chord/>" + lyricOf("low"))}))),
              Lines{"0 2 G4 low*"});
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

TEST(Import, KnowsAVerseByItsNumberOrElseByItsName) {
    const auto verse = [](const std::string& attributes) {
        const auto score =
            scoreOf({noteOf("C4", 1, "<lyric " + attributes + "><text>la</text></lyric>")});
        int number = 0;
        while (number < 9 &&
               linesOf(openBytes(score, ".xml", number).song) != Lines{"0 1 C4 la*"}) {
            ++number;
        }
        return number;
    };
    EXPECT_EQ(verse("number='2'"), 2);
    EXPECT_EQ(verse("number='part1verse3'"), 3);
    EXPECT_EQ(verse("number='4.'"), 4);
    EXPECT_EQ(verse("name='Verse 5'"), 5);
    EXPECT_EQ(verse("number='6' name='Verse 5'"), 6);
    EXPECT_EQ(verse("number='chorus' name='Chorus'"), 1);
    EXPECT_EQ(verse(""), 1);
}

TEST(Import, TakesTheFirstVerseThatHasWordsWhenNoneIsAskedFor) {
    const auto later =
        scoreOf({noteOf("C4", 2, lyricOf("two", "2")) + noteOf("D4", 2, lyricOf("three", "3"))});
    EXPECT_EQ(linesOf(songFrom(later)), (Lines{"0 2 C4 two*", "2 2 D4 "}));
    EXPECT_EQ(linesOf(openBytes(later, ".xml", 1).song), (Lines{"0 2 C4 ", "2 2 D4 "}));
}

TEST(Import, TakesEachVoiceWhenTheVerseThatIsAskedForHasNoWords) {
    const auto score =
        scoreOf({{"Flute", {noteOf("C5", 4)}}, {"Alto", {noteOf("C4", 4, lyricOf("la"))}}});
    EXPECT_EQ(trackNames(openBytes(score, ".xml", 2).song), (Lines{"Flute", "Alto"}));
    EXPECT_EQ(trackNames(openBytes(score, ".xml", 1).song), Lines{"Alto"});
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

TEST(Import, MakesATrackOfEachVoiceWhereThereAreNoWords) {
    const auto song = songFrom(scoreOf(
        {{"Flute", {noteOf("C5", 4)}},
         {"Piano",
          {noteOf("E4", 2, "<voice>1</voice>") + noteOf("G4", 2, "<chord/><voice>1</voice>") +
           noteOf("C3", 2, "<voice>2</voice>")}}}));
    EXPECT_EQ(trackNames(song), (Lines{"Flute", "Piano (voice 1)", "Piano (voice 2)"}));
    EXPECT_EQ(linesOf(song), Lines{"0 4 C5 "});
    EXPECT_EQ(linesOf(song, 1), Lines{"0 2 G4 "});
    EXPECT_EQ(linesOf(song, 2), Lines{"2 2 C3 "});
}

TEST(Import, MakesAnEmptyTrackOfAPartWithoutNotes) {
    const auto song = songFrom(scoreOf({{"Soprano", {restOf(4)}}, {"Alto", {}}}));
    EXPECT_EQ(trackNames(song), (Lines{"Soprano", "Alto"}));
    EXPECT_EQ(countNotes(song), 0u);
}

TEST(Import, KeepsTheTimeSignatureOfAScoreWithoutNotes) {
    const auto song = songFrom(scoreOf({"<attributes><time><beats>3</beats><beat-type>4</beat-type>"
                                        "</time></attributes>" +
                                        restOf(1)}));
    EXPECT_EQ(song.time.beats, 3);
    EXPECT_EQ(song.pickup, 1);
}

TEST(Import, TellsStavesApartWhereVoicesAreNotNamed) {
    EXPECT_EQ(linesIn("voiceless-staves.musicxml"), Lines{"0 4 E5 sung*"});
}

TEST(Import, KnowsAnIncompleteFirstMeasure) {
    const auto song = readSong(dataFile("pickup.musicxml"));
    EXPECT_EQ(song.pickup, 1);
    EXPECT_EQ(linesOf(song), (Lines{"0 1 D4 oh*", "1 4 G4 say*", "7 2 C#5 can*"}));
}

TEST(Import, TakesAMeasureOfTripletsForAWholeOne) {
    // 4/3, 2/3, 4/3 and 2/3 quarters come to a little less than four.
    const auto song = songFrom(scoreOf({"<attributes><divisions>3</divisions><time><beats>4</beats>"
                                        "<beat-type>4</beat-type></time></attributes>" +
                                        restOf(4) + restOf(2) + restOf(4) + restOf(2)}));
    EXPECT_EQ(song.pickup, 0);
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

TEST(Import, ReadsScoresByTime) {
    const auto measure = [](const std::string& soprano, const std::string& alto) {
        return "<measure><part id='S'>" + soprano + "</part><part id='A'>" + alto +
               "</part></measure>";
    };
    const auto score = "<score-timewise><part-list><score-part id='A'><part-name>Alto</part-name>"
                       "</score-part></part-list>" +
                       measure(noteOf("C5", 4), restOf(4)) +
                       measure(noteOf("D5", 4), noteOf("F4", 4)) + "</score-timewise>";
    const auto song = songFrom(score);
    EXPECT_EQ(trackNames(song), (Lines{"Part 1", "Alto"}));
    EXPECT_EQ(linesOf(song), (Lines{"0 4 C5 ", "4 4 D5 "}));
    EXPECT_EQ(linesOf(song, 1), Lines{"4 4 F4 "});
    EXPECT_EQ(warningsOf(score), Lines{});
}

TEST(Import, SingsWhatSoundsOfATransposingPart) {
    const auto transposed = [](const std::string& transposition) {
        return linesOf(
            songFrom(scoreOf({noteOf("C4", 1) + "<attributes><transpose>" + transposition +
                              "</transpose></attributes>" + noteOf("C4", 1)})));
    };
    EXPECT_EQ(transposed("<chromatic>-2</chromatic>"), (Lines{"0 1 C4 ", "1 1 A#3 "}));
    EXPECT_EQ(transposed("<chromatic>0</chromatic><octave-change>-1</octave-change>"),
              (Lines{"0 1 C4 ", "1 1 C3 "}));
}

TEST(Import, PutsANoteWithoutPitchWhereItIsDrawn) {
    EXPECT_EQ(linesOf(songFrom(scoreOf({"<note><unpitched><display-step>E</display-step>"
                                        "<display-octave>4</display-octave></unpitched>"
                                        "<duration>1</duration></note>"}))),
              Lines{"0 1 E4 "});
}

TEST(Import, AddsTheBeatsOfASum) {
    const auto song = songFrom(scoreOf({"<attributes><time><beats>3+2</beats><beat-type>8"
                                        "</beat-type></time></attributes>"}));
    EXPECT_EQ(song.time.beats, 5);
    EXPECT_EQ(song.time.beatType, 8);
}

TEST(Import, ReadsCompressedScores) {
    const auto plain = linesIn("plain.musicxml");
    EXPECT_EQ(linesIn("compressed.mxl"), plain);
    EXPECT_EQ(linesIn("stored.mxl"), plain);
}

TEST(Import, ReadsCompressedScoresWithAnyName) {
    const auto bytes = bytesOf(dataFile("compressed.mxl"));
    EXPECT_EQ(linesOf(songFrom(bytes, ".xml")), linesIn("plain.musicxml"));
    EXPECT_EQ(linesOf(songFrom(bytesOf(dataFile("plain.musicxml")), ".mxl")),
              linesIn("plain.musicxml"));
}

// The lyric of the only note of a score.
std::string lyricOfBytes(const std::string& score) {
    return songFrom(score).tracks.at(0).notes.at(0).lyric;
}

std::string readLyric(const std::string& text) {
    return lyricOfBytes(scoreOf({noteOf("C4", 1, lyricOf(text))}));
}

TEST(Import, ReadsReferencesToCharacters) {
    EXPECT_EQ(readLyric("r&apos;n&#39;b &#x3042;<![CDATA[&lt]]>"), "r'n'b あ&lt");
}

TEST(Import, TakesAsTextWhatIsNoReference) {
    EXPECT_EQ(readLyric("rock & roll"), "rock & roll");
    EXPECT_EQ(readLyric("&lambda;la"), "&lambda;la");
    EXPECT_EQ(readLyric("la]]>la"), "la]]>la");
}

TEST(Import, MakesABlankOfCharactersThatNoSongCanHold) {
    for (const auto* const character : {"&#x7F;", "\x7F", "&#1;", "\x01", "&#xFFFF;", "\uFFFE"}) {
        EXPECT_EQ(readLyric("a" + std::string(character) + "b"), "a b") << character;
    }
}

TEST(Import, MarksReferencesToWhatIsNoCharacter) {
    for (const auto* const character : {"&#xD800;", "&#xDFFF;", "&#x110000;"}) {
        EXPECT_NE(readLyric("a" + std::string(character) + "b").find("\uFFFD"), std::string::npos)
            << character;
    }
}

TEST(Import, ReadsWhatStandsBeforeAScore) {
    const auto score = scoreOf({noteOf("C4", 1, lyricOf("la"))});
    for (const auto* const before :
         {"\xEF\xBB\xBF", "<?xml version='1.0' encoding='UTF-8'?>\n",
          "<!DOCTYPE score-partwise PUBLIC '-//Recordare//DTD MusicXML 4.0 Partwise//EN' "
          "'http://www.musicxml.org/dtds/partwise.dtd'>\n",
          "<!DOCTYPE a [<!ENTITY b 'c'>]><!-- a -- b -->\n"}) {
        EXPECT_EQ(lyricOfBytes(before + score), "la") << before;
    }
}

TEST(Import, ReadsScoresInANamespace) {
    auto score = scoreOf({noteOf("C4", 1, lyricOf("la"))});
    score.insert(score.find('>'), " xmlns='urn:x' xmlns:a='urn:y' a:b='c' a:b='d'");
    EXPECT_EQ(lyricOfBytes(score), "la");
}

TEST(Import, ReadsScoresInLatin1) {
    EXPECT_EQ(lyricOfBytes("<?xml version='1.0' encoding='ISO-8859-1'?>" +
                           scoreOf({noteOf("C4", 1, lyricOf("\xE9t\xE9"))})),
              "été");
}

// A text in ASCII in units of that many bytes, with its mark at the front; 'X' becomes `unit`.
std::string wide(const std::string& ascii, std::size_t size, std::uint32_t unit) {
    std::string bytes;
    const auto add = [&bytes, size](std::uint32_t value) {
        for (std::size_t i = 0; i < size; ++i) {
            bytes += static_cast<char>(value >> (8 * i) & 0xFF);
        }
    };
    add(0xFEFF);
    for (const char letter : ascii) {
        add(letter == 'X' ? unit : static_cast<unsigned char>(letter));
    }
    return bytes;
}

TEST(Import, ReadsScoresInUtf16AndUtf32) {
    const auto score = scoreOf({noteOf("C4", 1, lyricOf("aXb"))});
    EXPECT_EQ(lyricOfBytes(wide(score, 2, 0x304B)), "aかb");
    EXPECT_EQ(lyricOfBytes(wide(score, 4, 0x1F600)), "a\U0001F600b");
    for (const std::uint32_t half : {0xD800u, 0xDC00u}) {
        EXPECT_NE(lyricOfBytes(wide(score, 2, half)), "");
    }
    for (const std::uint32_t other : {0xD800u, 0x110000u, 0xFFFFFFFFu, 1u}) {
        EXPECT_NE(lyricOfBytes(wide(score, 4, other)), "");
    }
}

TEST(Import, ReadsTheExampleSongs) {
    for (const auto* const name : {"twinkle", "amazing-grace", "sakura", "hello-sakura", "gloria",
                                   "silent-night", "hotaru-no-hikari"}) {
        const auto path = sourceFile(std::string("wysim/songs/") + name + ".musicxml");
        EXPECT_EQ(refusalOf(path), "");
    }
}

} // namespace

} // namespace wybeta::tests
