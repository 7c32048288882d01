// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/Options.h"
#include "tests/wysim/ScoreFixture.h"
#include "tests/wysim/SongFixture.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace wybeta::tests {

namespace {

// A run of 'fit' on a score of these syllables, in a folder of its own.
class FitCommand : public testing::Test {
protected:
    tests::Run fit(const std::string& syllables, const std::vector<std::string>& options = {}) {
        const auto score = folder.write("score.musicxml", scoreOfSyllables(syllables));
        std::vector<std::string> arguments = {"fit", score.u8string()};
        arguments.insert(arguments.end(), options.begin(), options.end());
        return runProgram(arguments);
    }

    std::string path(const std::string& name) const { return folder.file(name).u8string(); }

    static std::string lastLineOf(const std::string& text) {
        const auto end = text.find_last_not_of('\n');
        return text.substr(text.rfind('\n', end) + 1);
    }

    const TemporaryFolder folder;
};

constexpr auto kSong = "Glo- _ ri- a our xyzzy To- kyo love fi- as- co _";

TEST_F(FitCommand, TellsOfEachWordWhatToTypeAndWhatItsNotesCarry) {
    const auto run = fit(kSong, {"--brackets"});
    EXPECT_EQ(run.out.substr(run.out.find('\n')),
              R"(
  track  note  word    notes  type                      the notes then carry       fitted by
  1      1     Gloria  4      Glo-ria                   [g l ao] [- ] [r iy] [ah]  hyphens
  1      5     our     1      our(1)                    [aw r]                     other entry
  1      6     xyzzy   1      xyzzy                     -                          unknown: "xyzzy" is not sung
  1      7     Tokyo   2      Tokyo[t ow,k iy ow]       [t ow] [k iy ow]           brackets
  1      9     love    1      love                      [l ah v]                   as it is
  1      10    fiasco  4      fiasco[f iy,ae,s k ow,-]  [f iy] [ae] [s k ow] [-]   brackets
words: 6; as they are: 1, with hyphens: 1, with other entries: 1, with brackets: 2; not fitted: 1 (unknown: 1, divided otherwise: 0, not reached: 0)
)");
    EXPECT_EQ(run.err, "");
}

TEST_F(FitCommand, NamesTheReasonOfEachWordThatCannotBeFitted) {
    const auto run = fit(kSong);
    for (const auto* const reason :
         {"unknown: \"xyzzy\" is not sung\n", "divided otherwise: 3 syllables for 2 notes\n",
          "not reached: no hyphen holds syllable 3: the dictionary divides the word as "
          "fia-sco\n"}) {
        EXPECT_NE(run.out.find(reason), std::string::npos) << run.out;
    }
    EXPECT_EQ(lastLineOf(run.out),
              "words: 6; as they are: 1, with hyphens: 1, with other entries: 1, with brackets: 0; "
              "not fitted: 3 (unknown: 1, divided otherwise: 1, not reached: 1)\n");
}

TEST_F(FitCommand, EndsWithThreeWhenWordsAreLeft) {
    EXPECT_EQ(fit("love me").status, 0);
    EXPECT_EQ(fit("love _").status, 0);
    EXPECT_EQ(fit("xyzzy").status, 3);
    EXPECT_EQ(fit("To- kyo").status, 3);
    EXPECT_EQ(fit("To- kyo", {"--brackets"}).status, 0);
    EXPECT_EQ(fit("fi- as- co _").status, 3);
}

TEST_F(FitCommand, SavesTheFittedWordsAsTheyAreTyped) {
    for (const auto* const name : {"fitted.json", "fitted.musicxml", "fitted.xml"}) {
        const auto run = fit(kSong, {"--save", path(name)});
        EXPECT_NE(run.out.find("\nwrote " + path(name) + "\nwords: "), std::string::npos);
        EXPECT_EQ(linesOf(readSong(folder.file(name))),
                  (std::vector<std::string>{"0 1 C4 Glo-ria*", "1 1 C4 ", "2 1 C4 ", "3 1 C4 ",
                                            "4 1 C4 our(1)*", "5 1 C4 xyzzy*", "6 1 C4 Tokyo*",
                                            "7 1 C4 ", "8 1 C4 love*", "9 1 C4 fiasco*", "10 1 C4 ",
                                            "11 1 C4 ", "12 1 C4 "}));
    }
}

TEST_F(FitCommand, SavesASongOfWhichEveryWordHasItsNotes) {
    fit(kSong, {"--brackets", "--save", path("fitted.json")});
    const auto compared = runProgram({"compare", path("fitted.json")}).out;
    EXPECT_NE(compared.find("same count: 5, fewer: 0, more: 0"), std::string::npos) << compared;
}

TEST_F(FitCommand, LeavesNothingOfAnOldDivisionInWhatItSaves) {
    const auto song = folder.write("divided.json",
                                   R"({"format": "wysim song 1", "title": "", "beats": 4,
        "beatType": 4, "pickup": 0, "tracks": [{"name": "", "notes": [
        {"start": 0, "length": 1, "pitch": 60, "lyric": "la[l a]", "typed": true},
        {"start": 1, "length": 1, "pitch": 60, "lyric": "[l i]", "typed": false},
        {"start": 2, "length": 1, "pitch": 60, "lyric": "old", "typed": false}]}]})");
    runProgram({"fit", "--brackets", "--save", path("fitted.json"), song.u8string()});
    EXPECT_EQ(linesOf(readSong(folder.file("fitted.json"))),
              (std::vector<std::string>{"0 1 C4 la[l a,l i,-]*", "1 1 C4 ", "2 1 C4 "}));
}

TEST_F(FitCommand, DrawsTheFittedSong) {
    fit("Glo- _ ri- a", {"--svg", path("fitted.svg")});
    const auto svg = bytesOf(folder.file("fitted.svg"));
    for (const auto* const text : {">Glo-ria</text>", ">Glo-ria[g l ao]</title>", ">[- ]</title>",
                                   ">[r iy]</title>", ">[ah]</title>"}) {
        EXPECT_NE(svg.find(text), std::string::npos) << text;
    }
}

TEST_F(FitCommand, TakesTheVerse) {
    const auto run = runProgram({"fit", "--verse", "2", dataFile("verses.musicxml").u8string()});
    EXPECT_NE(run.out.find("  second "), std::string::npos) << run.out;
}

TEST_F(FitCommand, RefusesASongWithoutWords) {
    const auto run = fit("_ _", {"--save", path("fitted.json"), "--svg", path("fitted.svg")});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.out, path("score.musicxml") + ": 1 track, 2 notes\n");
    EXPECT_EQ(run.err, "wysim: expected a song with words to fit, found none; lay a text under "
                       "it first: 'wysim lay SONG TEXT'.\n");
    EXPECT_FALSE(std::filesystem::exists(folder.file("fitted.json")));
    EXPECT_FALSE(std::filesystem::exists(folder.file("fitted.svg")));
}

// What a session on a melody of so many notes saves.
class FitOfASavedSession : public FitCommand, public testing::WithParamInterface<const char*> {
protected:
    tests::Run fitSession(const std::string& melody, const std::string& commands,
                          const std::vector<std::string>& options = {}) {
        const auto score = folder.write("melody.musicxml", scoreOfSyllables(melody));
        const auto saved = path(std::string("saved") + GetParam());
        runScript(score, commands + "\nsave " + saved);
        std::vector<std::string> arguments = {"fit", saved};
        arguments.insert(arguments.end(), options.begin(), options.end());
        return runProgram(arguments);
    }
};

TEST_P(FitOfASavedSession, TakesTheWordThatWasTypedForItsDivision) {
    const auto run =
        fitSession("_ _ _ _ _", "type 1 Gloria\ntype 5 our", {"--save", path("fitted.json")});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(
        run.out.substr(run.out.find('\n')),
        "\n"
        "  track  note  word    notes  type     the notes then carry       fitted by\n"
        "  1      1     Gloria  4      Gloria-  [g l ao] [r iy] [ah] [- ]  hyphens\n"
        "  1      5     our     1      our(1)   [aw r]                     other entry\n"
        "wrote " +
            path("fitted.json") +
            "\nwords: 2; as they are: 0, with hyphens: 1, with other entries: 1, with "
            "brackets: 0; not fitted: 0 (unknown: 0, divided otherwise: 0, not reached: 0)\n");
    EXPECT_EQ(linesOf(readSong(folder.file("fitted.json"))),
              (std::vector<std::string>{"0 1 C4 Gloria-*", "1 1 C4 ", "2 1 C4 ", "3 1 C4 ",
                                        "4 1 C4 our(1)*"}));
}

TEST_P(FitOfASavedSession, TakesBracketsOfAPersonsOwnAsTheyAre) {
    const auto run = fitSession("_ _ _ _ _ _", "type 1 Gloria[g l ao, r iy, a]\ntype 5 la[l a]");
    EXPECT_EQ(run.status, 3);
    for (const auto* const part :
         {"Gloria[g l ao,r iy,a] ", "not reached: its brackets give 3 syllables for 4 notes\n",
          "not reached: its brackets give 1 syllable for 2 notes\n"}) {
        EXPECT_NE(run.out.find(part), std::string::npos) << run.out;
    }
}

TEST_P(FitOfASavedSession, LeavesADivisionThatIsRightAsItIs) {
    const auto run = fitSession("_ _ _ _ _", "type 1 Glo-ria\ntype 5 la[l i]");
    EXPECT_EQ(lastLineOf(run.out).substr(0, 27), "words: 2; as they are: 2, w") << run.out;
    EXPECT_NE(run.out.find("  Glo-ria  4 "), std::string::npos) << run.out;
}

INSTANTIATE_TEST_SUITE_P(Saved, FitOfASavedSession, testing::Values(".musicxml", ".json"),
                         [](const auto& test) { return std::string(test.param).substr(1); });

TEST_F(FitCommand, WritesNothingOverTheSong) {
    for (const auto* const option : {"--save", "--svg"}) {
        const auto bytes = scoreOfSyllables("love");
        const auto name = option == std::string("--save") ? "link.xml" : "link.svg";
        std::filesystem::create_hard_link(folder.write("score.musicxml", bytes), folder.file(name));
        const auto run = runProgram({"fit", path("score.musicxml"), option, path(name)});
        EXPECT_EQ(run.status, 2);
        EXPECT_EQ(run.out, "");
        EXPECT_EQ(run.err, "wysim: expected another file to write than the song that was opened, "
                           "found " +
                               path(name) + ".\n");
        EXPECT_EQ(bytesOf(folder.file("score.musicxml")), bytes);
    }
}

TEST_F(FitCommand, FitsTheExampleSongs) {
    const auto totals = [](const char* name) {
        return lastLineOf(
            runProgram({"fit", sourceFile(std::string("wysim/songs/") + name).u8string()}).out);
    };
    EXPECT_EQ(totals("amazing-grace.musicxml").substr(0, 46),
              "words: 26; as they are: 19, with hyphens: 7, w");
    EXPECT_EQ(totals("twinkle.musicxml").substr(0, 28), "words: 32; as they are: 32, ");
    EXPECT_EQ(totals("sakura.musicxml").substr(0, 44),
              "words: 13; as they are: 8, with hyphens: 5, ");
    EXPECT_EQ(totals("two-bars.json").substr(0, 26), "words: 4; as they are: 4, ");
}

} // namespace

} // namespace wybeta::tests
