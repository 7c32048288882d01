// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/laying/WaysToSing.h"

#include "wysim/words/LyricReader.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

namespace wybeta::tests {

namespace {

using namespace wysim::laying;

std::vector<WayToSing> waysOf(const std::string& lyric, bool usesGuesses = false) {
    static wysim::words::LyricReader reader;
    return WaysToSing(reader, usesGuesses).of(lyric);
}

// On how many notes the word may be sung.
std::set<std::size_t> countsOf(const std::string& lyric, bool usesGuesses = false) {
    std::set<std::size_t> counts;
    for (const auto& way : waysOf(lyric, usesGuesses)) {
        auto count = way.syllables.size();
        counts.insert(count);
        for (const auto& join : way.joinCosts) {
            if (join) {
                counts.insert(--count);
            }
        }
    }
    return counts;
}

using Counts = std::set<std::size_t>;

TEST(WaysToSing, AreTheEntriesOfTheDictionaryThatDifferInSyllables) {
    EXPECT_EQ(countsOf("love"), Counts{1});
    EXPECT_EQ(countsOf("every"), (Counts{2, 3}));
    EXPECT_EQ(countsOf("spirit"), Counts{2});
    EXPECT_EQ(waysOf("every").front().cost, 0);
    EXPECT_EQ(waysOf("every").front().syllables.size(), 3U);
}

TEST(WaysToSing, AreShorterWhereSingersContract) {
    EXPECT_EQ(countsOf("heaven"), (Counts{1, 2}));
    EXPECT_EQ(countsOf("flower"), (Counts{1, 2}));
    EXPECT_EQ(countsOf("glittering"), (Counts{2, 3}));
    EXPECT_EQ(countsOf("harmonious"), (Counts{3, 4}));
    EXPECT_EQ(countsOf("garden"), (Counts{1, 2}));
    EXPECT_EQ(countsOf("summer"), Counts{2});
}

TEST(WaysToSing, AreLongerWhereAnEndingMayBeSounded) {
    EXPECT_EQ(countsOf("crowned"), (Counts{1, 2}));
    EXPECT_EQ(countsOf("perplexed"), (Counts{2, 3}));
    EXPECT_EQ(waysOf("crowned").back().syllables, (Syllables{"k r aw", "n ih d"}));
    EXPECT_TRUE(waysOf("crowned").back().isOwn);
    EXPECT_EQ(countsOf("wanted"), Counts{2});
    EXPECT_EQ(countsOf("red"), Counts{1});
}

TEST(WaysToSing, OfKanaAreTheirMoraeOfWhichSomeShareNotes) {
    EXPECT_EQ(countsOf("さくら"), Counts{3});
    EXPECT_EQ(countsOf("こんにちは"), (Counts{4, 5}));
    EXPECT_EQ(countsOf("がっこう"), (Counts{3, 4}));
    EXPECT_EQ(countsOf("ラーメン"), (Counts{2, 3, 4}));
}

TEST(WaysToSing, OfABracketIsWhatItSays) {
    EXPECT_EQ(waysOf("read[r eh d]").front().syllables, Syllables{"r eh d"});
    EXPECT_TRUE(waysOf("love[]").empty());
}

TEST(WaysToSing, OfAWordThatIsNotSungAreGuessesIfTheseAreAllowed) {
    EXPECT_TRUE(waysOf("yeet").empty());
    EXPECT_EQ(waysOf("yeet", true).front().syllables, Syllables{"y iy t"});
    EXPECT_TRUE(waysOf("桜", true).empty());
}

TEST(JoinedSyllable, LosesTheVowelThatSingersLose) {
    EXPECT_EQ(joinedSyllable("f l aw", "er"), "f l aw er");
    EXPECT_EQ(joinedSyllable("v er", "iy"), "v r iy");
    EXPECT_EQ(joinedSyllable("n iy", "ah s"), "n y ah s");
    EXPECT_EQ(joinedSyllable("hh eh", "v ah n"), "hh eh v n");
    EXPECT_EQ(joinedSyllable("k o", "N"), "k o N");
    EXPECT_EQ(joinedSyllable("r a", "-"), "r a");
}

} // namespace

} // namespace wybeta::tests
