// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/Options.h"
#include "tests/wysim/SongFixture.h"
#include "wysim/song/JsonSong.h"
#include "wysim/song/MusicXmlReader.h"
#include "wysim/song/MusicXmlWriter.h"
#include "wysim/song/Song.h"
#include "wysim/terminal/Progress.h"

#include <gtest/gtest.h>
#include <pugixml.hpp>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

namespace wybeta::tests {

namespace {

using wysim::song::jsonFromSong;
using wysim::song::musicXmlFromSong;
using wysim::song::Song;
using wysim::song::songFromJson;
using wysim::song::SongNote;

Song songFromMusicXml(const std::string& bytes) {
    wysim::terminal::Progress progress;
    return wysim::song::songFromMusicXml(bytes, {}, progress).song;
}

std::vector<std::filesystem::path> sungSongs() {
    std::vector<std::filesystem::path> paths;
    for (const auto* const name :
         {"twinkle", "amazing-grace", "sakura", "hello-sakura", "gloria"}) {
        paths.push_back(sourceFile(std::string("wysim/songs/") + name + ".musicxml"));
    }
    for (const auto* const name :
         {"ties", "rests", "words", "melisma", "two-voices", "pickup", "elision", "divisions"}) {
        paths.push_back(dataFile(std::string(name) + ".musicxml"));
    }
    return paths;
}

std::vector<std::filesystem::path> songs() {
    auto paths = sungSongs();
    for (const auto* const name : {"silent-night", "hotaru-no-hikari"}) {
        paths.push_back(sourceFile(std::string("wysim/songs/") + name + ".musicxml"));
    }
    return paths;
}

TEST(RoundTrip, FromJsonToJsonKeepsTheSong) {
    for (const auto& path : songs()) {
        const auto json = jsonFromSong(readSong(path));
        EXPECT_EQ(jsonFromSong(songFromJson(json)), json) << path;
    }
}

// Notes of that many eighths one after the other, each with the marks of three bits.
Song songWithMarks(const std::vector<unsigned>& marks, int eighths = 1) {
    Song song;
    song.tracks = {{"Voice", {}}};
    for (std::size_t i = 0; i < marks.size(); ++i) {
        SongNote note;
        note.start = static_cast<double>(i) * eighths / 2;
        note.length = eighths / 2.0;
        note.marks = {(marks[i] & 1) != 0, (marks[i] & 2) != 0, (marks[i] & 4) != 0};
        song.tracks[0].notes.push_back(note);
    }
    return song;
}

TEST(RoundTrip, ThroughJsonKeepsEachMark) {
    const auto song = songWithMarks({0, 1, 2, 4, 7});
    EXPECT_EQ(marksOf(songFromJson(jsonFromSong(song))), "C4 ~C4 =C4 C4, ~=C4,");
}

TEST(RoundTrip, WritesMarksToJsonOnlyWhereTheyAreDrawn) {
    const auto json = jsonFromSong(songWithMarks({0, 7}));
    EXPECT_NE(json.find("\"typed\":false},\n"), std::string::npos) << json;
    EXPECT_NE(json.find("\"typed\":false,\"slurred\":true,\"beamed\":true,\"endsPhrase\":true}\n"),
              std::string::npos)
        << json;
}

TEST(RoundTrip, ThroughJsonTakesAMarkThatIsFalseForNone) {
    auto json = jsonFromSong(songWithMarks({0}));
    const std::string typed = "\"typed\":false";
    json.replace(json.find(typed), typed.size(), typed + ", \"slurred\": false");
    EXPECT_EQ(marksOf(songFromJson(json)), "C4");
}

Song throughMusicXml(const Song& song) {
    return songFromMusicXml(musicXmlFromSong(song));
}

// The first note has none before it to be joined to.
Song asScoresHoldIt(Song song) {
    auto& first = song.tracks[0].notes[0].marks;
    first.isSlurred = false;
    first.isBeamed = false;
    return song;
}

TEST(RoundTrip, ThroughMusicXmlKeepsAllMarksOfThreeNotes) {
    for (unsigned bits = 0; bits < 512; ++bits) {
        const auto song = songWithMarks({bits & 7, bits >> 3 & 7, bits >> 6});
        EXPECT_EQ(marksOf(throughMusicXml(song)), marksOf(asScoresHoldIt(song)));
    }
}

TEST(RoundTrip, ThroughMusicXmlKeepsSlursOverRests) {
    auto song = songWithMarks({0, 1, 0, 1});
    song.tracks[0].notes[1].start = 0.75;
    song.tracks[0].notes[1].length = 0.25;
    song.tracks[0].notes[3].start = 9;
    EXPECT_EQ(marksOf(throughMusicXml(song)), "C4 ~C4 C4 ~C4");
}

TEST(RoundTrip, ThroughMusicXmlDropsBeamsOfQuarters) {
    EXPECT_EQ(marksOf(throughMusicXml(songWithMarks({0, 7, 2}, 2))), "C4 ~C4, C4");
}

// Whether a score can join the note to the one before it, in bars of four quarters.
bool canBeBeamed(const SongNote& before, const SongNote& note) {
    const double beforeEnds = before.start + before.length;
    const double lastPiece =
        beforeEnds - std::max(before.start, 4 * (std::ceil(beforeEnds / 4) - 1));
    const double firstPiece =
        std::min(note.start + note.length, 4 * (std::floor(note.start / 4) + 1)) - note.start;
    return lastPiece < 1 && firstPiece < 1;
}

Song randomSongWithMarks(std::mt19937& random) {
    Song song;
    song.tracks = {{"Voice", {}}};
    auto& notes = song.tracks[0].notes;
    double now = 0;
    while (notes.size() < 40) {
        SongNote note;
        note.start = now + (random() % 8 == 0 ? 0.25 : 0);
        note.length = static_cast<double>(1 + random() % (random() % 8 == 0 ? 24 : 4)) / 4;
        note.pitch = 60 + static_cast<int>(random() % 3);
        note.marks = {random() % 2 != 0, random() % 2 != 0, random() % 4 == 0};
        now = note.start + note.length;
        notes.push_back(note);
    }
    return song;
}

TEST(RoundTrip, ThroughMusicXmlKeepsTheMarksOfRandomSongs) {
    std::mt19937 random(7);
    for (int round = 0; round < 300; ++round) {
        const auto song = randomSongWithMarks(random);
        auto expected = asScoresHoldIt(song);
        auto& notes = expected.tracks[0].notes;
        for (std::size_t i = 1; i < notes.size(); ++i) {
            notes[i].marks.isBeamed =
                notes[i].marks.isBeamed && canBeBeamed(notes[i - 1], notes[i]);
        }
        const auto again = throughMusicXml(song);
        ASSERT_EQ(jsonFromSong(again), jsonFromSong(expected)) << round;
        ASSERT_EQ(musicXmlFromSong(again), musicXmlFromSong(song)) << round;
    }
}

// The notes of a score that are no rests, each with the names of its children, and the values of
// those of interest.
std::string drawn(const std::string& score) {
    pugi::xml_document document;
    document.load_string(score.c_str());
    std::string text;
    for (const auto& found : document.select_nodes("//note[pitch]")) {
        for (const auto child : found.node()) {
            const std::string value =
                child.name() == std::string("beam")
                    ? child.text().get()
                    : std::string(child.attribute("type").value()) +
                          child.child("slur").attribute("type").value() +
                          (child.child("articulations").child("breath-mark") ? "," : "");
            text += child.name() + (value.empty() ? "" : "=" + value) + " ";
        }
        text += "\n";
    }
    return text;
}

TEST(RoundTrip, WritesMarksInTheOrderOfMusicXml) {
    auto song = songWithMarks({0, 7});
    for (auto& note : song.tracks[0].notes) {
        note.lyric = "la";
        note.typed = true;
    }
    EXPECT_EQ(drawn(musicXmlFromSong(song)),
              "pitch duration voice type beam=begin notations=start lyric \n"
              "pitch duration voice type beam=end notations=stop, lyric \n");
}

TEST(RoundTrip, WritesMarksOfATiedNoteAtItsFirstAndLastPiece) {
    auto song = songWithMarks({0, 7, 2});
    song.tracks[0].notes[0].start = 3;
    song.tracks[0].notes[1].start = 3.5;
    song.tracks[0].notes[1].length = 1;
    song.tracks[0].notes[2].start = 4.5;
    EXPECT_EQ(drawn(musicXmlFromSong(song)),
              "pitch duration voice type beam=begin notations=start \n"
              "pitch duration tie=start voice type beam=end notations=stop \n"
              "pitch duration tie=stop voice type beam=begin notations=, \n"
              "pitch duration voice type beam=end \n");
}

TEST(RoundTrip, FromMusicXmlToMusicXmlKeepsTheSong) {
    for (const auto& path : songs()) {
        const auto song = readSong(path);
        const auto again = songFromMusicXml(musicXmlFromSong(song));
        EXPECT_EQ(jsonFromSong(again), jsonFromSong(song)) << path;
        EXPECT_EQ(musicXmlFromSong(again), musicXmlFromSong(song)) << path;
    }
}

TEST(RoundTrip, OfADividedSongGivesTheSameDivision) {
    const TemporaryFolder folder;
    const auto name = [&folder](const char* file) { return folder.file(file).u8string(); };
    for (const auto& path : sungSongs()) {
        ASSERT_EQ(runScript(path, "save " + name("1.json") + "\nsave " + name("1.xml")).status, 0);
        ASSERT_EQ(runScript(folder.file("1.json"), "save " + name("2.json")).status, 0);
        ASSERT_EQ(runScript(folder.file("1.xml"), "save " + name("3.json")).status, 0);
        const auto divided = bytesOf(folder.file("1.json"));
        EXPECT_NE(divided.find('['), std::string::npos);
        EXPECT_EQ(bytesOf(folder.file("2.json")), divided) << path;
        EXPECT_EQ(bytesOf(folder.file("3.json")), divided) << path;
    }
}

TEST(RoundTrip, WritesDivisionsAsWordsOfTheirSyllables) {
    Song song;
    song.tracks = {{"Voice",
                    {{0, 1, 60, "さくら[s a]", true},
                     {1, 1, 62, "[k u]", false},
                     {2, 1, 64, "[r a]", false},
                     {3, 1, 65, "la", true}}}};
    const auto score = musicXmlFromSong(song);
    for (const auto* const lyric :
         {"<syllabic>begin</syllabic>\n          <text>さくら[s a]</text>",
          "<syllabic>middle</syllabic>\n          <text>[k u]</text>",
          "<syllabic>end</syllabic>\n          <text>[r a]</text>",
          "<syllabic>single</syllabic>\n          <text>la</text>"}) {
        EXPECT_NE(score.find(lyric), std::string::npos) << lyric;
    }
    EXPECT_EQ(linesOf(songFromMusicXml(score)),
              (std::vector<std::string>{"0 1 C4 さくら[s a,k u,r a]*", "1 1 D4 ", "2 1 E4 ",
                                        "3 1 F4 la*"}));
}

TEST(RoundTrip, ThroughMusicXmlKeepsTheMarksOfALyric) {
    Song song;
    song.tracks = {{"Voice", {{0, 1, 60, "-", true}, {1, 1, 62, "(x)", true}}}};
    EXPECT_EQ(linesOf(songFromMusicXml(musicXmlFromSong(song))),
              (std::vector<std::string>{"0 1 C4 -*", "1 1 D4 (x)*"}));
}

TEST(RoundTrip, KeepsTracksWithoutWordsAndWithoutNotes) {
    Song song;
    song.title = "Begun";
    song.time = {3, 4};
    song.pickup = 1;
    song.tracks = {{"Alto", {}}, {"Soprano", {}}};
    for (const bool hasNotes : {false, true}) {
        EXPECT_EQ(jsonFromSong(songFromJson(jsonFromSong(song))), jsonFromSong(song)) << hasNotes;
        const auto again = songFromMusicXml(musicXmlFromSong(song));
        EXPECT_EQ(jsonFromSong(again), jsonFromSong(song)) << hasNotes;
        song.tracks.push_back({"Tenor", {{0, 1, 60, "", false}, {1, 3, 62, "", false}}});
        song.tracks.push_back({"Bass", {{0, 1, 48, "la", true}}});
    }
}

Song longSong(std::size_t notes) {
    const char* const lyrics[] = {"abandon", "", "", "さくら", "", "", "love"};
    Song song;
    song.tracks = {{"Voice", {}}};
    for (std::size_t i = 0; i < notes; ++i) {
        const std::string lyric = lyrics[i % 7];
        song.tracks[0].notes.push_back(
            {static_cast<double>(i), 1, 60 + static_cast<int>(i % 12), lyric, !lyric.empty()});
    }
    return song;
}

TEST(RoundTrip, OfAHundredThousandNotesKeepsThemAll) {
    const auto song = longSong(100'000);
    const auto score = musicXmlFromSong(song);
    EXPECT_EQ(jsonFromSong(songFromMusicXml(score)), jsonFromSong(song));
}

TEST(RoundTrip, OfAHundredThousandNotesInASessionKeepsTheDivision) {
    const TemporaryFolder folder;
    const auto path = folder.write("long.json", jsonFromSong(longSong(100'000)));
    const auto run = runScript(path, "show 99996 99999\nsave " + folder.file("2.xml").u8string());
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_NE(run.out.find("99996  99995  1       B4     abandon[ah]"), std::string::npos)
        << run.out;
    const auto again = songFromMusicXml(bytesOf(folder.file("2.xml")));
    EXPECT_EQ(again.tracks[0].notes[99'994].lyric, "love[l ah v]");
}

} // namespace

} // namespace wybeta::tests
