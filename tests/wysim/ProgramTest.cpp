// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/wysim/SmallScores.h"
#include "tests/wysim/SongFixture.h"

#include "tests/Options.h"
#include "wysim/program/CommandLine.h"
#include "wysim/program/Program.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <istream>
#include <new>
#include <regex>
#include <sstream>
#include <streambuf>
#include <string>
#include <utility>
#include <vector>

namespace wybeta::tests {

namespace {

TEST(Program, ShowsHelp) {
    const auto run = runProgram({"--help"});
    EXPECT_EQ(run.status, 0);
    for (const auto* const option : {"SONG", "--module", "--verse", "--script", "--svg",
                                     "\n  compare ", "\n  fit ", "\n  check "}) {
        EXPECT_NE(run.out.find(option), std::string::npos) << option;
    }
}

TEST(Program, TellsItsVersion) {
    const auto run = runProgram({"--version"});
    EXPECT_EQ(run.status, 0);
    EXPECT_TRUE(std::regex_match(run.out, std::regex("wysim \\d+\\.\\d+\\.\\d+\n"))) << run.out;
}

TEST(Program, EndsWithTwoOnMistakenArguments) {
    const auto song = dataFile("plain.musicxml").u8string();
    const auto json = dataFile("plain.json").u8string();
    const auto folder = dataFile(".").u8string();
    for (const auto& arguments :
         std::vector<std::vector<std::string>>{{""},
                                               {"--sing"},
                                               {"--verse", "1"},
                                               {song, "--verse", "0"},
                                               {song, "--verse", "x"},
                                               {json, "--verse", "1"},
                                               {song, "--svg", ""},
                                               {song, "--svg", "song.musicxml"},
                                               {song, "--script", ""},
                                               {song, "--script", folder},
                                               {"compare", song, "--svg", "song.svg"},
                                               {"compare", song, "--script", "-"},
                                               {song, "more"},
                                               {"compare"},
                                               {"compare", song, song},
                                               {song, "compare", song},
                                               {"--svg", "song.svg", "compare", song},
                                               {"fit"},
                                               {"fit", song, "--script", "-"},
                                               {"--script", "-", "fit", song},
                                               {"fit", song, "--json"},
                                               {"fit", song, "--save", ""},
                                               {"fit", song, "--save", "song.mxl"},
                                               {"fit", song, "--svg", "song.json"},
                                               {"fit", json, "--verse", "1"},
                                               {song, "--save", "song.json"},
                                               {song, "--brackets"},
                                               {"check"},
                                               {"check", ""},
                                               {"check", "-", "--svg", "song.svg"},
                                               {"--svg", "song.svg", "check", "-"},
                                               {"--verse", "1", "check", "-"},
                                               {song, "--script", "missing.txt"}}) {
        const auto run = runProgram(arguments);
        EXPECT_EQ(run.status, 2);
        EXPECT_EQ(run.err.substr(0, 16), "wysim: expected ") << run.err;
    }
}

TEST(Program, EndsWithTwoAndWritesNothingOnABadSong) {
    const TemporaryFolder folder;
    const auto svg = folder.file("song.svg");
    const auto bad = folder.write("bad.musicxml", scoreOf({noteOf("H4", 1)}));
    const auto cutShort = folder.write("cut-short.xml", "<score-partwise");
    for (const auto& song : {bad, cutShort, folder.file("missing.json")}) {
        const auto run = runProgram({song.u8string(), "--svg", svg.u8string()});
        EXPECT_EQ(run.status, 2);
        EXPECT_EQ(run.out, "");
        EXPECT_EQ(run.err, "wysim: " + refusalOf(song) + ".\n");
        EXPECT_FALSE(std::filesystem::exists(svg));
    }
}

TEST(Program, WarnsOfWhatIsNotInTheSongAsItIsWritten) {
    const TemporaryFolder folder;
    const auto song = folder.write("song.xml", scoreOf({noteOf("C4", 1) + backupOf(2)})).u8string();
    for (const auto& arguments :
         {std::vector<std::string>{song}, {song, "--svg", folder.file("song.svg").u8string()}}) {
        const auto run = runProgram(arguments);
        EXPECT_EQ(run.status, 0);
        EXPECT_EQ(run.err, "wysim: " + song +
                               ": a backup beyond the start of its measure goes to that start, in "
                               "measure 1 of 'Voice' at line 5, column 2.\n");
    }
}

TEST(Program, EndsWithOneWhenTheModuleCannotBeLoaded) {
    const auto song = dataFile("plain.musicxml").u8string();
    const auto run = runProgram({song, "--module", song, "--svg", "unused.svg"});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err.find("wysim: expected a module in the file "), 0u) << run.err;
}

// The built module with another pronunciation of "love" in its dictionary.
std::string moduleThatSingsLoveOtherwise() {
    auto bytes = bytesOf(modulePath());
    const std::string line = "\nlove\tl ah1 v\t";
    const auto found = bytes.find(line);
    EXPECT_NE(found, std::string::npos);
    return bytes.replace(found, line.size(), "\nlove\tl ae1 v\t");
}

TEST(Program, EndsWithOneWhenTheModuleSingsSomethingElseThanWasRead) {
    const TemporaryFolder folder;
    const auto module = folder.write("Other.vst3", moduleThatSingsLoveOtherwise()).u8string();
    const auto song = dataFile("plain.musicxml").u8string();
    const auto expectDisagreement = [&](std::vector<std::string> arguments,
                                        const std::string& input) {
        arguments.insert(arguments.end(), {"--module", module});
        const auto run = runProgram(arguments, input);
        EXPECT_EQ(run.status, 1) << arguments.front();
        EXPECT_EQ(run.err, "wysim: internal error: expected the module to sing \"love\" as "
                           "[l ah v], found [l ae v]; the module may be of another version.\n");
    };
    expectDisagreement({"check", "-"}, "hello\nlove\n");
    expectDisagreement({song, "--script", "-"}, "type 1 love\n");
    const auto run = runProgram({"check", "-", "--module", module}, "hello\n");
    EXPECT_EQ(run.status, 0) << run.err;
}

TEST(Program, ExpectsAVerseOfAtLeastOne) {
    const auto run = runProgram({"song.musicxml", "--verse", "0"});
    EXPECT_EQ(run.err, "wysim: expected a whole number of at least 1 as --verse, found '0'.\n");
}

TEST(Program, SaysWhichOptionACommandDoesNotHave) {
    const auto song = dataFile("plain.musicxml").u8string();
    EXPECT_EQ(runProgram({"--svg", "song.svg", "compare", song}).err,
              "wysim: expected an option that the command has, found --svg.\n");
    EXPECT_EQ(runProgram({"fit", song, "--save", "song.svg"}).err,
              "wysim: expected a name that ends in .json, .musicxml or .xml as --save, found "
              "'song.svg'.\n");
    EXPECT_EQ(runProgram({"--verse", "1"}).err,
              "wysim: expected --verse with a score only, found it with the example.\n");
    EXPECT_EQ(runProgram({song, "compare", song}).err,
              "wysim: expected one song, found several ('wysim --help' tells more).\n");
}

TEST(Program, NamesTheArgumentsThatItDoesNotKnow) {
    const auto song = dataFile("plain.musicxml").u8string();
    const auto refusal = [](const std::string& rest) {
        return "wysim: expected arguments as 'wysim " + rest + ".\n";
    };
    EXPECT_EQ(runProgram({"--help-all"}).err,
              refusal("--help' shows them, found --help-all, which it does not know"));
    EXPECT_EQ(runProgram({song, "--sing", "more"}).err,
              refusal("--help' shows them, found --sing more, which it does not know"));
    EXPECT_EQ(runProgram({"fit", song, "--json"}).err,
              refusal("fit --help' shows them, found --json, which it does not know"));
    EXPECT_EQ(runProgram({song, "--svg"}).err,
              refusal("--help' shows them, found --svg: 1 required FILE missing"));
}

TEST(Program, TellsHowAMelodyGetsItsWords) {
    const auto help = runProgram({"--help"}).out;
    for (const auto* const text : {"type 1 Glo-ria", "save song.musicxml", "WyBeta.vst3 beside"}) {
        EXPECT_NE(help.find(text), std::string::npos) << text;
    }
    EXPECT_NE(runProgram({"fit", "--help"}).out.find("a melody gets them by"), std::string::npos);
}

TEST(Program, ShowsTheOptionsOfACommand) {
    const auto run = runProgram({"fit", "--help"});
    EXPECT_EQ(run.status, 0);
    for (const auto* const option : {"SONG", "--verse", "--save", "--svg", "--brackets"}) {
        EXPECT_NE(run.out.find(option), std::string::npos) << option;
    }
}

TEST(Program, OpensAnExampleWhenNothingIsNamed) {
    const auto run = runProgram({}, "show 1 2\ntype 1 good morning\n");
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out.substr(0, run.out.find('\n')), "Hello さくら: 1 track, 8 notes");
    for (const auto* const text : {"This is an example. Type 'show'", "'wysim SONG'",
                                   "Hello[hh ah]\n", "-> \"good morning[g uh d]\"\n"}) {
        EXPECT_NE(run.out.find(text), std::string::npos) << text;
    }
}

TEST(Program, SaysWhatToDoNextInTheExampleOnly) {
    const auto run = runProgram({dataFile("plain.musicxml").u8string()});
    EXPECT_EQ(run.out.find("This is an example"), std::string::npos);
}

TEST(Program, DrawsTheExample) {
    const TemporaryFolder folder;
    EXPECT_EQ(runProgram({"--svg", folder.file("example.svg").u8string()}).status, 0);
    EXPECT_EQ(bytesOf(folder.file("example.svg")).substr(0, 4), "<svg");
}

TEST(Program, WaitsForEnterBeforeItsOwnWindowCloses) {
    const auto module = "--module=" + modulePath().u8string();
    for (const auto* const song : {"plain.musicxml", "missing.json"}) {
        std::istringstream in("\nnext");
        std::ostringstream out;
        std::ostringstream err;
        wysim::program::runWysim({module, "compare", dataFile(song).u8string()},
                                 {in, out, err, false, false, true});
        const std::string end = "\nPress Enter to close this window.\n";
        EXPECT_EQ(out.str().substr(out.str().size() - end.size()), end);
        std::string next;
        in >> next;
        EXPECT_EQ(next, "next");
    }
}

TEST(Program, FindsTheModuleBesideItselfOrOneFolderUp) {
    const auto found = wysim::program::moduleFile("");
    EXPECT_TRUE(std::filesystem::is_regular_file(found)) << found;
    EXPECT_NE(found.u8string().find("WyBeta.vst3"), std::string::npos);
}

TEST(Program, EndsWithOneWhenItsOutputCannotBeWritten) {
    std::istringstream in;
    std::ostream out(nullptr);
    std::ostringstream err;
    EXPECT_EQ(wysim::program::runWysim({"--help"}, {in, out, err}), 1);
    EXPECT_EQ(err.str(), "wysim: expected to write the output, found that it cannot be written.\n");
}

TEST(Program, WritesNoPictureOverTheSong) {
    const TemporaryFolder folder;
    const auto bytes = bytesOf(dataFile("plain.musicxml"));
    const auto song = folder.write("song.musicxml", bytes);
    std::filesystem::create_hard_link(song, folder.file("song.svg"));
    const auto run = runProgram({song.u8string(), "--svg", folder.file("song.svg").u8string()});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(bytesOf(song), bytes);
}

TEST(Program, WritesFilesToStandardOutputAndTellsTheRestBesideThem) {
    const auto song = dataFile("plain.musicxml").u8string();
    const auto fit = runProgram({"fit", song, "--save", "-"});
    EXPECT_EQ(fit.status, 0) << fit.err;
    EXPECT_EQ(refusalOfBytes(fit.out), "");
    EXPECT_NE(fit.err.find("words: "), std::string::npos) << fit.err;
    EXPECT_EQ(fit.err.find("wrote"), std::string::npos) << fit.err;

    const TemporaryFolder folder;
    const auto saved = folder.file("song.json");
    const auto picture = runProgram({"fit", song, "--svg", "-", "--save", saved.u8string()});
    EXPECT_EQ(picture.out.substr(0, 4), "<svg");
    EXPECT_EQ(picture.out.substr(picture.out.size() - 7), "</svg>\n");
    EXPECT_NE(picture.err.find("wrote " + saved.u8string()), std::string::npos) << picture.err;

    const auto laid = runProgram({"lay", song, "-", "--json", "-"}, "la la\n");
    EXPECT_EQ(laid.out.substr(0, 1), "{");
    EXPECT_EQ(laid.out.substr(laid.out.size() - 2), "}\n");
    EXPECT_NE(laid.err.find("lines: 1, "), std::string::npos) << laid.err;

    const auto session = runProgram({song, "--svg", "-", "--script", "-"}, "show 1\n");
    EXPECT_EQ(session.out.substr(0, 4), "<svg");
    EXPECT_NE(session.err.find("> show 1\n"), std::string::npos) << session.err;
}

TEST(Program, WritesOneFileToStandardOutput) {
    const auto song = dataFile("plain.musicxml").u8string();
    const auto run = runProgram({"fit", song, "--save", "-", "--svg", "-"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, "wysim: expected one file for standard output, found 2.\n");
}

#ifndef _WIN32
TEST(Program, WritesToNoDevice) {
    const TemporaryFolder folder;
    const auto song = dataFile("plain.musicxml").u8string();
    const auto link = folder.file("link.svg").u8string();
    std::filesystem::create_symlink("/dev/full", link);
    for (const auto& [arguments, device] :
         std::vector<std::pair<std::vector<std::string>, std::string>>{
             {{"lay", song, "-", "--json", "/dev/full"}, "/dev/full"},
             {{"fit", song, "--svg", link}, link},
             {{song, "--svg", link}, link}}) {
        const auto run = runProgram(arguments, "la\n");
        EXPECT_EQ(run.status, 2);
        EXPECT_EQ(run.err,
                  "wysim: expected an ordinary file to write, found a device at " + device + ".\n");
        EXPECT_TRUE(std::filesystem::is_character_file(device));
    }
}

TEST(Program, EndsWithOneWhenStandardOutputIsFull) {
    std::istringstream in;
    std::ofstream full("/dev/full");
    std::ostringstream err;
    const auto status =
        wysim::program::runWysim({"--module=" + modulePath().u8string(), "fit",
                                  dataFile("plain.musicxml").u8string(), "--save", "-"},
                                 {in, full, err});
    EXPECT_EQ(status, 1);
    const std::string expected =
        "wysim: expected to write the output, found that it cannot be written.\n";
    EXPECT_NE(err.str().find(expected), std::string::npos) << err.str();
}
#endif

// A text for which there is no memory.
class EndlessText : public std::streambuf {
    int_type underflow() override { throw std::bad_alloc(); }
};

TEST(Program, SaysThatItIsOutOfMemory) {
    EndlessText text;
    std::istream in(&text);
    in.exceptions(std::ios::badbit);
    std::ostringstream out;
    std::ostringstream err;
    EXPECT_EQ(wysim::program::runWysim({"check", "-"}, {in, out, err}), 1);
    EXPECT_EQ(err.str(),
              "wysim: expected enough memory, found that the program is out of memory.\n");
}

TEST(Program, TakesTheVerse) {
    const auto run = runProgram({dataFile("verses.musicxml").u8string(), "--verse", "2"}, "show 1");
    EXPECT_NE(run.out.find("second["), std::string::npos) << run.out;
}

TEST(Program, GoesOnAfterAMistakeAndEndsWithTwo) {
    const TemporaryFolder folder;
    const auto script = folder.write("script.txt", "\r\nsing\r\ntype 4 la[l a]\r\n").u8string();
    const auto run = runProgram({dataFile("plain.musicxml").u8string(), "--script", script});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, "wysim: " + script +
                           ", line 2: expected a command ('help' lists them), found 'sing'; "
                           "nothing changed.\n");
    EXPECT_NE(run.out.find("-> \"la[l a]\""), std::string::npos);
}

TEST(Program, WritesAPictureWithoutASession) {
    const TemporaryFolder folder;
    const auto svg = folder.file("さくら.svg");
    const auto run =
        runProgram({dataFile("plain.musicxml").u8string(), "--svg", svg.u8string()}, "bogus");
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(bytesOf(svg).substr(0, 4), "<svg");
}

} // namespace

} // namespace wybeta::tests
