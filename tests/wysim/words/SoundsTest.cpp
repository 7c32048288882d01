// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/words/Sounds.h"

#include "tests/unit/dictionary/LoadedDictionary.h"
#include "tests/wysim/words/DictionaryWords.h"
#include "text/Splitting.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace wybeta::tests {

namespace {

using wysim::words::countNuclei;
using wysim::words::dividedIntoSyllables;
using wysim::words::findNucleus;
using wysim::words::Symbols;
using wysim::words::symbolsOf;

TEST(Sounds, AreDividedAsTheDictionaryDividesThem) {
    for (const auto line : dictionaryLines()) {
        const auto entry = realDictionary().find(wordOf(line));
        if (!entry) {
            continue;
        }
        const std::string phonemes(entry->phonemes);
        auto listed = text::splitText(phonemes, ".");
        std::transform(listed.begin(), listed.end(), listed.begin(), text::trimmed);
        const std::vector<std::string> expected(listed.begin(), listed.end());
        ASSERT_EQ(dividedIntoSyllables(symbolsOf(phonemes)), expected) << line;
    }
    EXPECT_EQ(dictionaryLines().size(), realDictionary().size() + 1);
}

TEST(Sounds, WithoutAVowelAreOneSyllableAndNoneAreNone) {
    EXPECT_EQ(dividedIntoSyllables({"hh", "m"}), std::vector<std::string>{"hh m"});
    EXPECT_EQ(dividedIntoSyllables({}), std::vector<std::string>{});
}

TEST(Sounds, HaveTheirVowelsCountedAndFound) {
    const auto symbols = symbolsOf("ah . b ae n . d ah n");
    EXPECT_EQ(symbols, (Symbols{"ah", "b", "ae", "n", "d", "ah", "n"}));
    EXPECT_EQ(countNuclei(symbols), 3U);
    EXPECT_EQ(findNucleus(symbols, 0), 0U);
    EXPECT_EQ(findNucleus(symbols, 2), 5U);
    EXPECT_EQ(findNucleus(symbols, 3), symbols.size());
}

} // namespace

} // namespace wybeta::tests
