// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/Options.h"
#include "tests/wysim/SongFixture.h"
#include "wysim/song/JsonSong.h"
#include "wysim/song/MusicXmlReader.h"
#include "wysim/song/MusicXmlWriter.h"
#include "wysim/song/Song.h"
#include "wysim/terminal/Progress.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

namespace wybeta::tests {

namespace {

using wysim::song::jsonFromSong;
using wysim::song::musicXmlFromSong;
using wysim::song::Song;
using wysim::song::songFromJson;

Song songFromMusicXml(const std::string& bytes) {
    wysim::terminal::Progress progress;
    return wysim::song::songFromMusicXml(bytes, {}, progress).song;
}

std::vector<std::filesystem::path> songs() {
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

TEST(RoundTrip, FromJsonToJsonKeepsTheSong) {
    for (const auto& path : songs()) {
        const auto json = jsonFromSong(readSong(path));
        EXPECT_EQ(jsonFromSong(songFromJson(json)), json) << path;
    }
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
    for (const auto& path : songs()) {
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
