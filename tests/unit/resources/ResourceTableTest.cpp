// SPDX-License-Identifier: GPL-3.0-or-later
#include "resources/ResourceTable.h"

#include "text/Splitting.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace wybeta::resources {
namespace {

constexpr std::string_view kDictionary = "cmudict0_7butf8spll";

std::string_view dictionaryText() {
    const Resource& resource = *findResource(kDictionary);
    return {resource.data, static_cast<std::size_t>(resource.size)};
}

using Fields = std::vector<std::string_view>;

// The lines of the dictionary text, cut at every TAB.
const std::vector<Fields>& dictionaryLines() {
    static const auto lines = [] {
        std::vector<Fields> result;
        for (const auto line : text::splitText(dictionaryText(), "\r\n")) {
            result.push_back(text::splitText(line, "\t"));
        }
        result.pop_back(); // behind the last line's end
        return result;
    }();
    return lines;
}

auto countWords(std::string_view part) {
    const auto& lines = dictionaryLines();
    return std::count_if(lines.begin(), lines.end(), [part](const Fields& fields) {
        return fields[0].find(part) != std::string_view::npos;
    });
}

std::size_t countSyllables(std::string_view divided) {
    return text::splitText(divided, " . ").size();
}

std::string withoutDivisions(std::string_view spelling) {
    return text::joinText(text::splitText(spelling, " . "), "");
}

// Whether the text is the word with one letter more.
bool hasOneExtraLetter(std::string_view text, std::string_view word) {
    const auto difference = std::mismatch(word.begin(), word.end(), text.begin(), text.end());
    return text.size() == word.size() + 1 &&
           std::equal(difference.first, word.end(), difference.second + 1, text.end());
}

TEST(ResourceTable, KnowsTheDictionaryByItsName) {
    const Resource* const resource = findResource(kDictionary);
    ASSERT_NE(resource, nullptr);
    EXPECT_EQ(resource->name, kDictionary);
    EXPECT_EQ(resource->fileName, "cmudict-0.7b-utf8-spll");
    EXPECT_EQ(findResource(kDictionary), resource);
}

TEST(ResourceTable, KnowsNoOtherName) {
    for (const auto name : {"", "cmudict", "cmudict-0.7b-utf8-spll", "cmudict0_7butf8spll "}) {
        EXPECT_EQ(findResource(name), nullptr) << name;
    }
}

TEST(ResourceTable, EndsTheDictionaryWithAZeroByteBehindItsSize) {
    EXPECT_EQ(*(dictionaryText().data() + dictionaryText().size()), '\0');
}

TEST(DictionaryText, HasItsSize) {
    EXPECT_EQ(findResource(kDictionary)->size, 6186416);
}

TEST(DictionaryText, HasLinesOfThreeFieldsThatEndInCrLf) {
    ASSERT_EQ(dictionaryLines().size(), 133853u);
    for (const auto& fields : dictionaryLines()) {
        ASSERT_EQ(fields.size(), 3u) << fields[0];
    }
    const std::string_view text = dictionaryText();
    EXPECT_EQ(text.substr(text.size() - 2), "\r\n");
    EXPECT_EQ(std::count(text.begin(), text.end(), '\r'), 133853);
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 133853);
}

TEST(DictionaryText, IsAscii) {
    const std::string_view text = dictionaryText();
    EXPECT_TRUE(std::all_of(text.begin(), text.end(),
                            [](char byte) { return static_cast<unsigned char>(byte) < 0x80; }));
}

TEST(DictionaryText, HasNoWordTwice) {
    std::set<std::string_view> words;
    for (const auto& fields : dictionaryLines()) {
        EXPECT_TRUE(words.insert(fields[0]).second) << fields[0];
    }
}

TEST(DictionaryText, HasItsNumbersOfAlternatives) {
    EXPECT_EQ(countWords("(1)"), 8154);
    EXPECT_EQ(countWords("(2)"), 482);
    EXPECT_EQ(countWords("(3)"), 144);
}

TEST(DictionaryText, HasItsNumberOfWordsWithAHyphen) {
    EXPECT_EQ(countWords("-"), 1007);
}

TEST(DictionaryText, HasItsLongestWordAndLine) {
    std::size_t longestWord = 0;
    std::size_t longestLine = 0;
    for (const auto& fields : dictionaryLines()) {
        longestWord = std::max(longestWord, fields[0].size());
        longestLine = std::max(longestLine, text::joinText(fields, "\t").size() + 2);
    }
    EXPECT_EQ(longestWord, 34u);
    EXPECT_EQ(longestLine, 231u);
}

TEST(DictionaryText, HasItsNumberOfSymbols) {
    std::set<std::string_view> symbols;
    for (const auto& fields : dictionaryLines()) {
        for (const auto symbol : text::splitText(fields[1], " ")) {
            symbols.insert(symbol);
        }
    }
    symbols.erase(".");
    EXPECT_EQ(symbols.size(), 69u);
}

TEST(DictionaryText, HasItsDifferencesBetweenWrittenAndPhonemeSyllables) {
    std::map<std::ptrdiff_t, int> differences;
    for (const auto& fields : dictionaryLines()) {
        ++differences[static_cast<std::ptrdiff_t>(countSyllables(fields[2])) -
                      static_cast<std::ptrdiff_t>(countSyllables(fields[1]))];
    }
    EXPECT_EQ(differences[1], 92109);
    EXPECT_EQ(differences[0], 29566);
    EXPECT_EQ(differences.begin()->first, -4);
    EXPECT_EQ(differences.rbegin()->first, 3);
}

TEST(DictionaryText, SpellsEveryWordButTenWithAnExtraLetter) {
    int extraLetters = 0;
    for (const auto& fields : dictionaryLines()) {
        const std::string spelled = withoutDivisions(fields[2]);
        if (spelled != fields[0]) {
            ++extraLetters;
            EXPECT_TRUE(hasOneExtraLetter(spelled, fields[0])) << fields[0];
        }
    }
    EXPECT_EQ(extraLetters, 10);
}

} // namespace
} // namespace wybeta::resources
