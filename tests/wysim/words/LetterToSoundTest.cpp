// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/words/LetterToSound.h"

#include "tests/wysim/words/EnglishEntries.h"
#include "text/Splitting.h"
#include "wysim/words/Sounds.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace wybeta::tests {

namespace {

using namespace wysim::words;
using Syllables = std::vector<std::string>;

// The words of every so many-th entry of the dictionary that consist of letters.
std::vector<EnglishEntry> everyWord(std::size_t step) {
    auto entries = englishEntries(step);
    const auto isLetter = [](char c) { return c >= 'a' && c <= 'z'; };
    const auto hasMore = [isLetter](const EnglishEntry& entry) {
        return !std::all_of(entry.word.begin(), entry.word.end(), isLetter);
    };
    entries.erase(std::remove_if(entries.begin(), entries.end(), hasMore), entries.end());
    return entries;
}

// How many percent of the words fulfil a condition.
template <class Condition>
double share(const std::vector<EnglishEntry>& words, Condition condition) {
    const auto count = std::count_if(words.begin(), words.end(), condition);
    return 100.0 * static_cast<double>(count) / static_cast<double>(words.size());
}

TEST(LetterToSound, GuessesWordsThatNoDictionaryHas) {
    EXPECT_EQ(guessSyllables("yeet"), Syllables{"y iy t"});
    EXPECT_EQ(guessSyllables("selfie"), (Syllables{"s eh l", "f iy"}));
    EXPECT_EQ(guessSyllables("galumphing"), (Syllables{"g ae", "l ah m", "f ih ng"}));
    EXPECT_EQ(guessSyllables("frabjous"), (Syllables{"f r ae b", "jh ah s"}));
}

TEST(LetterToSound, TakesCapitalLettersForSmallOnes) {
    EXPECT_EQ(guessSyllables("YEEt"), guessSyllables("yeet"));
}

TEST(LetterToSound, SingsNoVowelWhereAnApostropheReplacesIt) {
    EXPECT_EQ(guessSyllables("glitt'ring"), (Syllables{"g l ih", "t r ih ng"}));
    EXPECT_EQ(guessSyllables("flow'r"), Syllables{"f l ow r"});
    EXPECT_EQ(guessSyllables("heav'n"), Syllables{"hh iy v n"});
}

TEST(LetterToSound, TakesAnApostropheAtTheBeginningOrEndForNothing) {
    EXPECT_EQ(guessSyllables("''neath"), guessSyllables("neath"));
    EXPECT_EQ(guessSyllables("'rly"), guessSyllables("rly"));
    EXPECT_EQ(guessSyllables("almos'"), guessSyllables("almos"));
}

TEST(LetterToSound, SingsASonorantBetweenLessSonorousSoundsAsASyllable) {
    EXPECT_EQ(guessSyllables("dishonour"), (Syllables{"d ih", "s aa", "n er"}));
    EXPECT_EQ(guessSyllables("tle"), Syllables{"t ah l"});
    EXPECT_EQ(guessSyllables("prizm"), (Syllables{"p r ih", "z ah m"}));
    EXPECT_EQ(guessSyllables("juilliard"), (Syllables{"jh uw", "l iy r d"}));
    EXPECT_EQ(guessSyllables("quddus"), (Syllables{"k uw", "d ih s"}));
}

TEST(LetterToSound, SingsRWithoutAVowelAfterALaxOne) {
    EXPECT_EQ(guessSyllables("thorp"), Syllables{"th ao r p"});
}

TEST(LetterToSound, SingsADigraphAsOneVowel) {
    EXPECT_EQ(guessSyllables("cloudlet"), (Syllables{"k l aw d", "l eh t"}));
}

TEST(LetterToSound, GivesNothingForAWordWithoutVowels) {
    for (const auto* const word : {"", "'", "psst", "b"}) {
        EXPECT_EQ(guessSyllables(word), Syllables{}) << word;
    }
}

TEST(LetterToSound, GivesNothingForOtherCharactersThanLetters) {
    for (const std::string_view word : {"wak\u00E8d", "two words", "two-part", "4ever", "yeet\n",
                                        "y\x01"
                                        "eet",
                                        "\xFF", "さくら"}) {
        EXPECT_EQ(guessSyllables(word), Syllables{}) << word;
    }
    EXPECT_EQ(guessSyllables(std::string_view("yeet\0", 5)), Syllables{});
}

TEST(LetterToSound, GivesNothingForAWordThatIsTooLong) {
    EXPECT_EQ(guessSyllables(std::string(kLongestGuessed, 'o')).empty(), false);
    EXPECT_EQ(guessSyllables(std::string(kLongestGuessed + 1, 'o')), Syllables{});
    EXPECT_EQ(guessSyllables(std::string(10'000, 'a')), Syllables{});
}

TEST(LetterToSound, HasSymbolsOfTheDictionaryOnlyAndOneVowelInEachSyllable) {
    std::set<std::string> symbols;
    const auto words = everyWord(20);
    for (const auto& word : words) {
        const auto pieces = text::splitText(word.phonemes, "");
        symbols.insert(pieces.begin(), pieces.end());
    }
    EXPECT_EQ(symbols.size(), 40U); // with the "." between syllables
    for (const auto& [word, phonemes] : words) {
        for (const auto& syllable : guessSyllables(word)) {
            const auto pieces = text::splitText(syllable, "");
            EXPECT_EQ(std::count_if(pieces.begin(), pieces.end(), isVowel), 1) << word;
            for (const auto piece : pieces) {
                EXPECT_TRUE(piece != "." && symbols.count(std::string(piece)) == 1) << word;
            }
        }
    }
}

TEST(LetterToSound, AgreesWithMostOfTheDictionary) {
    const auto words = everyWord(20);
    const auto isAsLong = [](const auto& entry) {
        return guessSyllables(entry.word).size() == syllablesOf(entry).size();
    };
    EXPECT_GE(share(words, isAsLong), 94.5);
    const auto isSame = [](const auto& entry) {
        const auto guess = guessSyllables(entry.word);
        const auto syllables = syllablesOf(entry);
        return phonemesOf(guess) == phonemesOf(syllables);
    };
    EXPECT_GE(share(words, isSame), 68);
}

} // namespace

} // namespace wybeta::tests
