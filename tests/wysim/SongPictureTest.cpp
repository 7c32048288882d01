// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/picture/SongPicture.h"

#include "tests/Options.h"
#include "tests/wysim/SongFixture.h"
#include "wysim/song/Song.h"
#include "wysim/song/XmlDocument.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace wybeta::tests {

namespace {

using wysim::picture::svgPicture;
using wysim::song::Song;

Song divided() {
    Song song;
    song.tracks = {{"Voice & <others>",
                    {{0, 1, 60, "さくら[s a]", true},
                     {1, 1, 62, "[k u]", false},
                     {2, 1, 64, "[r a]", false},
                     {3, 1, 65, "\"rock 'n' <roll>\" & more", true}}}};
    return song;
}

Song typed() {
    auto song = divided();
    song.tracks[0].notes[0].lyric = "さくら";
    song.tracks[0].notes[1].lyric = "";
    song.tracks[0].notes[2].lyric = "";
    return song;
}

std::multiset<std::string> textsOf(const std::string& svg, const char* path) {
    const wysim::song::XmlDocument document(svg);
    std::multiset<std::string> texts;
    for (const auto& node : document.root().select_nodes(path)) {
        texts.insert(node.node().text().get());
    }
    return texts;
}

TEST(SongPicture, HoldsTheLyricOfEachNoteBeforeAndAfter) {
    const auto texts = textsOf(svgPicture(typed(), divided()), "//rect/title");
    EXPECT_EQ(texts, (std::multiset<std::string>{"", "", "さくら", "さくら[s a]", "[k u]", "[r a]",
                                                 "\"rock 'n' <roll>\" & more",
                                                 "\"rock 'n' <roll>\" & more"}));
}

TEST(SongPicture, DrawsLyricsAndSyllablesApart) {
    const auto svg = svgPicture(typed(), divided());
    EXPECT_EQ(textsOf(svg, "//text[@class='phonemes']"),
              (std::multiset<std::string>{"s a", "k u", "r a"}));
    EXPECT_EQ(textsOf(svg, "//text[@class='lyric']").count("さくら"), 2u);
}

TEST(SongPicture, WrapsALongSongIntoRowsAndLeavesOutSilentOnes) {
    Song song = divided();
    const auto height = [](const Song& drawn) {
        const auto svg = svgPicture(drawn, drawn);
        return wysim::song::XmlDocument(svg).root().attribute("height").as_double();
    };
    const auto short1 = height(song);
    song.tracks[0].notes.push_back({900'000, 1, 60, "far", true});
    const auto longer = height(song);
    EXPECT_GT(longer, short1);
    EXPECT_LT(longer, 3 * short1);
}

TEST(SongPicture, IsNotMadeWiderByALongLyric) {
    auto song = divided();
    song.tracks[0].notes[3].lyric = std::string(500, 'w');
    const auto svg = svgPicture(song, song);
    const wysim::song::XmlDocument document(svg);
    EXPECT_EQ(document.root().attribute("width").as_double(), 1340);
    EXPECT_EQ(textsOf(svg, "//text[@textLength]").size(), 2u);
}

TEST(SongPicture, OfAnEmptyTrackIsAHeading) {
    Song song = divided();
    song.tracks[0].notes.clear();
    EXPECT_EQ(textsOf(svgPicture(song, song), "//text[@class='track']").size(), 1u);
}

TEST(SongPicture, ComesFromASessionWithEveryLyric) {
    const TemporaryFolder folder;
    for (const auto* const name : {"twinkle", "amazing-grace", "sakura", "hello-sakura", "gloria",
                                   "silent-night", "hotaru-no-hikari"}) {
        const auto song = sourceFile(std::string("wysim/songs/") + name + ".musicxml");
        const auto svg = folder.file("song.svg").u8string();
        const auto saved = folder.file("song.json");
        ASSERT_EQ(
            runProgram({song.u8string(), "--svg", svg, "--script", "-"}, "save " + saved.u8string())
                .status,
            0);
        const auto texts = textsOf(bytesOf(svg), "//rect/title");
        for (const auto& track : readSong(saved).tracks) {
            for (const auto& note : track.notes) {
                EXPECT_EQ(texts.count(note.lyric) > 0, true) << note.lyric;
            }
        }
    }
}

} // namespace

} // namespace wybeta::tests
