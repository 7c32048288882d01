// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/words/SyllableDivision.h"

#include "tests/wysim/words/EnglishEntries.h"
#include "text/Splitting.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace wybeta::tests {

namespace {

using namespace wysim::words;
using Syllables = std::vector<std::string>;

// The consonants before the first vowel.
std::string onsetOf(std::string_view phonemes) {
    std::size_t end = 0;
    for (std::size_t begin = 0; begin < phonemes.size();) {
        const auto phoneme = phonemes.substr(begin, phonemes.find(' ', begin) - begin);
        if (isVowel(phoneme)) {
            break;
        }
        end = begin + phoneme.size();
        begin = end + 1;
    }
    return std::string(phonemes.substr(0, end));
}

// How many entries of the dictionary begin with each onset.
std::map<std::string, int> countOnsets() {
    std::map<std::string, int> counts;
    for (const auto& entry : englishEntries(1)) {
        ++counts[onsetOf(entry.phonemes)];
    }
    return counts;
}

TEST(SyllableDivision, GivesEachVowelTheLongestOnsetThatWordsBeginWith) {
    EXPECT_EQ(divideIntoSyllables({"k", "aa", "n", "s", "t", "r", "ah", "k", "t"}),
              (Syllables{"k aa n", "s t r ah k t"}));
    EXPECT_EQ(divideIntoSyllables({"s", "ih", "ng", "er"}), (Syllables{"s ih ng", "er"}));
    EXPECT_EQ(divideIntoSyllables({"iy", "ow"}), (Syllables{"iy", "ow"}));
    EXPECT_EQ(divideIntoSyllables({"ng", "aa", "v", "z"}), Syllables{"ng aa v z"});
}

TEST(SyllableDivision, GivesNoSyllablesWithoutAVowel) {
    EXPECT_EQ(divideIntoSyllables({}), Syllables{});
    EXPECT_EQ(divideIntoSyllables({"p", "s", "t"}), Syllables{});
}

TEST(SyllableDivision, TakesForOnsetsWhatThirtyEntriesBeginWith) {
    const auto counts = countOnsets();
    EXPECT_GT(counts.size(), 100U);
    for (const auto& [onset, count] : counts) {
        const auto second = onset.empty() ? "aa" : onset + " aa";
        const auto word = "aa " + second;
        const auto syllables = divideIntoSyllables(text::splitText(word, ""));
        EXPECT_EQ(syllables == (Syllables{"aa", second}), count >= 30) << onset << ": " << count;
    }
}

TEST(SyllableDivision, IsThatOfTheDictionaryInAlmostAllOfItsEntries) {
    const auto entries = englishEntries(7);
    const auto alike = std::count_if(entries.begin(), entries.end(), [](const auto& entry) {
        const auto syllables = syllablesOf(entry);
        return divideIntoSyllables(phonemesOf(syllables)) == syllables;
    });
    EXPECT_GE(100.0 * static_cast<double>(alike) / static_cast<double>(entries.size()), 99);
}

} // namespace

} // namespace wybeta::tests
