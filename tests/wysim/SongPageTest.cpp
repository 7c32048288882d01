// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/page/SongPage.h"

#include "simulator/LoadedModule.h"
#include "tests/Options.h"
#include "tests/wysim/ScoreFixture.h"
#include "tests/wysim/SongFixture.h"
#include "wysim/picture/SongPicture.h"
#include "wysim/song/Example.h"
#include "wysim/song/JsonSong.h"
#include "wysim/song/MusicXmlWriter.h"
#include "wysim/song/Song.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <array>
#include <cstddef>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace wybeta::tests {

namespace {

using Json = nlohmann::json;
using wysim::song::Song;

using Texts = std::vector<std::string>;

Json parsed(const std::string& answer) {
    return Json::parse(answer);
}

// One member of each note of a track.
Texts each(const Json& song, const char* member, std::size_t track = 0) {
    Texts texts;
    for (const auto& note : song.at("tracks").at(track).at("notes")) {
        texts.push_back(note.at(member));
    }
    return texts;
}

// Quarter notes one after the other, with gaps between; lyrics with a star are typed.
Song songOf(const Texts& lyrics) {
    Song song;
    song.title = "Song";
    song.tracks = {{"Singer", {}}};
    for (const auto& lyric : lyrics) {
        const bool isTyped = !lyric.empty() && lyric.back() == '*';
        const auto start = 2.0 * static_cast<double>(song.tracks[0].notes.size());
        song.tracks[0].notes.push_back(
            {start, 1, 60, isTyped ? lyric.substr(0, lyric.size() - 1) : lyric, isTyped, false});
    }
    return song;
}

class SongPageTest : public testing::Test {
protected:
    void TearDown() override { page.close(); }

    Json open(const Song& song) { return parsed(page.open(jsonFromSong(song), "song.json")); }
    Json openScore(const std::string& syllables) {
        return parsed(page.open(scoreOfSyllables(syllables), "score.musicxml"));
    }

    // Expects that the answer is an error, and that the song is as it was; gives the sentence.
    std::string errorOf(std::string (wysim::page::SongPage::*method)()) {
        return errorIn([&] { return (page.*method)(); });
    }
    template <class Call>
    std::string errorIn(Call call) {
        const auto before = page.song();
        const auto answer = parsed(call());
        EXPECT_EQ(page.song(), before);
        EXPECT_EQ(answer.size(), 1u) << answer.dump();
        return answer.value("error", "no error: " + answer.dump());
    }

    const simulator::LoadedModule module{modulePath()};
    wysim::page::SongPage page{module.exports()};
};

TEST_F(SongPageTest, TellsOfASongAndItsNotes) {
    auto song = songOf({"さくら*", "", "", "xyzzy*", ""});
    song.title = R"(A "song"\)";
    song.time = {3, 4};
    song.pickup = 0.5;
    song.tracks[0].notes[1].start = 1.75;
    song.tracks[0].notes[1].pitch = 61;
    const auto answer = open(song);
    EXPECT_EQ(answer.at("title"), song.title);
    EXPECT_EQ(answer.at("time"), (Json{{"beats", 3}, {"beatType", 4}}));
    EXPECT_EQ(answer.at("pickup"), 0.5);
    EXPECT_EQ(answer.at("canUndo"), false);
    EXPECT_EQ(answer.at("canRedo"), false);
    EXPECT_EQ(answer.at("tracks").at(0).at("name"), "Singer");
    EXPECT_EQ(answer.at("tracks").at(0).at("notes").at(1), (Json{{"start", 1.75},
                                                                 {"length", 1},
                                                                 {"pitch", 61},
                                                                 {"pitchName", "C#4"},
                                                                 {"lyric", "[k u]"},
                                                                 {"word", ""},
                                                                 {"phonemes", "k u"},
                                                                 {"kind", "further"},
                                                                 {"typed", ""}}));
}

TEST_F(SongPageTest, TellsWordsFurtherSyllablesUnsungAndEmptyNotesApart) {
    const auto song = open(songOf({"さくら*", "", "", "xyzzy*", "[s a]*", "", "la[l a]", "[]*"}));
    EXPECT_EQ(each(song, "kind"),
              (Texts{"word", "further", "further", "unsung", "word", "empty", "word", "unsung"}));
    EXPECT_EQ(each(song, "word"), (Texts{"さくら", "", "", "xyzzy", "", "", "la", ""}));
    EXPECT_EQ(each(song, "phonemes"), (Texts{"s a", "k u", "r a", "", "s a", "", "l a", ""}));
    EXPECT_EQ(each(song, "typed"), (Texts{"さくら", "", "", "xyzzy", "[s a]", "", "", "[]"}));
}

TEST_F(SongPageTest, OpensAnExampleForEachLanguage) {
    const auto english = parsed(page.openExample("en"));
    EXPECT_EQ(english.at("title"), wysim::song::exampleSong().title);
    const auto japanese = parsed(page.openExample("ja"));
    EXPECT_EQ(each(japanese, "lyric"),
              (Texts{"さくら[s a]", "[k u]", "[r a]", "さくら[s a]", "[k u]", "[r a]"}));
    EXPECT_EQ(parsed(page.song()), japanese);
    EXPECT_EQ(errorIn([&] { return page.openExample("fr"); }),
              "expected the language en or ja, found 'fr'");
}

TEST_F(SongPageTest, OpensEveryKindOfFileWithItsWarnings) {
    EXPECT_EQ(open(songOf({"la*"})).at("warnings"), Json::array());
    const auto bytes = bytesOf(dataFile("plain.musicxml"));
    const auto expected = openBytes(bytes);
    const auto score = parsed(page.open(bytes, "PLAIN.XML"));
    EXPECT_EQ(score.at("warnings"), Json(expected.warnings));
    EXPECT_EQ(each(score, "typed"), (Texts{"さくら", "", "", "love"}));
    const auto two = parsed(page.open(bytesOf(dataFile("two-voices.musicxml")), "x.musicxml"));
    EXPECT_EQ(two.at("tracks").size(), 2u);
    EXPECT_EQ(each(two, "lyric", 1), Texts{"low[l ow]"});
}

TEST_F(SongPageTest, KeepsTheSongWhenAnotherCannotBeOpened) {
    open(songOf({"hello*", ""}));
    page.type(1, 1, "love");
    EXPECT_EQ(errorIn([&] { return page.open("{}", "x.json"); }),
              "x.json: expected a text as 'format', found none");
    EXPECT_EQ(errorIn([&] { return page.open("<a/>", "さくら.txt"); }),
              "さくら.txt: expected a name that ends in .musicxml, .xml, .mxl or .json, found "
              "'.txt'");
    EXPECT_NE(errorIn([&] { return page.open("\xFF\xFE", "x.mxl"); }).find("x.mxl: expected"),
              std::string::npos);
    // The history is there as well.
    EXPECT_EQ(each(parsed(page.undo()), "lyric"), (Texts{"hello[hh ah]", "[l ow]"}));
}

TEST_F(SongPageTest, BeginsAnotherHistoryWithAnotherSong) {
    open(songOf({"hello*", ""}));
    page.type(1, 1, "love");
    const auto song = open(songOf({"", ""}));
    EXPECT_EQ(song.at("canUndo"), false);
    EXPECT_EQ(each(parsed(page.type(1, 1, "hello")), "lyric"), (Texts{"hello[hh ah]", "[l ow]"}));
    page.undo();
    EXPECT_EQ(errorOf(&wysim::page::SongPage::undo), "expected an edit to take back, found none");
}

TEST_F(SongPageTest, SaysThatNothingIsOpen) {
    const std::string sentence = R"({"error":"expected an open song, found none"})";
    EXPECT_EQ(page.song(), sentence);
    EXPECT_EQ(page.type(1, 1, "la"), sentence);
    EXPECT_EQ(page.add(1, 0, 1, 60), sentence);
    EXPECT_EQ(page.undo(), sentence);
    EXPECT_EQ(page.check(1, 1), sentence);
    EXPECT_EQ(page.fit(false, false), sentence);
    EXPECT_EQ(page.save("json"), sentence);
}

TEST_F(SongPageTest, TypesALyricAndSaysWhatIsNotSung) {
    open(songOf({"", "", ""}));
    const auto song = parsed(page.type(1, 1, "loveキャンディ"));
    EXPECT_EQ(each(song, "lyric"), (Texts{"loveキャンディ[ky a]", "[N]", "[d i]"}));
    EXPECT_EQ(each(song, "typed"), (Texts{"loveキャンディ", "", ""}));
    EXPECT_EQ(song.at("canUndo"), true);
    const Json check = {{"lyric", "loveキャンディ"},
                        {"syllables", {"ky a", "N", "d i"}},
                        {"lost", 0},
                        {"findings",
                         {{{"reason", "kana-pair"},
                           {"sung", false},
                           {"word", "loveキャ"},
                           {"column", 1},
                           {"sentence", "\"loveキャ\" is not sung: two kana of one syllable come "
                                        "right behind it. Write \"love キャ\"."},
                           {"suggestions", {{{"text", "love キャ"}}}}}}}};
    EXPECT_EQ(song.at("check"), check);
    EXPECT_EQ(parsed(page.check(1, 1)), check);
}

TEST_F(SongPageTest, CountsTheSyllablesThatAreLost) {
    open(songOf({"", "", "la*"}));
    EXPECT_EQ(parsed(page.type(1, 1, "さくらさくら")).at("check").at("lost"), 4);
    EXPECT_EQ(parsed(page.type(1, 3, "さくら")).at("check").at("lost"), 2);
    EXPECT_EQ(parsed(page.type(1, 1, "hello")).at("check").at("lost"), 0);
}

TEST_F(SongPageTest, ChecksALyricThatTheSongWasOpenedWith) {
    open(songOf({"", "Hello,*"}));
    const auto check = parsed(page.check(1, 2));
    EXPECT_EQ(check.at("lyric"), "Hello,");
    EXPECT_EQ(check.at("findings").at(0).at("suggestions"), (Json{{{"text", "Hello"}}}));
    EXPECT_EQ(parsed(page.check(1, 1)), (Json{{"lyric", ""},
                                              {"syllables", Json::array()},
                                              {"lost", 0},
                                              {"findings", Json::array()}}));
}

TEST_F(SongPageTest, TypesTheSameLyricAgainAfterTryingIt) {
    open(songOf({"", ""}));
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(each(parsed(page.type(1, 1, "hello")), "lyric"),
                  (Texts{"hello[hh ah]", "[l ow]"}));
    }
    EXPECT_EQ(each(parsed(page.type(1, 1, "")), "lyric"), (Texts{"", "[l ow]"}));
    page.undo();
    EXPECT_EQ(each(parsed(page.undo()), "lyric"), (Texts{"hello[hh ah]", "[l ow]"}));
    EXPECT_EQ(each(parsed(page.undo()), "lyric"), (Texts{"", ""}));
    EXPECT_EQ(each(parsed(page.redo()), "lyric"), (Texts{"hello[hh ah]", "[l ow]"}));
}

TEST_F(SongPageTest, TypesNothingByMistake) {
    open(songOf({"hello*", ""}));
    const auto error = [&](int track, int note, const std::string& text) {
        return errorIn([&] { return page.type(track, note, text); });
    };
    EXPECT_EQ(error(2, 1, "la"), "expected a track from 1 to 1, found 2");
    EXPECT_EQ(error(0, 1, "la"), "expected a track from 1 to 1, found 0");
    EXPECT_EQ(error(1, 3, "la"), "expected a note from 1 to 2, found 3");
    EXPECT_EQ(error(1, -1, "la"), "expected a note from 1 to 2, found -1");
    EXPECT_EQ(error(1, 1, "a\nb"),
              "expected a text of one line in UTF-8, found control characters or other bytes");
    EXPECT_EQ(error(1, 1, "a\tb"),
              "expected a text of one line in UTF-8, found control characters or other bytes");
    EXPECT_EQ(error(1, 1, "\xED\xA0\x80"),
              "expected a text of one line in UTF-8, found control characters or other bytes");
    EXPECT_EQ(error(1, 1, std::string(1001, 'a')),
              "expected a line of at most 1000 characters, found one of 1001");
}

TEST_F(SongPageTest, AddsMovesAndRemovesNotes) {
    open(songOf({"hello*", ""}));
    const auto added = parsed(page.add(1, 1.5, 0.25, 72));
    EXPECT_EQ(added.at("note"), 2);
    EXPECT_EQ(each(added, "lyric"), (Texts{"hello[hh ah]", "", "[l ow]"}));
    EXPECT_EQ(added.at("tracks").at(0).at("notes").at(1).at("start"), 1.5);
    const auto moved = parsed(page.move(1, 1, 8, 2, 64));
    EXPECT_EQ(moved.at("note"), 3);
    EXPECT_EQ(each(moved, "pitchName"), (Texts{"C5", "C4", "E4"}));
    EXPECT_EQ(each(moved, "lyric"), (Texts{"", "[l ow]", "hello[hh ah]"}));
    EXPECT_EQ(each(parsed(page.remove(1, 2)), "lyric"), (Texts{"", "hello[hh ah]"}));
    page.undo();
    page.undo();
    const auto undone = parsed(page.undo());
    EXPECT_EQ(each(undone, "lyric"), (Texts{"hello[hh ah]", "[l ow]"}));
    EXPECT_EQ(undone.at("canUndo"), false);
    EXPECT_EQ(undone.at("canRedo"), true);
}

TEST_F(SongPageTest, AddsToATrackWithoutNotes) {
    open(songOf({}));
    EXPECT_EQ(errorIn([&] { return page.type(1, 1, "la"); }), "expected a note, found none");
    page.add(1, 0, 1, 60);
    EXPECT_EQ(each(parsed(page.type(1, 1, "la")), "lyric"), Texts{"la[l aa]"});
}

TEST_F(SongPageTest, ChangesNoNotesByMistake) {
    open(songOf({"hello*", ""}));
    const std::string overlap =
        "expected a time at which no other note sounds, found one at which note ";
    EXPECT_EQ(errorIn([&] { return page.add(1, 0.5, 1, 60); }), overlap + "1 does");
    EXPECT_EQ(errorIn([&] { return page.move(1, 1, 1.5, 1, 60); }), overlap + "2 does");
    EXPECT_EQ(errorIn([&] { return page.move(1, 1, -1, 1, 60); }),
              "expected a start from 0 to 1000000 quarter notes, found -1");
    EXPECT_EQ(errorIn([&] { return page.add(1, 9, 0, 60); }),
              "expected a length above 0 and up to 1000000 quarter notes, found 0");
    EXPECT_EQ(errorIn([&] { return page.add(1, 9, 1, 128); }),
              "expected a pitch from 0 to 127, found 128");
    const auto noNumber = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(errorIn([&] { return page.move(1, 1, noNumber, 1, 60); }),
              "expected a start from 0 to 1000000 quarter notes, found nan");
    EXPECT_EQ(errorIn([&] { return page.move(1, 3, 0, 1, 60); }),
              "expected a note from 1 to 2, found 3");
    EXPECT_EQ(errorIn([&] { return page.remove(1, 0); }), "expected a note from 1 to 2, found 0");
    EXPECT_EQ(errorIn([&] { return page.add(2, 9, 1, 60); }),
              "expected a track from 1 to 1, found 2");
    EXPECT_EQ(errorIn([&] { return page.check(1, 5); }), "expected a note from 1 to 2, found 5");
    EXPECT_EQ(errorOf(&wysim::page::SongPage::undo), "expected an edit to take back, found none");
    EXPECT_EQ(errorOf(&wysim::page::SongPage::redo),
              "expected an undone edit to do again, found none");
}

TEST_F(SongPageTest, FitsAScoreAsFitDoes) {
    openScore("Glo- _ _ ri- a xyzzy");
    const auto song = parsed(page.fit(false, false));
    EXPECT_EQ(song.at("fit"), (Json{{"words", 2},
                                    {"asTheyAre", 0},
                                    {"hyphens", 1},
                                    {"otherEntries", 0},
                                    {"brackets", 0},
                                    {"guesses", 0},
                                    {"notFitted", 1},
                                    {"left",
                                     {{{"track", 1},
                                       {"note", 6},
                                       {"word", "xyzzy"},
                                       {"outcome", "unknown"},
                                       {"reason", "\"xyzzy\" is not sung"}}}}}));
    EXPECT_EQ(each(song, "lyric"),
              (Texts{"Glo--ria[g l ao]", "[-]", "[- ]", "[r iy]", "[ah]", "xyzzy"}));
    EXPECT_EQ(each(parsed(page.undo()), "lyric"),
              (Texts{"Gloria[g l ao]", "[r iy]", "[ah]", "", "", "xyzzy"}));
    EXPECT_EQ(errorOf(&wysim::page::SongPage::undo), "expected an edit to take back, found none");
}

TEST_F(SongPageTest, FitsTheSongAsItIsNow) {
    open(songOf({"hello*", "", "", "さくら*", ""}));
    page.remove(1, 5);
    page.add(1, 7.5, 0.5, 60);
    page.add(1, 8, 0.5, 60);
    page.type(1, 4, "さら");
    const auto song = parsed(page.fit(false, false));
    EXPECT_EQ(song.at("fit").at("hyphens"), 2) << song.dump();
    EXPECT_EQ(each(song, "typed"), (Texts{"hello-", "", "", "さらー", "", ""}));
    EXPECT_EQ(each(song, "phonemes"), (Texts{"hh ah", "l ow", "- ", "s a", "r a", "-"}));
}

TEST_F(SongPageTest, FitsByBracketsWhenAskedTo) {
    open(songOf({"さくら*", ""}));
    EXPECT_EQ(parsed(page.fit(false, false)).at("fit").at("left").at(0).at("outcome"),
              "divided-otherwise");
    const auto song = parsed(page.fit(true, false));
    EXPECT_EQ(song.at("fit").at("brackets"), 1);
    EXPECT_EQ(each(song, "lyric"), (Texts{"さくら[s a]", "[k u r a]"}));
    EXPECT_EQ(each(song, "typed"), (Texts{"さくら[s a,k u r a]", ""}));
}

TEST_F(SongPageTest, OpensAHeldVowelThatItSavedAsItWasTyped) {
    open(songOf({"hel-lo*", "", ""}));
    const auto file = parsed(page.save("musicxml"));
    const auto song = parsed(page.open(file.at("text"), file.at("name")));
    EXPECT_EQ(each(song, "typed"), (Texts{"hel-lo", "", ""}));
}

TEST_F(SongPageTest, LaysATextAsOneEdit) {
    open(songOf({"hello*", "", "love*", "", ""}));
    const auto before = parsed(page.song());
    const auto song = parsed(page.lay(1, "my own\nhappy yeet love", false));
    EXPECT_EQ(each(song, "typed"), (Texts{"my", "own", "happy", "", "love"}));
    EXPECT_EQ(each(song, "phonemes"), (Texts{"m ay", "ow n", "hh ae", "p iy", "l ah v"}));
    const auto& laid = song.at("laid");
    EXPECT_EQ(laid.at("replaced"), 2);
    EXPECT_EQ(laid.at("asSung"), 2);
    EXPECT_EQ(laid.at("notSung"), 1);
    EXPECT_EQ(laid.at("rows").at(1).at("note"), 3);
    EXPECT_EQ(parsed(page.undo()).at("tracks"), before.at("tracks"));
    EXPECT_EQ(each(parsed(page.redo()), "typed"), each(song, "typed"));
}

TEST_F(SongPageTest, LaysGuessesWhenAskedTo) {
    open(songOf({"", ""}));
    const auto song = parsed(page.lay(1, "yeet love", true));
    EXPECT_EQ(each(song, "typed"), (Texts{"yeet[y iy t]", "love"}));
    EXPECT_EQ(song.at("laid").at("notSung"), 0);
}

TEST_F(SongPageTest, FitsALaidTextToTheNotesThatItWasLaidOn) {
    openScore("Glo- _ _ ri- a");
    page.lay(1, "my happy own love", false);
    const auto song = parsed(page.fit(false, false));
    EXPECT_EQ(song.at("fit").at("asTheyAre"), song.at("fit").at("words")) << song.dump();
}

TEST_F(SongPageTest, CountsTheLinesOfATextAndChangesNothing) {
    open(songOf({"hello*", "", ""}));
    const auto before = page.song();
    const auto lines = parsed(page.lines(1, "my own\n\n[Chorus]\nlove, yeet\nmore")).at("lines");
    EXPECT_EQ(page.song(), before);
    ASSERT_EQ(lines.size(), 3u);
    EXPECT_EQ(lines[0], (Json{{"line", 1},
                              {"syllables", 2},
                              {"onNotes", 2},
                              {"notes", 2},
                              {"unsung", Json::array()}}));
    EXPECT_EQ(lines[1].at("line"), 4);
    EXPECT_EQ(lines[1].at("unsung").at(0).at("column"), 7);
    EXPECT_EQ(lines[1].at("unsung").at(0).at("suggestions").back().at("text"), "yeet[y iy t]");
    EXPECT_EQ(lines[2].at("notes"), nullptr);
    EXPECT_EQ(parsed(page.lines(1, "[Chorus]")).at("lines"), Json::array());
}

TEST_F(SongPageTest, RefusesATextThatCannotBeLaid) {
    open(songOf({"", ""}));
    EXPECT_EQ(errorIn([&] { return page.lay(1, " ", false); }),
              "expected a text with words, found none");
    EXPECT_EQ(errorIn([&] { return page.lay(1, std::string(300'000, 'a'), false); }),
              "expected a text of at most 256 KiB, found 293 KiB");
    open(songOf({}));
    EXPECT_EQ(errorIn([&] { return page.lines(1, "love"); }),
              "expected a track with notes, found none");
}

TEST_F(SongPageTest, FitsNothingInASongWithoutWords) {
    open(songOf({"", ""}));
    const auto song = parsed(page.fit(true, false));
    EXPECT_EQ(song.at("fit").at("words"), 0);
    EXPECT_EQ(song.at("canUndo"), false);
}

TEST_F(SongPageTest, MakesNoEditOfAFitThatFindsAllInPlace) {
    open(songOf({"hello*", ""}));
    const auto song = parsed(page.fit(false, false));
    EXPECT_EQ(song.at("fit").at("asTheyAre"), 1);
    EXPECT_EQ(song.at("canUndo"), false);
}

TEST_F(SongPageTest, FitsANoteThatCameIntoAWordLater) {
    open(songOf({"さくら*", "", "", ""}));
    page.remove(1, 2);
    const auto song = parsed(page.fit(false, false));
    EXPECT_EQ(each(song, "phonemes"), (Texts{"s a", "k u", "r a"}));
}

TEST_F(SongPageTest, GivesLyricsBackAfterAFitWasTakenBack) {
    openScore("Glo- _ ri- a hel- _ lo");
    page.fit(false, false);
    const auto before = each(parsed(page.undo()), "lyric");
    page.type(1, 5, "love");
    EXPECT_EQ(each(parsed(page.undo()), "lyric"), before);
    page.remove(1, 7);
    EXPECT_EQ(each(parsed(page.undo()), "lyric"), before);
}

TEST_F(SongPageTest, SavesTheSongAndItsPicture) {
    auto song = songOf({"hello*", ""});
    song.title = " ..Song/1: \"あ\" ";
    open(song);
    page.type(1, 1, "love");
    const auto own = parsed(page.save("json"));
    EXPECT_EQ(own.at("name"), "Song-1- -あ-.json");
    EXPECT_EQ(own.at("mime"), "application/json");
    const auto saved = songFrom(own.at("text"), ".json");
    EXPECT_EQ(linesOf(saved), (Texts{"0 1 C4 love[l ah v]*", "2 1 C4 [l ow]"}));
    const auto xml = parsed(page.save("musicxml"));
    EXPECT_EQ(xml.at("name"), "Song-1- -あ-.musicxml");
    EXPECT_EQ(xml.at("text"), wysim::song::musicXmlFromSong(saved));
    const auto svg = parsed(page.save("svg"));
    EXPECT_EQ(svg.at("mime"), "image/svg+xml");
    EXPECT_EQ(svg.at("text"), wysim::picture::svgPicture(song, saved));
    EXPECT_EQ(errorIn([&] { return page.save("pdf"); }),
              "expected the kind musicxml, json or svg, found 'pdf'");
}

// Some edit by chance; many of them are mistakes.
std::string editByChance(wysim::page::SongPage& page, std::mt19937& random) {
    const auto below = [&](unsigned count) { return static_cast<int>(random() % count); };
    const auto* const lyric =
        std::array{"さくら", "hello", "", "light-", "xyzzy", "la[l a,l i]"}.at(random() % 6);
    switch (below(8)) {
    case 0:
        return page.add(1, below(40) * 0.5, 0.5, 60 + below(12));
    case 1:
        return page.move(1, 1 + below(9), below(40) * 0.5, 0.5 + below(2), 60 + below(12));
    case 2:
        return page.remove(1, 1 + below(9));
    case 3:
        return page.undo();
    case 4:
        return page.redo();
    case 5:
        return page.fit(below(2) == 0, below(2) == 0);
    default:
        return page.type(1, 1 + below(9), lyric);
    }
}

TEST_F(SongPageTest, GoesTheSameWayBackAndForth) {
    for (unsigned seed = 0; seed < 30; ++seed) {
        std::mt19937 random(seed);
        open(songOf({"さくら*", "", "", "hello*", "", "", "xyzzy*", ""}));
        std::vector<std::string> states = {page.song()};
        for (int i = 0; i < 60; ++i) {
            editByChance(page, random);
        }
        while (parsed(page.song()).at("canUndo")) {
            states.push_back(parsed(page.song()).at("tracks").dump());
            page.undo();
        }
        ASSERT_EQ(parsed(page.song()).at("tracks"), parsed(states.front()).at("tracks")) << seed;
        for (; states.size() > 1; states.pop_back()) {
            page.redo();
            ASSERT_EQ(parsed(page.song()).at("tracks").dump(), states.back()) << seed;
        }
    }
}

TEST_F(SongPageTest, OpensWhatItSavedAsItWasTyped) {
    const Texts typed = {"さくら", "", "", "lo-ve", "", "hello", "xyzzy[l a,l i]", "", "la[l a]"};
    open(songOf({"さくら*", "", "", "lo-ve*", "", "hello*", "xyzzy[l a,l i]*", "", "la[l a]*"}));
    const auto carried = each(parsed(page.song()), "lyric");
    for (const auto* const kind : {"json", "musicxml"}) {
        const auto file = parsed(page.save(kind));
        const auto song = parsed(page.open(file.at("text"), file.at("name")));
        EXPECT_EQ(each(song, "lyric"), carried) << kind;
        EXPECT_EQ(each(song, "typed"), typed) << kind;
    }
}

TEST_F(SongPageTest, NamesAFileOfASongWithoutATitle) {
    auto song = songOf({});
    song.title = " . ";
    open(song);
    EXPECT_EQ(parsed(page.save("svg")).at("name"), "song.svg");
}

TEST_F(SongPageTest, CallsASongWithoutATitleByItsFile) {
    auto song = songOf({"hello*", ""});
    EXPECT_EQ(open(song).at("name"), "Song");
    song.title = " ";
    const auto opened = parsed(page.open(jsonFromSong(song), "夜の \"歌\".v2.json"));
    EXPECT_EQ(opened.at("name"), "夜の \"歌\".v2");
    EXPECT_EQ(parsed(page.type(1, 1, "love")).at("name"), "夜の \"歌\".v2");
    EXPECT_EQ(parsed(page.save("musicxml")).at("name"), "夜の -歌-.v2.musicxml");
    // The song itself gets no title by that.
    EXPECT_EQ(songFrom(parsed(page.save("json")).at("text"), ".json").title, opened.at("title"));
    const auto example = parsed(page.openExample("en"));
    EXPECT_EQ(example.at("name"), example.at("title"));
}

} // namespace

} // namespace wybeta::tests
