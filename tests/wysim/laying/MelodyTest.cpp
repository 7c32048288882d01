// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/laying/Melody.h"

#include "tests/wysim/SmallMelodies.h"

#include <gtest/gtest.h>

#include <algorithm>

#include <string>
#include <vector>

namespace wybeta::tests {

namespace {

using namespace wysim::laying;

// The numbers of the notes at which phrases begin.
std::vector<std::size_t> phrasesOf(const std::string& melody) {
    std::vector<std::size_t> begins;
    const auto notes = melodyOf(songOfMelody(melody), 0);
    for (std::size_t i = 0; i < notes.size(); ++i) {
        if (notes[i].beginsPhrase) {
            begins.push_back(i + 1);
        }
    }
    return begins;
}

std::string repeated(const std::string& text, std::size_t times) {
    std::string all;
    for (std::size_t i = 0; i < times; ++i) {
        all += text + " ";
    }
    return all;
}

using Numbers = std::vector<std::size_t>;

TEST(Melody, HasItsPhrasesBetweenRestsAndMarks) {
    EXPECT_EQ(phrasesOf("C4 D4 r E4 F4, G4"), (Numbers{1, 3, 5}));
    EXPECT_EQ(phrasesOf("C4 D4 E4"), Numbers{1});
    EXPECT_EQ(phrasesOf(""), Numbers{});
}

TEST(Melody, EndsPhrasesAtLongNotesWhereNothingElseDoes) {
    const auto phrase = "C4 D4 E4 F4 G4:2";
    EXPECT_EQ(phrasesOf(repeated(phrase, 4)), (Numbers{1, 6, 11, 16}));
    EXPECT_EQ(phrasesOf(repeated(phrase, 3)), Numbers{1}); // of 15 notes
}

TEST(Melody, EndsPhrasesAtBarLinesWhereNoNoteIsLong) {
    EXPECT_EQ(phrasesOf(repeated("C4 D4 E4 F4", 5)), (Numbers{1, 5, 9, 13, 17}));
}

TEST(Melody, EndsNoPhraseWithinASlur) {
    EXPECT_EQ(phrasesOf(repeated("C4 D4 E4 F4:2 ~G4", 4)), Numbers{1});
}

TEST(Melody, IsSureOfPhrasesThatRestsAndMarksShowOnly) {
    const auto notes = melodyOf(songOfMelody(repeated("C4 D4 E4 F4:2", 5) + "r C4"), 0);
    EXPECT_TRUE(notes.front().isPhraseSure);
    EXPECT_TRUE(notes[4].beginsPhrase);
    EXPECT_FALSE(notes[4].isPhraseSure);
    EXPECT_TRUE(notes.back().isPhraseSure);
}

TEST(Melody, KnowsWhichNotesLookHeldInEachWay) {
    const auto notes = melodyOf(songOfMelody("C4 ~D4 =E4 ~=F4"), 0);
    const auto held = [&notes](HeldBy way) {
        std::string all;
        for (const auto& note : notes) {
            all += note.looksHeld[static_cast<std::size_t>(way)] ? "h" : ".";
        }
        return all;
    };
    EXPECT_EQ(held(HeldBy::Slurs), ".h.h");
    EXPECT_EQ(held(HeldBy::SlursAndBeams), ".hhh");
    EXPECT_EQ(held(HeldBy::Nothing), "....");
    EXPECT_EQ(held(HeldBy::Beams), "..hh");
}

TEST(Melody, WeighsPlacesInTheBar) {
    const auto notes = melodyOf(songOfMelody("C4 D4:0.5 E4:0.5 F4 G4 C4"), 0);
    std::vector<double> weights(notes.size());
    std::transform(notes.begin(), notes.end(), weights.begin(),
                   [](const auto& note) { return note.weight; });
    EXPECT_EQ(weights, (std::vector<double>{0, 0.5, 1, 0.25, 0.5, 0}));
}

} // namespace

} // namespace wybeta::tests
