// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace wybeta::tests {

// A word of the English dictionary, and how it is spoken, without stress digits:
// "ah . b ae n . d ah n".
struct EnglishEntry {
    std::string word;
    std::string phonemes;
};

// Every so many-th entry of the dictionary that is built in.
std::vector<EnglishEntry> englishEntries(std::size_t step);

// The syllables of an entry, one phoneme string each.
std::vector<std::string> syllablesOf(const EnglishEntry& entry);

// The phonemes of syllables in order, as views into them.
std::vector<std::string_view> phonemesOf(const std::vector<std::string>& syllables);
std::vector<std::string_view> phonemesOf(std::vector<std::string>&& syllables) = delete;

} // namespace wybeta::tests
