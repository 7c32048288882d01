// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/wysim/SongFixture.h"
#include "wysim/song/JsonSong.h"
#include "wysim/song/Song.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace wybeta::tests {

namespace {

// The words with the number of notes that a score would give each.
Run compare(const std::vector<std::pair<std::string, int>>& words) {
    wysim::song::Song song;
    song.title = "Words";
    song.tracks = {{"Voice", {}}};
    double start = 0;
    for (const auto& [word, notes] : words) {
        for (int i = 0; i < notes; ++i) {
            song.tracks[0].notes.push_back({start++, 1, 60, i == 0 ? word : "", i == 0});
        }
    }
    const TemporaryFolder folder;
    const auto path = folder.write("words.json", wysim::song::jsonFromSong(song));
    return runProgram({"compare", path.u8string()});
}

TEST(Comparison, CountsSyllablesAgainstNotesWordByWord) {
    const auto run =
        compare({{"abandon", 3}, {"さくら", 2}, {"xyzzy", 1}, {"love", 2}, {"a[b]", 1}});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out, "Words: 1 track, 9 notes\n"
                       "  track  note  word     known by    notes  syllables  count\n"
                       "  1      1     abandon  dictionary  3      3          same\n"
                       "  1      4     さくら   kana        2      3          more\n"
                       "  1      6     xyzzy    unknown     1      0          -\n"
                       "  1      7     love     dictionary  2      1          fewer\n"
                       "  1      9     a[b]     brackets    1      1          same\n"
                       "words: 5; known to the dictionary: 2, by kana: 1, by brackets: 1, "
                       "unknown: 1; same count: 2, fewer: 1, more: 1\n");
}

TEST(Comparison, NeedsWords) {
    const auto run = compare({{"", 2}});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, "wysim: expected a song with words to compare, found none.\n");
}

TEST(Comparison, CountsMoreSyllablesThanAnySongHasNotes) {
    std::string lyric;
    for (int i = 0; i < 1000; ++i) {
        lyric += "か";
    }
    EXPECT_NE(compare({{lyric, 1}}).out.find(" 1000       more\n"), std::string::npos);
}

} // namespace

} // namespace wybeta::tests
