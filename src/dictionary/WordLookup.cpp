// SPDX-License-Identifier: GPL-3.0-or-later
#include "dictionary/WordLookup.h"

#include "text/Splitting.h"

#include <utf8cpp/utf8.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <iterator>
#include <optional>

namespace wybeta::dictionary {

namespace {

using Pieces = std::vector<std::string_view>;

constexpr const char* kVowelsAndN[] = {"ih", "eh", "ae", "aa", "ah", "uh", "ax", "iy",
                                       "uw", "ao", "er", "ey", "ay", "oy", "ow", "aw",
                                       "a",  "i",  "u",  "e",  "o",  "N"};
constexpr const char* kVoiced[] = {"w", "y", "m", "ng", "v", "z", "zh", "jh", "l"};
constexpr const char* kUnvoiced[] = {"f", "s", "th", "sh", "hh"};

// The index of the first symbol that is in the group. A symbol counts as every member that it is
// the beginning of: "n" as "ng", "t" as "th".
template <std::size_t Size>
std::optional<std::int32_t> findFirstOf(const char* const (&group)[Size], const Pieces& symbols) {
    const auto found =
        std::find_if(symbols.begin(), symbols.end(), [&group](std::string_view symbol) {
            return std::any_of(group, group + Size, [symbol](const char* member) {
                return symbol.empty() || std::strncmp(symbol.data(), member, symbol.size()) == 0;
            });
        });
    if (found == symbols.end()) {
        return std::nullopt;
    }
    return static_cast<std::int32_t>(found - symbols.begin());
}

char toLower(char byte) {
    return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte;
}

std::string typedWord(std::u32string_view word) {
    std::string typed;
    for (const char32_t character : word) {
        if (character < 0x80) {
            typed.push_back(toLower(static_cast<char>(character)));
        } else {
            utf8::append(character, std::back_inserter(typed));
        }
    }
    return typed;
}

bool hasHyphens(std::string_view word) {
    return word.find('-') != std::string_view::npos;
}

std::string withoutHyphens(std::string word) {
    word.erase(std::remove(word.begin(), word.end(), '-'), word.end());
    return word;
}

Pieces syllablesOf(std::string_view divided) {
    Pieces syllables = splitText(divided, ".");
    std::transform(syllables.begin(), syllables.end(), syllables.begin(), trimmed);
    return syllables;
}

// Drops the last symbol of the last item, which silences a vowel; a lone symbol becomes a rest.
void silenceLast(std::vector<std::string>& items) {
    if (items.empty()) {
        items.emplace_back("sil");
        return;
    }
    Pieces symbols = splitText(items.back(), "");
    if (symbols.size() < 2) {
        items.back() = "sil";
        return;
    }
    symbols.pop_back();
    items.back() = joinText(symbols, " ");
}

// How many hyphens fall into each of the phoneme syllables. A hyphen belongs to the written
// syllable that holds the letter before it: a leading one to the first, and so does one behind more
// letters than the written syllables have. Written syllables beyond the last spoken one fold onto
// that one.
std::vector<std::size_t> countHyphens(std::string_view typed, const Pieces& written,
                                      std::size_t syllables) {
    std::vector<std::size_t> hyphens(syllables);
    std::size_t letters = 0;         // before the byte
    std::size_t lettersOfOthers = 0; // in the written syllables before the current one
    std::size_t current = 0;
    for (const char byte : typed) {
        if (byte != '-') {
            ++letters;
            continue;
        }
        while (current < written.size() && letters > lettersOfOthers + written[current].size()) {
            lettersOfOthers += written[current].size();
            ++current;
        }
        const std::size_t holder = current < written.size() ? current : 0;
        ++hyphens[std::min(holder, syllables - 1)];
    }
    return hyphens;
}

// Appends the syllable up to its nucleus, then as many "-" items as it has hyphens, the last of
// which carries the rest, even if there is none.
void appendCut(std::vector<std::string>& items, std::string_view syllable, std::size_t hyphens) {
    Pieces symbols = splitText(syllable, "");
    const auto nucleus = static_cast<std::size_t>(findSyllableNucleus(symbols));
    const auto cut = static_cast<std::ptrdiff_t>(std::min(nucleus + 1, symbols.size()));
    const Pieces rest(symbols.begin() + cut, symbols.end());
    symbols.erase(symbols.begin() + cut, symbols.end());
    items.push_back(joinText(symbols, " "));
    items.insert(items.end(), hyphens, "-");
    items.back() += " " + joinText(rest, " ");
}

void appendWhole(std::vector<std::string>& items, const PronunciationEntry& entry) {
    forEachPiece(entry.phonemes, ".",
                 [&items](std::string_view syllable) { items.emplace_back(trimmed(syllable)); });
}

void appendDivided(std::vector<std::string>& items, const PronunciationEntry& entry,
                   std::string_view typed) {
    const Pieces syllables = syllablesOf(entry.phonemes);
    const auto hyphens = countHyphens(typed, syllablesOf(entry.spelling), syllables.size());
    for (std::size_t i = 0; i < syllables.size(); ++i) {
        if (hyphens[i] == 0) {
            items.emplace_back(syllables[i]);
        } else {
            appendCut(items, syllables[i], hyphens[i]);
        }
    }
}

} // namespace

void convertEnglishWord(const PronunciationDictionary& dictionary, std::u32string_view lyric,
                        std::int32_t begin, std::int32_t end, std::vector<std::string>& items) {
    if (begin < 0 || begin >= end || static_cast<std::size_t>(end) > lyric.size()) {
        return;
    }
    const auto word =
        lyric.substr(static_cast<std::size_t>(begin), static_cast<std::size_t>(end - begin));
    const std::string typed = typedWord(word);
    if (word == U"0") {
        silenceLast(items);
    }
    if (!hasHyphens(typed)) {
        if (const auto entry = dictionary.find(typed)) {
            appendWhole(items, *entry);
        }
    } else if (const auto entry = dictionary.find(withoutHyphens(typed))) {
        appendDivided(items, *entry, typed);
    }
}

std::int32_t findSyllableNucleus(const std::vector<std::string_view>& symbols) {
    auto nucleus = findFirstOf(kVowelsAndN, symbols);
    if (!nucleus) {
        nucleus = findFirstOf(kVoiced, symbols);
    }
    if (!nucleus) {
        nucleus = findFirstOf(kUnvoiced, symbols);
    }
    return nucleus.value_or(0);
}

} // namespace wybeta::dictionary
