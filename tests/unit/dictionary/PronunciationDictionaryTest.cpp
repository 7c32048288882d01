// SPDX-License-Identifier: GPL-3.0-or-later
#include "dictionary/PronunciationDictionary.h"

#include "tests/unit/dictionary/LoadedDictionary.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <limits>
#include <map>
#include <optional>
#include <ostream>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace wybeta::dictionary {

namespace {

using namespace std::literals;
using tests::loadDictionary;
using tests::realDictionary;
using tests::realDictionaryText;

struct Row {
    std::string word;
    std::string phonemes;
    std::string spelling;

    friend bool operator==(const Row& a, const Row& b) {
        return a.word == b.word && a.phonemes == b.phonemes && a.spelling == b.spelling;
    }
    friend std::ostream& operator<<(std::ostream& out, const Row& row) {
        return out << testing::PrintToString(row.word) << ": "
                   << testing::PrintToString(row.phonemes) << ", "
                   << testing::PrintToString(row.spelling);
    }
};

using Rows = std::vector<Row>;

Rows rowsOf(const PronunciationDictionary& dictionary) {
    Rows rows;
    for (std::size_t i = 0; i < dictionary.size(); ++i) {
        const auto word = dictionary.line(i).word;
        const auto entry = dictionary.find(word).value();
        rows.push_back({std::string(word), entry.phonemes, std::string(entry.spelling)});
    }
    return rows;
}

using Texts = std::pair<std::string, std::string>;

// The phonemes and the spelling of a word.
std::optional<Texts> find(const PronunciationDictionary& dictionary, std::string_view word) {
    const auto entry = dictionary.find(word);
    return entry ? std::optional(Texts{entry->phonemes, entry->spelling}) : std::nullopt;
}

bool isInside(std::string_view part, std::string_view text) {
    const std::less_equal<> isNotAfter;
    return isNotAfter(text.data(), part.data()) &&
           isNotAfter(part.data() + part.size(), text.data() + text.size());
}

// What holds for a text that is copied as for one that is searched in place.
class PronunciationDictionaryOfText : public testing::TestWithParam<TextLifetime> {
protected:
    // The text ends exactly where its block does, and one that need not stay is gone.
    PronunciationDictionary load(std::string_view text) {
        if (GetParam() == TextLifetime::MayEndAfterLoading) {
            return loadDictionary(text);
        }
        const auto& kept = texts_.emplace_back(text.begin(), text.end());
        return loadPronunciationDictionary(kept.data(), static_cast<std::int32_t>(kept.size()),
                                           GetParam());
    }

    Rows loadedRows(std::string_view text) { return rowsOf(load(text)); }

private:
    std::deque<std::vector<char>> texts_;
};

INSTANTIATE_TEST_SUITE_P(That, PronunciationDictionaryOfText,
                         testing::Values(TextLifetime::MayEndAfterLoading,
                                         TextLifetime::OutlivesTheDictionary),
                         [](const auto& lifetime) {
                             return lifetime.param == TextLifetime::MayEndAfterLoading
                                        ? "MayEndAfterLoading"
                                        : "OutlivesTheDictionary";
                         });

// What loading means, one plain step after the other.
class PlainLoader {
public:
    static Rows load(std::string_view text) {
        std::map<std::string, Row> rows;
        for (const auto& line : cutIntoLines(text)) {
            const auto fields = cutAtTabs(trim(line));
            if (fields.size() == 3) {
                rows[fields[0]] = {fields[0], withoutStressDigits(fields[1]), fields[2]};
            }
        }
        Rows result;
        for (const auto& [word, row] : rows) {
            result.push_back(row);
        }
        return result;
    }

private:
    static std::vector<std::string> cutIntoLines(std::string_view text) {
        std::vector<std::string> lines;
        std::string line;
        bool isOpen = false;
        for (std::size_t i = 0; i < text.size(); ++i) {
            isOpen = text[i] != '\r' && text[i] != '\n';
            if (isOpen) {
                line += text[i];
                continue;
            }
            lines.push_back(std::exchange(line, ""));
            if (text.substr(i, 2) == "\r\n") {
                ++i;
            }
        }
        if (isOpen) {
            lines.push_back(line);
        }
        return lines;
    }

    static std::string trim(std::string line) {
        while (!line.empty() && std::isspace(static_cast<unsigned char>(line.back())) != 0) {
            line.pop_back();
        }
        while (!line.empty() && std::isspace(static_cast<unsigned char>(line.front())) != 0) {
            line.erase(0, 1);
        }
        return line;
    }

    static std::vector<std::string> cutAtTabs(const std::string& line) {
        std::vector<std::string> fields(1);
        for (const char byte : line) {
            if (byte == '\t') {
                fields.emplace_back();
            } else {
                fields.back() += byte;
            }
        }
        return fields;
    }

    static std::string withoutStressDigits(const std::string& phonemes) {
        std::string result;
        for (const char byte : phonemes) {
            if ("012"sv.find(byte) == std::string_view::npos) {
                result += byte;
            }
        }
        return result;
    }
};

TEST_P(PronunciationDictionaryOfText, IsEmptyForAnEmptyText) {
    EXPECT_EQ(loadedRows(""), Rows{});
}

TEST_P(PronunciationDictionaryOfText, IsEmptyForASizeBelowOneAndForNull) {
    const char* const text = "a\tah0\ta\r\n";
    for (const std::int32_t size : {0, -1, std::numeric_limits<std::int32_t>::min()}) {
        EXPECT_EQ(loadPronunciationDictionary(text, size, GetParam()).size(), 0u) << size;
    }
    EXPECT_EQ(loadPronunciationDictionary(nullptr, 9, GetParam()).size(), 0u);
}

TEST_P(PronunciationDictionaryOfText, LoadsOneLineWithAndWithoutItsEnd) {
    const Rows expected{{"a", "ah", "a"}};
    for (const auto end : {"", "\r\n", "\r", "\n"}) {
        EXPECT_EQ(loadedRows("a\tah0\ta"s + end), expected);
    }
}

TEST_P(PronunciationDictionaryOfText, LoadsTheSameEntriesForEveryKindOfLineEnd) {
    const Rows expected{{"a", "ah", "a"}, {"b", "b iy", "b"}, {"c", "s iy", "c"}};
    EXPECT_EQ(loadedRows("a\tah0\ta\r\nb\tb iy1\tb\r\nc\ts iy1\tc\r\n"), expected);
    EXPECT_EQ(loadedRows("a\tah0\ta\nb\tb iy1\tb\nc\ts iy1\tc\n"), expected);
    EXPECT_EQ(loadedRows("a\tah0\ta\rb\tb iy1\tb\rc\ts iy1\tc\r"), expected);
    EXPECT_EQ(loadedRows("a\tah0\ta\rb\tb iy1\tb\nc\ts iy1\tc"), expected);
}

TEST_P(PronunciationDictionaryOfText, PassesOverBlankLines) {
    EXPECT_EQ(loadedRows("\r\n\n\r\r\n"), Rows{});
    EXPECT_EQ(loadedRows("\n\ra\tah0\ta\r\r\n \t \n\nb\tb iy1\tb\n\n"),
              (Rows{{"a", "ah", "a"}, {"b", "b iy", "b"}}));
}

TEST_P(PronunciationDictionaryOfText, PassesOverLinesWithTwoOrFourFields) {
    EXPECT_EQ(loadedRows("word\n"
                         "two\tah0\n"
                         "four\tah0\tfour\tfour\n"
                         "three\tah0\tthree\n"),
              (Rows{{"three", "ah", "three"}}));
}

TEST_P(PronunciationDictionaryOfText, LosesATabAtEitherEndOfALine) {
    EXPECT_EQ(loadedRows("two\tah0\t\n\tah0\ttwo\n"), Rows{});
    EXPECT_EQ(loadedRows("\tthree\tah0\tthree\t\n"), (Rows{{"three", "ah", "three"}}));
}

TEST_P(PronunciationDictionaryOfText, KeepsAnEmptyFieldInsideALine) {
    EXPECT_EQ(loadedRows("a\t\ta\n"), (Rows{{"a", "", "a"}}));
    EXPECT_EQ(loadedRows("a\t\t\ta\n"), Rows{});
}

TEST_P(PronunciationDictionaryOfText, LosesSpacesAtTheEndsOfALineOnly) {
    EXPECT_EQ(loadedRows(" \v\f a \t ah0 \t a \f\v \n"), (Rows{{"a ", " ah ", " a"}}));
}

TEST_P(PronunciationDictionaryOfText, TakesStressDigitsOutOfThePhonemesOnly) {
    EXPECT_EQ(loadedRows("b012\tae0 b1 ah2 012 d3\tb012\n"),
              (Rows{{"b012", "ae b ah  d3", "b012"}}));
}

TEST_P(PronunciationDictionaryOfText, TakesWordsAsTheyAreWritten) {
    EXPECT_EQ(loadedRows("A\tey1\tA\na\tah0\ta\na(1)\tey1\ta . (1)\n"),
              (Rows{{"A", "ey", "A"}, {"a", "ah", "a"}, {"a(1)", "ey", "a . (1)"}}));
}

TEST_P(PronunciationDictionaryOfText, TakesNulAndBytesAbove7FLikeAnyOther) {
    EXPECT_EQ(loadedRows("a\0b\t\0\t\xFF\0\n"s), (Rows{{"a\0b"s, "\0"s, "\xFF\0"s}}));
    EXPECT_EQ(loadedRows("\xC3\xA9\tey1\t\xC3\xA9\n"), (Rows{{"\xC3\xA9", "ey", "\xC3\xA9"}}));
}

TEST_P(PronunciationDictionaryOfText, KeepsTheLastLineOfAWord) {
    EXPECT_EQ(loadedRows("a\tah0\tx\na\tey1\ty\n"), (Rows{{"a", "ey", "y"}}));
    EXPECT_EQ(loadedRows("b\tx\t1\na\tx\t2\nb\tx\t3\na\tx\t4\nb\tx\t5\n"),
              (Rows{{"a", "x", "4"}, {"b", "x", "5"}}));
}

TEST_P(PronunciationDictionaryOfText, OrdersWordsByUnsignedBytes) {
    EXPECT_EQ(loadedRows("\xFF\tx\tx\nb\tx\tx\nab\tx\tx\na\tx\tx\na_b\tx\tx\na's\tx\tx\n"
                         "a(1)\tx\tx\nB\tx\tx\n\x80\tx\tx\n"),
              (Rows{{"B", "x", "x"},
                    {"a", "x", "x"},
                    {"a's", "x", "x"},
                    {"a(1)", "x", "x"},
                    {"a_b", "x", "x"},
                    {"ab", "x", "x"},
                    {"b", "x", "x"},
                    {"\x80", "x", "x"},
                    {"\xFF", "x", "x"}}));
}

TEST_P(PronunciationDictionaryOfText, FindsExactlyTheWordsItHolds) {
    const auto dictionary = load("b\tb iy1\tB\nd\td iy1\tD\n");
    EXPECT_EQ(find(dictionary, "b"), (Texts{"b iy", "B"}));
    EXPECT_EQ(find(dictionary, "d"), (Texts{"d iy", "D"}));
    for (const auto word : {"", "a", "B", "b ", "bb", "c", "e"}) {
        EXPECT_FALSE(dictionary.find(word)) << word;
    }
}

TEST_P(PronunciationDictionaryOfText, FindsAWordBesideOnesThatBeginWithIt) {
    const auto dictionary = load("a\tAH\ta\n"
                                 "a\0b\tB\ta\n"
                                 "a'\tQ\ta\n"
                                 "aa\tAA\ta\n"s);
    for (const auto& [word, phonemes] :
         {std::pair{"a"s, "AH"s}, {"a\0b"s, "B"s}, {"a'"s, "Q"s}, {"aa"s, "AA"s}}) {
        EXPECT_EQ(find(dictionary, word), (Texts{phonemes, "a"}));
    }
}

TEST_P(PronunciationDictionaryOfText, FindsAWordThatGoesOnInMemory) {
    const auto dictionary = load("a\tAH\ta\n"
                                 "ab\tAB\tab\n");
    EXPECT_EQ(find(dictionary, "ab"sv.substr(0, 1)), (Texts{"AH", "a"}));
}

TEST_P(PronunciationDictionaryOfText, FindsWordsByEveryBitOfTheirFirstTwoBytes) {
    const auto dictionary = load("b\xE9\tB\tb\n"
                                 "ca\tC\tca\n"
                                 "\xFF\xFF\tF\tf\n");
    EXPECT_EQ(find(dictionary, "b\xE9"), (Texts{"B", "b"}));
    EXPECT_EQ(find(dictionary, "ca"), (Texts{"C", "ca"}));
    EXPECT_EQ(find(dictionary, "\xFF\xFF"), (Texts{"F", "f"}));
}

TEST(PronunciationDictionary, FindsNothingWhileItIsEmpty) {
    EXPECT_FALSE(PronunciationDictionary().find(""));
    EXPECT_FALSE(PronunciationDictionary().find("a"));
}

TEST_P(PronunciationDictionaryOfText, FindsWordsOfLikeFirstLettersAmongEachOther) {
    const std::vector<std::string> letters{"\0"s, "'", "0",    "_",    "`",
                                           "a",   "z", "\x7F", "\x80", "\xFF"};
    std::vector<std::string> words{""};
    for (std::size_t i = 0; i < words.size() && words[i].size() < 4; ++i) {
        for (const auto& letter : letters) {
            words.push_back(words[i] + letter);
        }
    }
    words.erase(words.begin());
    std::string text;
    for (const auto& word : words) {
        text += word + "\tah0\t" + word + '\n';
    }
    const auto dictionary = load(text);
    EXPECT_TRUE(rowsOf(dictionary) == PlainLoader::load(text));
    for (const auto& word : words) {
        ASSERT_EQ(find(dictionary, word), (Texts{"ah", word})) << testing::PrintToString(word);
        ASSERT_FALSE(dictionary.find(word + '~')) << testing::PrintToString(word);
    }
}

TEST_P(PronunciationDictionaryOfText, GivesTheLineOfAWordWithItsStressDigits) {
    const auto dictionary = load(" a\tah0\ta\nb1\tb iy1 2\t b 0 \r\n");
    const auto line = dictionary.findLine("b1");
    ASSERT_TRUE(line);
    EXPECT_EQ(line->word, "b1");
    EXPECT_EQ(line->phonemes, "b iy1 2");
    EXPECT_EQ(line->spelling, " b 0");
    EXPECT_FALSE(dictionary.findLine("b"));
}

TEST_P(PronunciationDictionaryOfText, EndsWhereItsSizeSays) {
    const std::string text = "a\tah0\tabc\tx\nb\tb\tb\n";
    const auto loadFirst = [&text](std::int32_t size) {
        return rowsOf(loadPronunciationDictionary(text.data(), size, GetParam()));
    };
    EXPECT_EQ(loadFirst(7), (Rows{{"a", "ah", "a"}}));
    EXPECT_EQ(loadFirst(9), (Rows{{"a", "ah", "abc"}}));
    EXPECT_EQ(loadFirst(6), Rows{});
    EXPECT_EQ(loadFirst(11), Rows{});
}

TEST_P(PronunciationDictionaryOfText, KeepsItsViewsValidWhenItIsMoved) {
    auto first = load("a\tah0\ta\n");
    const auto before = first.findLine("a").value();
    auto second = std::move(first);
    PronunciationDictionary third;
    third = std::move(second);
    const auto after = third.findLine("a").value();
    EXPECT_EQ(after.word.data(), before.word.data());
    EXPECT_EQ(before.phonemes, "ah0");
    EXPECT_EQ(find(third, "a"), (Texts{"ah", "a"}));
}

TEST(PronunciationDictionary, CopiesNothingOfATextThatOutlivesIt) {
    const auto text = realDictionaryText();
    const auto dictionary = loadPronunciationDictionary(
        text.data(), static_cast<std::int32_t>(text.size()), TextLifetime::OutlivesTheDictionary);
    for (std::size_t i = 0; i < dictionary.size(); ++i) {
        const auto line = dictionary.line(i);
        ASSERT_TRUE(isInside(line.word, text)) << line.word;
        ASSERT_TRUE(isInside(line.phonemes, text)) << line.word;
        ASSERT_TRUE(isInside(line.spelling, text)) << line.word;
    }
    EXPECT_TRUE(isInside(dictionary.find("abandon").value().spelling, text));
}

TEST(PronunciationDictionary, KeepsACopyOfATextThatMayEnd) {
    std::string text = "a\tah0\ta\n";
    const auto dictionary =
        loadPronunciationDictionary(text.data(), static_cast<std::int32_t>(text.size()));
    text.assign(text.size(), 'x');
    EXPECT_EQ(find(dictionary, "a"), (Texts{"ah", "a"}));
    EXPECT_FALSE(isInside(dictionary.line(0).word, text));
}

TEST(PronunciationDictionary, LeavesEveryStressDigitOutOfPhonemes) {
    EXPECT_EQ(withoutStressDigits("ah0 . b ae1 n . d ah2 n"), "ah . b ae n . d ah n");
    EXPECT_EQ(withoutStressDigits("012"), "");
    EXPECT_EQ(withoutStressDigits("3/ a"), "3/ a");
}

TEST(PronunciationDictionary, OfTheModuleIsReplacedAsAWhole) {
    auto& dictionary = pronunciationDictionary();
    auto original = std::exchange(dictionary, loadDictionary("a\tah0\ta\n"));
    EXPECT_EQ(&pronunciationDictionary(), &dictionary);
    EXPECT_EQ(rowsOf(pronunciationDictionary()), (Rows{{"a", "ah", "a"}}));
    dictionary = loadDictionary("b\tb iy1\tb\n");
    EXPECT_EQ(rowsOf(pronunciationDictionary()), (Rows{{"b", "b iy", "b"}}));
    dictionary = std::move(original);
}

TEST_P(PronunciationDictionaryOfText, LoadsWordsInAnyOrderLikeThePlainLoader) {
    constexpr int kWords = 20000;
    std::vector<std::string> lines;
    for (int i = 0; i < kWords; ++i) {
        const auto word = std::to_string(i);
        lines.push_back(word + "\tah0\t" + word + '\n');
    }
    const auto text = [&lines] {
        std::string joined;
        for (const auto& line : lines) {
            joined += line;
        }
        return joined;
    };

    std::sort(lines.begin(), lines.end());
    const Rows expected = PlainLoader::load(text());
    ASSERT_EQ(expected.size(), std::size_t{kWords});
    EXPECT_TRUE(loadedRows(text()) == expected) << "ascending";
    std::reverse(lines.begin(), lines.end());
    EXPECT_TRUE(loadedRows(text()) == expected) << "descending";
    std::shuffle(lines.begin(), lines.end(), std::mt19937(3));
    EXPECT_TRUE(loadedRows(text()) == expected) << "shuffled";
}

TEST_P(PronunciationDictionaryOfText, LoadsRandomBytesLikeThePlainLoader) {
    const auto alphabet = "\r\n\t\t\t\t \v\f\0"
                          "0123.ab\x7F\x80\xFF"sv;
    std::mt19937 random(1);
    std::size_t rows = 0;
    for (int round = 0; round < 4000; ++round) {
        std::string text(random() % 60, ' ');
        for (char& byte : text) {
            byte = alphabet[random() % alphabet.size()];
        }
        const Rows expected = PlainLoader::load(text);
        ASSERT_EQ(loadedRows(text), expected) << testing::PrintToString(text);
        rows += expected.size();
    }
    EXPECT_GT(rows, 1000u);
}

TEST_P(PronunciationDictionaryOfText, LoadsRandomLinesLikeThePlainLoader) {
    const std::vector<std::string_view> fields{"a", "b", "ab", "b1", "\x80", "\0"sv, "ah0 . b", ""};
    const std::vector<std::string_view> ends{"\r\n", "\n", "\r", "\n\r", " \r\n", "\t\n", "\r\n\t"};
    std::mt19937 random(2);
    const auto pick = [&random](const auto& list) { return list[random() % list.size()]; };
    std::size_t rows = 0;
    for (int round = 0; round < 3000; ++round) {
        std::string text;
        for (auto line = random() % 8; line > 0; --line) {
            text += pick(fields);
            for (auto tab = random() % 8 != 0 ? 2u : random() % 4; tab > 0; --tab) {
                text += '\t';
                text += pick(fields);
            }
            text += pick(ends);
        }
        const Rows expected = PlainLoader::load(text);
        ASSERT_EQ(loadedRows(text), expected) << testing::PrintToString(text);
        rows += expected.size();
    }
    EXPECT_GT(rows, 3000u);
}

TEST_P(PronunciationDictionaryOfText, LoadsTheTextOfTheModuleLikeThePlainLoader) {
    const Rows expected = PlainLoader::load(realDictionaryText());
    EXPECT_EQ(expected.size(), 133853u);
    EXPECT_TRUE(loadedRows(realDictionaryText()) == expected);
}

TEST(PronunciationDictionary, HoldsAbandon) {
    EXPECT_EQ(find(realDictionary(), "abandon"),
              (Texts{"ah . b ae n . d ah n", "a . ba . ndo . n"}));
}

TEST(PronunciationDictionary, HoldsAlternativesAsWordsOfTheirOwn) {
    EXPECT_EQ(find(realDictionary(), "a"), (Texts{"ah", "a"}));
    EXPECT_EQ(find(realDictionary(), "a(1)"), (Texts{"ey", "a . (1)"}));
}

TEST(PronunciationDictionary, HoldsGorgeousWithItsExtraLetter) {
    EXPECT_EQ(find(realDictionary(), "gorgeous"), (Texts{"g ao r . jh ah s", "go . rgeous . s"}));
}

TEST(PronunciationDictionary, FindsEveryWordOfTheTextOfTheModule) {
    for (std::size_t i = 0; i < realDictionary().size(); ++i) {
        const auto item = realDictionary().line(i);
        const auto line = realDictionary().findLine(item.word);
        ASSERT_TRUE(line) << item.word;
        ASSERT_EQ(line->phonemes.data(), item.phonemes.data()) << item.word;
        ASSERT_EQ(line->spelling.data(), item.spelling.data()) << item.word;
    }
}

TEST_P(PronunciationDictionaryOfText, IsTheSameWhenTheTextIsLoadedAgain) {
    const auto again = load(realDictionaryText());
    EXPECT_TRUE(rowsOf(again) == rowsOf(realDictionary()));
}

} // namespace
} // namespace wybeta::dictionary
