// SPDX-License-Identifier: GPL-3.0-or-later
//
// The input is a dictionary text. Copied and in place, it has to load as the naive dictionary has
// it, in the same order, and every word and piece of it has to be found, or not found, likewise.
#include "dictionary/PronunciationDictionary.h"
#include "fuzz/Check.h"
#include "fuzz/NaiveDictionary.h"
#include "tests/model/NaiveConversion.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace wybeta::fuzz {

namespace {

using dictionary::PronunciationDictionary;
using dictionary::TextLifetime;

// The whole text in a block of its own, so that a read beyond its end is noticed.
struct Block {
    explicit Block(std::string_view text)
        : bytes(std::make_unique<char[]>(text.size())), size(text.size()) {
        text.copy(bytes.get(), size);
    }

    PronunciationDictionary load(TextLifetime lifetime) const {
        return dictionary::loadPronunciationDictionary(bytes.get(), static_cast<std::int32_t>(size),
                                                       lifetime);
    }

    std::unique_ptr<char[]> bytes;
    std::size_t size;
};

void checkItems(const PronunciationDictionary& found, const tests::NaiveWords& expected) {
    check(found.size() == expected.size(), "another number of words");
    std::size_t position = 0;
    for (const auto& [word, entry] : expected) {
        const auto line = found.line(position++);
        checkEqual(std::string(line.word), word);
        checkEqual(dictionary::withoutStressDigits(line.phonemes), entry.phonemes);
        checkEqual(std::string(line.spelling), entry.spelling);
    }
}

void checkSearch(const PronunciationDictionary& dictionary, const tests::NaiveWords& expected,
                 const std::string& word) {
    const auto found = dictionary.find(word);
    const auto entry = expected.find(word);
    check(found.has_value() == (entry != expected.end()), "a word is found in only one of them");
    if (found) {
        checkEqual(found->phonemes, entry->second.phonemes);
        checkEqual(std::string(found->spelling), entry->second.spelling);
    }
}

void checkSearches(const PronunciationDictionary& dictionary, const tests::NaiveWords& expected,
                   std::string_view text) {
    for (const auto& [word, entry] : expected) {
        checkSearch(dictionary, expected, word);
        checkSearch(dictionary, expected, word + '\0');
        checkSearch(dictionary, expected, word.substr(0, word.size() / 2));
    }
    for (std::size_t begin = 0; begin < text.size();) {
        const auto end = std::min(text.find_first_of(" \t\r\n", begin), text.size());
        checkSearch(dictionary, expected, std::string(text.substr(begin, end - begin)));
        begin = end + 1;
    }
}

void checkDictionary(const PronunciationDictionary& dictionary, const tests::NaiveWords& expected,
                     std::string_view text) {
    checkItems(dictionary, expected);
    checkSearches(dictionary, expected, text);
}

} // namespace

} // namespace wybeta::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace wybeta::fuzz;
    const auto text = textOf(data, size);
    const auto expected = naiveDictionary(text);
    const Block kept(text);
    checkDictionary(kept.load(TextLifetime::OutlivesTheDictionary), expected, text);
    const auto copied = Block(text).load(TextLifetime::MayEndAfterLoading);
    checkDictionary(copied, expected, text);
    return 0;
}
