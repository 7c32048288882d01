// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/laying/LaidText.h"

#include "tests/wysim/SmallMelodies.h"
#include "wysim/song/BadInput.h"
#include "wysim/song/Song.h"
#include "wysim/words/LyricReader.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <sstream>
#include <string>
#include <vector>

namespace wybeta::tests {

namespace {

using namespace wysim::laying;
using wysim::song::BadInput;
using wysim::song::Song;

wysim::words::LyricReader& reader() {
    static wysim::words::LyricReader reader;
    return reader;
}

LaidText laid(const std::string& melody, const std::string& text, bool usesGuesses = false) {
    return TextLaying(reader(), usesGuesses).lay(linesOfText(text), songOfMelody(melody), 0);
}

// For each line, what is typed into which note: "1:hap-py 4:love", "-:day" for a word without one.
std::vector<std::string> placesIn(const LaidText& laid) {
    std::vector<std::string> lines(laid.lines.size());
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const auto& line = laid.lines[i];
        for (auto word = line.firstWord; word < line.firstWord + line.words; ++word) {
            const auto& one = laid.words[word];
            lines[i] += lines[i].empty() ? "" : " ";
            lines[i] += one.note ? std::to_string(*one.note) + ":" + one.typed : "-:" + one.text;
        }
    }
    return lines;
}

std::vector<std::string> placesOf(const std::string& melody, const std::string& text,
                                  bool usesGuesses = false) {
    return placesIn(laid(melody, text, usesGuesses));
}

using Lines = std::vector<std::string>;

TEST(LaidText, HasAWordOnEachNoteWhereTheyAreAsMany) {
    EXPECT_EQ(placesOf("C4 D4 E4 F4", "love me, darling"), Lines{"1:love 2:me 3:darling"});
}

TEST(LaidText, HoldsSyllablesUnderSlurs) {
    EXPECT_EQ(placesOf("C4 D4 ~E4 F4", "gloria"), Lines{"1:glori-a"});
    EXPECT_EQ(placesOf("C4 ~D4 E4 F4 ~G4", "sweet love me"), Lines{"1:sweet- 3:love 4:me-"});
    EXPECT_EQ(placesOf("C4 D4 ~E4 F4", "happy day"), Lines{"1:happy- 4:day"});
}

TEST(LaidText, HoldsSyllablesUnderBeamsWhereSlursAloneDoNotAgree) {
    EXPECT_EQ(placesOf("C4:0.5 =D4:0.5 E4 F4:0.5 =G4:0.5 A4", "sweet love, be mine"),
              Lines{"1:sweet- 3:love 4:be- 6:mine"});
    EXPECT_EQ(placesOf("C4:0.5 =D4:0.5 E4 F4:0.5 =G4:0.5 A4", "my sweet love, be mine now"),
              Lines{"1:my 2:sweet 3:love 4:be 5:mine 6:now"});
}

TEST(LaidText, SingsEachNoteUnderASlurThatOnlyPhrases) {
    EXPECT_EQ(placesOf("C4 ~D4 ~E4 ~F4", "love me my dear"), Lines{"1:love 2:me 3:my 4:dear"});
}

TEST(LaidText, HoldsTheLastSyllableWhereNothingTellsWhich) {
    EXPECT_EQ(placesOf("C4 D4 E4 F4 G4", "love me"), Lines{"1:love 2:me---"});
    EXPECT_EQ(placesOf("C4 D4 E4, F4 G4", "love me\nnow"), (Lines{"1:love 2:me-", "4:now-"}));
}

TEST(LaidText, BeginsLinesWithPhrases) {
    EXPECT_EQ(placesOf("C4 D4 E4 r F4 G4 r A4 B4", "love me do\nmy love\ndarling"),
              (Lines{"1:love 2:me 3:do", "4:my 5:love", "6:darling"}));
    EXPECT_EQ(placesOf("C4 D4 r E4 F4 r G4 A4", "love me darling\nmy love"),
              (Lines{"1:love 2:me 3:darling", "5:my 6:love"}))
        << "one line, two phrases";
    EXPECT_EQ(placesOf("C4 D4 E4 F4 r G4 A4", "love me\nmy love\ndarling"),
              (Lines{"1:love 2:me", "3:my 4:love", "5:darling"}))
        << "two lines, one phrase";
}

TEST(LaidText, HasAPhraseForEachLineWhereTheyAreAsMany) {
    EXPECT_EQ(placesOf("C4 D4 E4 F4 r C4 D4 E4 F4", "I love\nyou too"),
              (Lines{"1:I 2:love--", "5:you 6:too--"}));
}

TEST(LaidText, LeavesNoWordWhileThereAreNotes) {
    EXPECT_EQ(placesOf("C4 D4 =E4:0.5 =F4:0.5 r C4 D4 =E4:0.5 =F4:0.5 =G4:0.5", "happy love again"),
              Lines{"1:happy 3:love- 5:again---"});
    const auto found = laid("C4:2 D4 E4:2 F4:2 C4 D4 E4 F4 C4 D4 E4 F4 C4 D4",
                            "love\nbeautiful\nbeautiful\nlight");
    EXPECT_FALSE(found.lines.back().isTooLong());
}

TEST(LaidText, LeavesNotesAfterTheTextAlone) {
    EXPECT_EQ(placesOf("C4 D4 r E4 F4 r G4 A4", "love me"), Lines{"1:love 2:me"});
}

TEST(LaidText, GoesAsFarAsThereAreNotes) {
    const auto found = laid("C4 D4 E4", "love me my darling");
    EXPECT_EQ(placesIn(found), Lines{"1:love 2:me 3:my -:darling"});
    EXPECT_TRUE(found.lines[0].isTooLong());
    EXPECT_EQ(found.lines[0].syllables, 5U);
    EXPECT_EQ(found.lines[0].onNotes, 3U);
}

TEST(LaidText, PutsTheSyllablesOfAWordThatHasNoRoomIntoABracket) {
    EXPECT_EQ(placesOf("C4 D4 E4", "love me darling"), Lines{"1:love 2:me 3:darling[d aa r]"});
}

TEST(LaidText, SingsAWordByAnotherEntryWhereThatAgrees) {
    EXPECT_EQ(placesOf("C4 D4 E4 r F4 G4", "our love now\nmy love"),
              (Lines{"1:our(1) 2:love 3:now", "4:my 5:love"}));
    EXPECT_EQ(placesOf("C4 D4 E4 F4 r F4 G4", "our love now\nmy love").front(),
              "1:our 3:love 4:now");
}

TEST(LaidText, ContractsAWordWhereThatAgrees) {
    EXPECT_EQ(placesOf("C4 D4 E4 r F4 G4", "heaven is love\nmy love").front(),
              "1:heaven[hh eh v n] 2:is 3:love");
    EXPECT_EQ(placesOf("C4 D4 E4 F4 r F4 G4", "heaven is love\nmy love").front(),
              "1:heaven 3:is 4:love");
    EXPECT_EQ(placesOf("C4 D4 ~E4 F4 r F4 G4", "flower is love\nmy love").front(),
              "1:flower[f l aw er] 2:is- 4:love");
}

TEST(LaidText, SoundsAnEndingWhereThatAgrees) {
    EXPECT_EQ(placesOf("C4 D4 E4 F4 r F4 G4", "blessed is he\nmy love").front(),
              "1:blessed[b l eh,s ih d] 3:is 4:he");
}

TEST(LaidText, HasKanaByMorae) {
    EXPECT_EQ(placesOf("A4 A4 B4:2 A4 A4 B4:2", "さくら さくら"), Lines{"1:さくら 4:さくら"});
    EXPECT_EQ(placesOf("A4 ~A4 B4 C5", "さくら"), Lines{"1:さーくら"});
    EXPECT_EQ(placesOf("A4 B4 C5 D5", "こんにちは"), Lines{"1:こんにちは[k o N,n i,ch i,h a]"});
}

TEST(LaidText, HasARunOfKanaAcrossPhrases) {
    EXPECT_EQ(placesOf("A4 A4 B4:2 r A4 A4 B4:2", "さくらさくら"), Lines{"1:さくらさくら"});
}

TEST(LaidText, GivesNoNoteToAWordThatIsNotSungUnlessItIsGuessed) {
    EXPECT_EQ(placesOf("C4 D4 E4", "yeet my love"), Lines{"-:yeet 1:my 2:love-"});
    EXPECT_EQ(placesOf("C4 D4 E4", "yeet my love", true), Lines{"1:yeet[y iy t] 2:my 3:love"});
}

TEST(LaidText, IsAlikeWhereALineIsSungTwice) {
    const std::string phrase = "C4 D4 E4:0.5 F4:0.5 G4 A4 r ";
    const auto lines = placesOf(phrase + phrase, "every flower blows\nevery flower blows");
    const auto found = laid(phrase + phrase, "every flower blows\nevery flower blows");
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(found.words[i].typed, found.words[i + 3].typed);
        EXPECT_EQ(*found.words[i].note + 6, *found.words[i + 3].note);
    }
}

TEST(LaidText, CountsWhatEachLineHas) {
    const auto found = laid("C4 ~D4 E4 r F4 G4", "love me\n\nmy yeet love");
    ASSERT_EQ(found.lines.size(), 2U);
    EXPECT_EQ(found.lines[0].number, 1U);
    EXPECT_EQ(found.lines[1].number, 3U);
    EXPECT_EQ(found.lines[0].syllables, 2U);
    EXPECT_EQ(found.lines[0].notes, 3U);
    EXPECT_EQ(found.lines[0].heldBySlurs, 1U);
    EXPECT_EQ(found.lines[0].heldFreely, 0U);
    EXPECT_TRUE(found.lines[0].isHeld());
    EXPECT_TRUE(found.lines[1].isAsSung());
    EXPECT_FALSE(found.words[3].isSung);
}

TEST(LaidText, CountsSyllablesThatShareANoteAsOne) {
    const auto found = laid("C4 D4 E4 r F4 G4", "heaven is love\nmy love");
    EXPECT_EQ(found.lines[0].syllables, 3U);
    EXPECT_TRUE(found.lines[0].isAsSung());
}

TEST(LaidText, SaysOfAHeldSyllableWhatShowsIt) {
    const auto line = laid("C4 ~D4 E4 =F4 G4 A4", "sweet love me").lines[0];
    EXPECT_EQ(line.heldBySlurs, 1U);
    EXPECT_EQ(line.heldByBeams, 1U);
    EXPECT_EQ(line.heldFreely, 1U);
}

TEST(LaidText, HasNeitherHeldNorSungALineOfUnsungWords) {
    const auto line = laid("C4 D4", "yeet\nlove").lines[0];
    EXPECT_FALSE(line.isAsSung() || line.isHeld() || line.isTooLong());
}

TEST(LaidText, OfAKanaThatGoesOnForEverEnds) {
    std::string text = "\u3042";
    for (int i = 0; i < 20'000; ++i) {
        text += "\u30FC";
    }
    EXPECT_TRUE(laid("C4", text).lines[0].isTooLong());
}

std::string refusalOf(const std::string& melody, const std::string& text) {
    try {
        laid(melody, text);
    } catch (const BadInput& error) {
        return error.what();
    }
    return {};
}

TEST(LaidText, NeedsNotesAndWords) {
    EXPECT_EQ(refusalOf("", "love"), "expected a track with notes, found none");
    EXPECT_EQ(refusalOf("C4", "[Chorus]\n\n..."), "expected a text with words, found none");
    EXPECT_EQ(refusalOf("C4", ""), "expected a text with words, found none");
}

TEST(LaidText, IsNoLongerThanItsLimits) {
    EXPECT_EQ(refusalOf("C4", std::string(256 * 1024 + 1, 'a')),
              "expected a text of at most 256 KiB, found 257 KiB");
    std::string lines;
    for (std::size_t i = 0; i < kMostLines; ++i) {
        lines += "la\n";
    }
    EXPECT_EQ(refusalOf("C4", lines), "");
    EXPECT_EQ(refusalOf("C4", lines + "la"), "expected a text of at most 10000 lines, found 10001");
}

TEST(LaidText, IsUtf8) {
    EXPECT_EQ(refusalOf("C4", "love\né\xFFme"),
              "expected a text in UTF-8, found other bytes in line 2, column 2");
}

TEST(LaidText, MayHaveLinesOfOtherSystems) {
    EXPECT_EQ(placesOf("C4 r D4", "love\r\nme\r\n"), (Lines{"1:love", "2:me"}));
}

TEST(LaidText, OfOneLongLineUsesAllNotes) {
    std::string melody;
    std::string text;
    for (int i = 0; i < 500; ++i) {
        melody += i % 8 == 7 ? "C4:2 r " : "C4 ";
        text += "love ";
    }
    const auto found = laid(melody, text);
    EXPECT_EQ(found.lines[0].onNotes, 500U);
}

TEST(LaidText, OfMoreSyllablesThanNotesUsesAllNotes) {
    std::string melody;
    std::string text;
    for (int i = 0; i < 200; ++i) {
        melody += i % 8 == 7 ? "C4:2 r " : "C4 ";
        text += "love\nme\n";
    }
    std::size_t onNotes = 0;
    for (const auto& line : laid(melody, text).lines) {
        onNotes += line.onNotes;
    }
    EXPECT_EQ(onNotes, 200U);
}

} // namespace

} // namespace wybeta::tests
