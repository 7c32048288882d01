// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/TestName.h"
#include "tests/wysim/SmallScores.h"
#include "tests/wysim/SongFixture.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <ostream>
#include <string>

namespace wybeta::tests {

namespace {

// What the commands answer, without the line that tells of the song. The song is さくら over three
// notes and love on the fourth.
Run session(const std::string& commands) {
    auto run = runScript(dataFile("plain.musicxml"), commands);
    run.out.erase(0, run.out.find('\n') + 1);
    return run;
}

constexpr auto kNothingMistaken = "";

void expectAnswer(const std::string& commands, const std::string& answer) {
    const auto run = session(commands);
    EXPECT_EQ(run.out, answer);
    EXPECT_EQ(run.err, kNothingMistaken);
    EXPECT_EQ(run.status, 0);
}

TEST(SessionCommands, ShowListsTheNotes) {
    expectAnswer("show", "> show\n"
                         "  note  start  length  pitch  lyric\n"
                         "  1     0      1       C4     さくら[s a]\n"
                         "  2     1      1       D4     [k u]\n"
                         "  3     2      1       E4     [r a]\n"
                         "  4     3      1       F4     love[l ah v]\n"
                         "every note carries a lyric\n");
    expectAnswer("show 2 3", "> show 2 3\n"
                             "  note  start  length  pitch  lyric\n"
                             "  2     1      1       D4     [k u]\n"
                             "  3     2      1       E4     [r a]\n");
}

// What "show" ends with on a melody of which these notes carry a lyric.
std::string lastShown(std::size_t notes, const std::string& commands) {
    const TemporaryFolder folder;
    std::string melody;
    for (std::size_t i = 0; i < notes; ++i) {
        melody += noteOf("C4", 1);
    }
    const auto song = folder.write("melody.musicxml", scoreOf({melody}));
    const auto out = runScript(song, commands + "show").out;
    return out.substr(out.rfind('\n', out.size() - 2) + 1);
}

TEST(SessionCommands, ShowEndsWithTheNotesWithoutALyric) {
    EXPECT_EQ(lastShown(2, "type 1 hello\n"), "every note carries a lyric\n");
    EXPECT_EQ(lastShown(3, "type 1 hello\n"), "notes without a lyric: 1 (note 3)\n");
    EXPECT_EQ(lastShown(5, "type 2 hello\n"), "notes without a lyric: 3 (notes 1, 4, 5)\n");
    EXPECT_EQ(lastShown(6, ""), "notes without a lyric: 6 (notes 1, 2, 3, 4, 5, 6)\n");
    EXPECT_EQ(lastShown(9, "type 1 hello\n"),
              "notes without a lyric: 7 (notes 3, 4, 5, 6, 7, 8, ...)\n");
}

TEST(SessionCommands, TypeTellsTheOldAndTheNewLyricOfEachNote) {
    expectAnswer("type 1 abandon", "> type 1 abandon\n"
                                   "note 1: \"さくら[s a]\" -> \"abandon[ah]\"\n"
                                   "note 2: \"[k u]\" -> \"[b ae n]\"\n"
                                   "note 3: \"[r a]\" -> \"[d ah n]\"\n");
    expectAnswer("type 4 twinkle love", "> type 4 twinkle love\n"
                                        "note 4: \"love[l ah v]\" -> "
                                        "\"twinkle love[t w ih ng]\"\n");
}

TEST(SessionCommands, TypeSaysWhatOfTheLyricIsNotSung) {
    expectAnswer("type 4 love, xyzzy me",
                 "> type 4 love, xyzzy me\n"
                 "note 4: \"love[l ah v]\" -> \"love, xyzzy me[m iy]\"\n"
                 "\"love,\" is not sung: a mark sticks to it. Write \"love\".\n"
                 "\"xyzzy\" is not sung: the dictionary does not have it. Write the whole lyric "
                 "as \"love, xyzzy me[l ah v,z ih,z iy,m iy]\" (a guess).\n");
    expectAnswer("type 4 xyzzy\nundo\nredo",
                 "> type 4 xyzzy\n"
                 "note 4: \"love[l ah v]\" -> \"xyzzy\"\n"
                 "\"xyzzy\" is not sung: the dictionary does not have it. Write "
                 "\"xyzzy[z ih,z iy]\" (a guess).\n"
                 "> undo\nnote 4: \"xyzzy\" -> \"love[l ah v]\"\n"
                 "> redo\nnote 4: \"love[l ah v]\" -> \"xyzzy\"\n");
    expectAnswer("add 5 1 C4 love?",
                 "> add 5 1 C4 love?\nnote 5 is new: \"love?\"\n\"love?\" is not "
                 "sung: a mark sticks to it. Write \"love\".\n");
}

TEST(SessionCommands, TypeSaysNothingOfHyphensThatHold) {
    expectAnswer("type 3 lo-ve", "> type 3 lo-ve\n"
                                 "note 3: \"[r a]\" -> \"lo-ve[l ah]\"\n");
}

TEST(SessionCommands, TypeTakesLyricsThatAreTooLongToCheck) {
    const std::string lyric(1'001, 'x');
    expectAnswer("type 4 " + lyric,
                 "> type 4 " + lyric + "\nnote 4: \"love[l ah v]\" -> \"" + lyric + "\"\n");
}

TEST(SessionCommands, TypeEmptiesANoteWithTwoQuotationMarks) {
    expectAnswer("type 4 \"\"", "> type 4 \"\"\nnote 4: \"love[l ah v]\" -> \"\"\n");
}

TEST(SessionCommands, AddPutsANoteInItsPlaceAndDividesItsLyric) {
    expectAnswer("add 5 0.5 C#5 love\nshow 5", "> add 5 0.5 C#5 love\n"
                                               "note 5 is new: \"love[l ah v]\"\n"
                                               "> show 5\n"
                                               "  note  start  length  pitch  lyric\n"
                                               "  5     5      0.5     C#5    love[l ah v]\n");
    expectAnswer("delete 2\nadd 1 1 60", "> delete 2\nnote 2 is gone: \"[k u]\"\n"
                                         "> add 1 1 60\nnote 2 is new: \"\"\n");
}

TEST(SessionCommands, DeleteCanBeUndone) {
    expectAnswer("delete 4\nundo", "> delete 4\nnote 4 is gone: \"love[l ah v]\"\n"
                                   "> undo\nnote 4 is new: \"love[l ah v]\"\n");
}

TEST(SessionCommands, UndoAndRedoTellWhatComesBack) {
    expectAnswer("type 4 la[l a]\nundo\nredo",
                 "> type 4 la[l a]\nnote 4: \"love[l ah v]\" -> \"la[l a]\"\n"
                 "> undo\nnote 4: \"la[l a]\" -> \"love[l ah v]\"\n"
                 "> redo\nnote 4: \"love[l ah v]\" -> \"la[l a]\"\n");
}

TEST(SessionCommands, UndoLeavesTheWordsOfTheOpenedSong) {
    const auto run = session("undo\nundo");
    EXPECT_EQ(run.out, "> undo\n> undo\n");
    EXPECT_EQ(run.err, "wysim: standard input, line 1: expected an edit to take back, found none; "
                       "nothing changed.\n"
                       "wysim: standard input, line 2: expected an edit to take back, found none; "
                       "nothing changed.\n");
}

TEST(SessionCommands, NotifyChangesNoLyric) {
    expectAnswer("notify", "> notify\nno lyric changed\n");
}

TEST(SessionCommands, TracksListsTheTracksAndGoesToOne) {
    const auto run = runScript(dataFile("two-voices.musicxml"), "tracks 2\ntype 1 la[l a]");
    EXPECT_EQ(run.out, dataFile("two-voices.musicxml").u8string() +
                           ": 2 tracks, 3 notes\n"
                           "> tracks 2\n"
                           "  track  notes  name\n"
                           "  1      2      Choir (voice 1)\n"
                           "  2 *    1      Choir (voice 2)\n"
                           "> type 1 la[l a]\n"
                           "track 2, note 1: \"low[l ow]\" -> \"la[l a]\"\n");
}

TEST(SessionCommands, SaveWritesTheDividedSong) {
    const TemporaryFolder folder;
    for (const auto* const name : {"song.json", "song.musicxml", "さくら.XML"}) {
        const auto path = folder.file(name);
        expectAnswer("save " + path.u8string(),
                     "> save " + path.u8string() + "\nwrote " + path.u8string() + "\n");
        EXPECT_EQ(readSong(path).tracks[0].notes[0].lyric.substr(0, 13), "さくら[s a");
    }
    expectAnswer("save " + folder.file("song.svg").u8string(),
                 "> save " + folder.file("song.svg").u8string() + "\nwrote " +
                     folder.file("song.svg").u8string() + "\n");
    EXPECT_EQ(bytesOf(folder.file("song.svg")).substr(0, 4), "<svg");
}

TEST(SessionCommands, AddFillsASongThatWasOpenedWithoutNotes) {
    const TemporaryFolder folder;
    const auto song = folder.write("empty.musicxml", scoreOf({restOf(4)}));
    const auto saved = folder.file("song.musicxml").u8string();
    const auto run = runScript(song, "show\ntype 1 la\nadd 0 1 C4 love\nsave " + saved);
    EXPECT_EQ(run.out, song.u8string() +
                           ": 1 track, 0 notes\n> show\n"
                           "  note  start  length  pitch  lyric\n"
                           "> type 1 la\n> add 0 1 C4 love\n"
                           "note 1 is new: \"love[l ah v]\"\n> save " +
                           saved + "\nwrote " + saved + "\n");
    EXPECT_EQ(run.err, "wysim: standard input, line 2: expected a note, found none in the track; "
                       "nothing changed.\n");
}

TEST(SessionCommands, TypeGivesAMelodyItsWords) {
    const TemporaryFolder folder;
    const auto song = folder.write("melody.musicxml", scoreOf({noteOf("C4", 2) + noteOf("D4", 2)}));
    const auto run = runScript(song, "type 1 hello");
    EXPECT_EQ(run.err, kNothingMistaken);
    EXPECT_NE(run.out.find("note 2: \"\" -> \"[l ow]\""), std::string::npos) << run.out;
}

TEST(SessionCommands, SaveLeavesNothingWhereItCannotWrite) {
    const TemporaryFolder folder;
    EXPECT_EQ(session("save " + folder.file("no/song.json").u8string()).status, 2);
    EXPECT_EQ(session("save " + folder.file("song.txt").u8string()).status, 2);
    EXPECT_TRUE(folder.isEmpty());
}

TEST(SessionCommands, SaveRefusesTheSongThatWasOpened) {
    const TemporaryFolder folder;
    const auto bytes = bytesOf(dataFile("plain.musicxml"));
    const auto song = folder.write("song.musicxml", bytes);
    const auto run = runScript(song, "type 1 la\nsave " + song.u8string());
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, "wysim: standard input, line 2: expected another file to write than the "
                       "song that was opened, found " +
                           song.u8string() + "; nothing changed.\n");
    EXPECT_EQ(bytesOf(song), bytes);
}

TEST(SessionCommands, SaveWritesNothingBetweenTheAnswers) {
    const auto run = session("save -");
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, "wysim: standard input, line 1: expected the name of a file, found '-', and "
                       "standard output is for what a session tells; nothing changed.\n");
}

TEST(SessionCommands, SaveLeavesOtherFilesBesideItAsTheyAre) {
    const TemporaryFolder folder;
    const auto other = folder.write("song.json.part", "mine");
    EXPECT_EQ(session("save " + folder.file("song.json").u8string()).status, 0);
    EXPECT_EQ(bytesOf(other), "mine");
    EXPECT_EQ(refusalOf(folder.file("song.json")), "");
    EXPECT_FALSE(std::filesystem::exists(folder.file("song.json.part2")));
}

#ifndef _WIN32
TEST(SessionCommands, SaveWritesToTheFileBehindASymbolicLink) {
    const TemporaryFolder folder;
    const auto file = folder.write("file.json", "old");
    const auto link = folder.file("link.json");
    std::filesystem::create_symlink(file, link);
    EXPECT_EQ(session("save " + link.u8string()).status, 0);
    EXPECT_TRUE(std::filesystem::is_symlink(link));
    EXPECT_EQ(refusalOf(file), "");
}
#endif

TEST(SessionCommands, HistoryListsCommandsToRunAgain) {
    expectAnswer("notify\n\n# a remark\nhistory\n!1", "> notify\nno lyric changed\n"
                                                      "> \n"
                                                      "> # a remark\n"
                                                      "> history\n  1  notify\n  2  history\n"
                                                      "> !1\nnotify\nno lyric changed\n");
}

TEST(SessionCommands, HelpNamesEveryCommand) {
    const auto run = session("help");
    for (const auto* const name : {"show", "tracks", "type", "add", "delete", "undo", "redo",
                                   "notify", "save", "history", "help", "quit"}) {
        EXPECT_NE(run.out.find(std::string("\n  ") + name), std::string::npos) << name;
    }
}

TEST(SessionCommands, HelpTellsOfOneCommand) {
    expectAnswer("help undo", "> help undo\n"
                              "  command  what it does\n"
                              "  undo     take the last edit back\n");
    expectAnswer("help type",
                 "> help type\n"
                 "  command         what it does\n"
                 "  type NOTE TEXT  type a lyric into a note: all up to the end of the line, "
                 "without quotation marks\n"
                 "                  (\"\" alone empties it); a hyphen holds a syllable over one "
                 "more note: type 1 Glo-ria\n");
}

TEST(SessionCommands, QuitEndsTheScript) {
    expectAnswer("quit\nbogus", "> quit\n");
}

struct Mistake {
    const char* command;
    const char* sentence;
};

void PrintTo(const Mistake& mistake, std::ostream* out) {
    *out << testing::PrintToString(mistake.command);
}

class MistakenCommand : public testing::TestWithParam<Mistake> {};

TEST_P(MistakenCommand, SaysWhatIsExpectedAndChangesNothing) {
    const TemporaryFolder folder;
    const auto save = "save " + folder.file("song.json").u8string();
    session(save);
    const auto untouched = bytesOf(folder.file("song.json"));
    const auto run = session("notify\n" + std::string(GetParam().command) + "\n" + save);
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, std::string("wysim: standard input, line 2: expected ") +
                           GetParam().sentence + "; nothing changed.\n");
    EXPECT_EQ(bytesOf(folder.file("song.json")), untouched);
}

INSTANTIATE_TEST_SUITE_P(
    SessionCommands, MistakenCommand,
    testing::Values(
        Mistake{"sing", "a command ('help' lists them), found 'sing'"},
        Mistake{"show 0", "a note from 1 to 4, found '0'"},
        Mistake{"show 3 2", "the first note to show before the last, found it behind"},
        Mistake{"show 1 2 3", "the command alone, found '3' behind it"},
        Mistake{"type", "a note from 1 to 4, found nothing"},
        Mistake{"type 5 la", "a note from 1 to 4, found '5'"},
        Mistake{"type 1", "a text behind the note (\"\" for none), found nothing"},
        Mistake{"type 1 \xFF", "a text of one line in UTF-8, found control characters or other "
                               "bytes"},
        Mistake{"add", "a start in quarter notes, found nothing"},
        Mistake{"add -1 1 C4", "a start from 0 to 1000000 quarter notes, found -1"},
        Mistake{"add 4 0 C4", "a length above 0 and up to 1000000 quarter notes, found 0"},
        Mistake{"add 4 1 H4", "a pitch such as C4, F#3 or 60, found 'H4'"},
        Mistake{"add 4 1 128", "a pitch from 0 to 127, found 128"},
        Mistake{"add 3.5 1 C4",
                "a time at which no other note sounds, found one at which note 4 does"},
        Mistake{"add 2.5 0.5 C4",
                "a time at which no other note sounds, found one at which note 3 does"},
        Mistake{"delete 99999999999", "a note from 1 to 4, found '99999999999'"},
        Mistake{"redo", "an undone edit to do again, found none"},
        Mistake{"help sing", "a command ('help' lists them), found 'sing'"},
        Mistake{"undo now", "the command alone, found 'now' behind it"},
        Mistake{"tracks 2", "a track from 1 to 1, found '2'"},
        Mistake{"save", "the name of a file, found nothing"},
        Mistake{"save song", "a name that ends in .json, .musicxml, .xml or .svg, found no ending"},
        Mistake{"!9", "a command of the history from 1 to 1, found '9'"}),
    [](const auto& test) { return testNameOf(test.param.command); });

} // namespace

} // namespace wybeta::tests
