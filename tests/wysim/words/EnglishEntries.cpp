// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/wysim/words/EnglishEntries.h"

#include "dictionary/PronunciationDictionary.h"
#include "resources/ResourceTable.h"
#include "text/Splitting.h"

#include <algorithm>

namespace wybeta::tests {

namespace {

std::string withoutStress(std::string_view phonemes) {
    std::string result(phonemes);
    const auto isDigit = [](char c) { return c >= '0' && c <= '2'; };
    result.erase(std::remove_if(result.begin(), result.end(), isDigit), result.end());
    return result;
}

} // namespace

std::vector<EnglishEntry> englishEntries(std::size_t step) {
    static const auto english = [] {
        const auto& text = *resources::findResource("cmudict0_7butf8spll");
        return dictionary::loadPronunciationDictionary(text.data, text.size);
    }();
    std::vector<EnglishEntry> entries;
    for (std::size_t i = 0; i < english.size(); i += step) {
        const auto line = english.line(i);
        entries.push_back({std::string(line.word), withoutStress(line.phonemes)});
    }
    return entries;
}

std::vector<std::string> syllablesOf(const EnglishEntry& entry) {
    const auto syllables = text::splitText(entry.phonemes, " . ");
    return {syllables.begin(), syllables.end()};
}

std::vector<std::string_view> phonemesOf(const std::vector<std::string>& syllables) {
    std::vector<std::string_view> phonemes;
    for (const auto& syllable : syllables) {
        const auto pieces = text::splitText(syllable, "");
        phonemes.insert(phonemes.end(), pieces.begin(), pieces.end());
    }
    return phonemes;
}

} // namespace wybeta::tests
