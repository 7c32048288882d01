// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/Options.h"
#include "tests/wysim/ScoreFixture.h"
#include "tests/wysim/SmallMelodies.h"
#include "tests/wysim/SmallScores.h"
#include "tests/wysim/SongFixture.h"
#include "wysim/song/JsonSong.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <filesystem>
#include <string>
#include <vector>

namespace wybeta::tests {

namespace {

constexpr auto kLaidMelody = "C4 ~D4 E4 F4 r C4 D4 E4 r G4";
constexpr auto kLaidText = "Sweet love, be\n\n[Chorus]\nmine, yeet\nnow and then";

// A run of 'lay' in a folder of its own.
class LayCommand : public testing::Test {
protected:
    tests::Run lay(const std::string& melody, const std::string& text,
                   const std::vector<std::string>& options = {}) {
        const auto song =
            folder.write("song.json", wysim::song::jsonFromSong(songOfMelody(melody)));
        return layUnder(song, text, options);
    }

    tests::Run layUnder(const std::filesystem::path& song, const std::string& text,
                        const std::vector<std::string>& options = {}) {
        const auto file = folder.write("text.txt", text);
        std::vector<std::string> arguments = {"lay", song.u8string(), file.u8string()};
        arguments.insert(arguments.end(), options.begin(), options.end());
        return runProgram(arguments);
    }

    std::string path(const std::string& name) const { return folder.file(name).u8string(); }
    std::string songPath() const { return path("song.json"); }

    const TemporaryFolder folder;
};

std::string totalsOf(const std::string& text) {
    const auto end = text.find_last_not_of('\n');
    return text.substr(text.rfind('\n', end) + 1);
}

TEST_F(LayCommand, PrintsARowForEachLineAndTheTotals) {
    const auto run = lay(kLaidMelody, kLaidText);
    EXPECT_EQ(run.out, R"(Melody: 1 track, 8 notes
  line  first note  syllables  notes  how it was held  what is left
  1     1           3          4      slurs
  4     5           1          1      as sung          yeet (not sung)
  5     6           3          3      as sung
lines: 3, as sung: 2, held: 1, too long: 0; syllables: 7, on notes: 7; not sung: 1
)");
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.status, 3);
}

TEST_F(LayCommand, NamesTheWordsForWhichThereAreNoNotes) {
    const auto run = lay("C4 D4 E4", "sweet love\nbe mine now");
    EXPECT_EQ(run.out, R"(Melody: 1 track, 3 notes
  line  first note  syllables  notes  how it was held  what is left
  1     1           2          2      as sung
  2     3           3          1      as sung          mine now
lines: 2, as sung: 1, held: 0, too long: 1; syllables: 5, on notes: 3; not sung: 0
)");
}

TEST_F(LayCommand, EndsWithThreeWhereAWordIsNotSungOrHasNoNote) {
    EXPECT_EQ(lay("C4 D4", "love me").status, 0);
    EXPECT_EQ(lay("C4 D4", "love").status, 0);
    EXPECT_EQ(lay("C4 D4", "yeet love").status, 3);
    EXPECT_EQ(lay("C4 D4", "yeet love", {"--guess"}).status, 0);
    EXPECT_EQ(lay("C4", "love me").status, 3);
}

TEST_F(LayCommand, SavesTheWordsAsTheyAreTyped) {
    for (const auto* const name : {"laid.json", "laid.musicxml"}) {
        const auto run = lay("C4 ~D4 E4 F4", "sweet love now", {"--save", path(name)});
        EXPECT_NE(run.out.find("wrote " + path(name) + "\n"), std::string::npos) << run.out;
        EXPECT_EQ(
            linesOf(readSong(folder.file(name))),
            (std::vector<std::string>{"0 1 C4 sweet-*", "1 1 D4 ", "2 1 E4 love*", "3 1 F4 now*"}));
    }
}

TEST_F(LayCommand, DrawsWhatTheNotesCarry) {
    lay("C4 ~D4 E4", "sweet love", {"--svg", path("laid.svg")});
    EXPECT_NE(bytesOf(folder.file("laid.svg")).find("s w iy"), std::string::npos);
}

TEST_F(LayCommand, WritesEachWordAsJson) {
    lay(kLaidMelody, kLaidText, {"--json", path("words.json")});
    const auto words = nlohmann::json::parse(bytesOf(folder.file("words.json"))).at("words");
    ASSERT_EQ(words.size(), 8U);
    EXPECT_EQ(words[0], nlohmann::json::parse(R"({"line": 1, "text": "Sweet", "typed": "Sweet-",
        "track": 1, "note": 1, "notesOfSyllables": [2]})"));
    EXPECT_EQ(words[4], nlohmann::json::parse(R"({"line": 4, "text": "yeet", "typed": null,
        "track": 1, "note": null, "notesOfSyllables": []})"));
}

TEST_F(LayCommand, HasOneEntryForARunOfKana) {
    lay("C4 D4 E4 F4 G4 A4", "さくら、さくら", {"--json", path("words.json")});
    const auto words = nlohmann::json::parse(bytesOf(folder.file("words.json"))).at("words");
    ASSERT_EQ(words.size(), 2U);
    EXPECT_EQ(words[1].at("note"), 4);
    EXPECT_EQ(words[1].at("notesOfSyllables"), (std::vector<int>{1, 1, 1}));
}

TEST_F(LayCommand, ReplacesTheWordsThatAreThereAndSaysSo) {
    const auto score = folder.write("score.musicxml", scoreOfSyllables("Glo- ri- a dear love"));
    const auto run = layUnder(score, "be my love now", {"--save", path("laid.json")});
    EXPECT_NE(run.out.find("\n3 words that were there are replaced\n"), std::string::npos)
        << run.out;
    EXPECT_EQ(linesOf(readSong(folder.file("laid.json")))[0].substr(0, 10), "0 1 C4 be*");
    EXPECT_NE(layUnder(score, "be", {}).out.find("3 words"), std::string::npos);
    EXPECT_EQ(lay("C4 D4", "love me").out.find("replaced"), std::string::npos);
}

TEST_F(LayCommand, TakesATrackByItsNameOrNumber) {
    auto song = songOfMelody("C4");
    song.tracks.push_back({"Alto", songOfMelody("C4 D4").tracks[0].notes});
    song.tracks.push_back({"2", songOfMelody("C4 D4 E4").tracks[0].notes});
    const auto file = folder.write("tracks.json", wysim::song::jsonFromSong(song));
    const auto notesFor = [&](const std::string& track) {
        layUnder(file, "love", {"--track", track, "--save", path("laid.json")});
        const auto laid = readSong(folder.file("laid.json"));
        for (std::size_t i = 0; i < laid.tracks.size(); ++i) {
            if (laid.tracks[i].notes[0].typed) {
                return i + 1;
            }
        }
        return std::size_t{0};
    };
    EXPECT_EQ(notesFor("Alto"), 2U);
    EXPECT_EQ(notesFor("1"), 1U);
    EXPECT_EQ(notesFor("2"), 3U) << "a name goes before a number";
    const auto run = layUnder(file, "love", {"--track", "4"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, "wysim: expected the name of a track or a number from 1 to 3 as --track, "
                       "found '4'.\n");
}

TEST_F(LayCommand, TakesAPartWithoutWordsThatIsNamed) {
    const auto score =
        folder.write("score.musicxml", scoreOf({{"Voice", {noteOf("C4", 1, lyricOf("love"))}},
                                                {"Alto", {noteOf("E4", 1) + noteOf("F4", 1)}}}));
    const auto run = layUnder(score, "love me", {"--track", "Alto"});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_NE(run.out.find("2 tracks, 3 notes"), std::string::npos) << run.out;
    EXPECT_NE(layUnder(score, "love", {}).out.find("1 track, 1 notes"), std::string::npos);
}

TEST_F(LayCommand, TakesTheTextFromStandardInput) {
    const auto song = folder.write("song.json", wysim::song::jsonFromSong(songOfMelody("C4 D4")));
    const auto run = runProgram({"lay", song.u8string(), "-"}, "love me\n");
    EXPECT_EQ(totalsOf(run.out), "lines: 1, as sung: 1, held: 0, too long: 0; syllables: 2, on "
                                 "notes: 2; not sung: 0\n");
}

TEST_F(LayCommand, RefusesWhatCannotBeLaid) {
    const auto errorOf = [&](const std::string& melody, const std::string& text) {
        const auto run = lay(melody, text);
        EXPECT_EQ(run.status, 2);
        return run.err;
    };
    EXPECT_EQ(errorOf("", "love"), "wysim: expected a track with notes, found none.\n");
    EXPECT_EQ(errorOf("C4", "\n"), "wysim: expected a text with words, found none.\n");
    EXPECT_EQ(errorOf("C4", "lov\xFF"),
              "wysim: expected a text in UTF-8, found other bytes in line 1, column 4.\n");
}

TEST_F(LayCommand, NeedsASongAndAText) {
    EXPECT_EQ(runProgram({"lay"}).status, 2);
    EXPECT_EQ(runProgram({"lay", songPath()}).status, 2);
    folder.write("song.json", wysim::song::jsonFromSong(songOfMelody("C4")));
    const auto run = runProgram({"lay", songPath(), path("missing.txt")});
    EXPECT_EQ(run.status, 2);
    EXPECT_NE(run.err.find("expected a text that can be read, found none at "), std::string::npos);
}

TEST_F(LayCommand, NeverWritesOverTheSongOrTheText) {
    for (const auto* const option : {"--save", "--json"}) {
        const auto run = lay("C4", "love", {option, songPath()});
        EXPECT_EQ(run.status, 2) << option;
        EXPECT_NE(run.err.find("another file to write"), std::string::npos) << run.err;
    }
    EXPECT_EQ(lay("C4", "love", {"--json", path("text.txt")}).err,
              "wysim: expected a file of its own to write, found another for " + path("text.txt") +
                  ".\n");
    EXPECT_EQ(bytesOf(folder.file("text.txt")), "love");
}

TEST_F(LayCommand, NeverWritesOneFileOverAnother) {
    EXPECT_EQ(lay("C4", "love", {"--save", path("a.json"), "--json", path("a.json")}).status, 2);
    EXPECT_FALSE(std::filesystem::exists(folder.file("a.json")));
}

TEST_F(LayCommand, NamesAWordThatIsCutOff) {
    const auto run = lay("C4", "darling");
    EXPECT_NE(
        run.out.find("  1     1           2          1      as sung          darling\u2026\n"),
        std::string::npos)
        << run.out;
    EXPECT_EQ(run.status, 3);
}

TEST_F(LayCommand, HasTheNotesOfSyllablesForAFitOfTheSavedSong) {
    lay("C4 ~D4 E4 F4 ~G4", "sweet happy", {"--save", path("laid.musicxml")});
    const auto run = runProgram({"fit", path("laid.musicxml")});
    EXPECT_EQ(run.status, 0) << run.out;
}

} // namespace

} // namespace wybeta::tests
