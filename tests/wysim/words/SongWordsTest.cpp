// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/words/SongWords.h"

#include "tests/wysim/ScoreFixture.h"
#include "tests/wysim/SongFixture.h"
#include "wysim/song/JsonSong.h"
#include "wysim/song/MusicXmlWriter.h"
#include "wysim/song/Song.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace wybeta::tests {

namespace {

using wysim::song::Song;
using wysim::words::wordsOf;

// "text notes: notes of each syllable" of each word, after where it is.
std::vector<std::string> described(const Song& song) {
    std::vector<std::string> lines;
    for (const auto& word : wordsOf(song)) {
        lines.push_back(std::to_string(word.track) + "/" + std::to_string(word.note) + " " +
                        word.text + " " + std::to_string(word.notes) + ":");
        for (const auto notes : word.notesOfSyllables) {
            lines.back() += " " + std::to_string(notes);
        }
    }
    return lines;
}

Song songOfScore(const std::string& syllables) {
    const TemporaryFolder folder;
    return readSong(folder.write("score.musicxml", scoreOfSyllables(syllables)));
}

Song songOfNotes(const std::vector<std::pair<std::string, bool>>& notes) {
    Song song;
    song.tracks = {{"Voice", {}}};
    for (const auto& [lyric, typed] : notes) {
        song.tracks[0].notes.push_back(
            {static_cast<double>(song.tracks[0].notes.size()), 1, 60, lyric, typed});
    }
    return song;
}

using Lines = std::vector<std::string>;

TEST(SongWords, HaveTheNotesOfEachSyllableOfTheScore) {
    EXPECT_EQ(described(songOfScore("_ Glo- _ _ ri- a in _ さ- く- _ ら")),
              (Lines{"1/2 Gloria 5: 3 1 1", "1/7 in 2: 2", "1/9 さくら 4: 1 2 1"}));
}

TEST(SongWords, HaveNoSyllablesInAFileOfTheProgramsOwn) {
    const TemporaryFolder folder;
    const auto song = songOfScore("Glo- _ ri- a");
    const auto json = readSong(folder.write("song.json", wysim::song::jsonFromSong(song)));
    const auto own = readSong(folder.write("song.xml", wysim::song::musicXmlFromSong(song)));
    EXPECT_EQ(described(json), Lines{"1/1 Gloria 4:"});
    EXPECT_EQ(described(own), Lines{"1/1 Gloria 4:"});
}

TEST(SongWords, EndAtANoteThatWasTypedEmpty) {
    EXPECT_EQ(described(songOfNotes({{"", false}, {"la", true}, {"", true}, {"", false}})),
              Lines{"1/2 la 1:"});
}

TEST(SongWords, TakeADivisionBackIntoOneBracket) {
    EXPECT_EQ(described(songOfNotes({{"さくら[s a]", true}, {"[k u]", false}, {"[r a]", false}})),
              Lines{"1/1 さくら[s a,k u,r a] 3:"});
}

TEST(SongWords, DoNotReachFromTrackToTrack) {
    auto song = songOfNotes({{"la", true}});
    song.tracks.push_back(songOfNotes({{"", false}, {"li", true}}).tracks[0]);
    EXPECT_EQ(described(song), (Lines{"1/1 la 1:", "2/2 li 1:"}));
}

} // namespace

} // namespace wybeta::tests
