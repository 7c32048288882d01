// SPDX-License-Identifier: GPL-3.0-or-later
#include "dictionary/WordLookup.h"

#include "text/Splitting.h"

#include <utf8cpp/utf8.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <iterator>
#include <optional>
#include <utility>

namespace wybeta::dictionary {

namespace {

using Pieces = std::vector<std::string_view>;

constexpr const char* kVowelsAndN[] = {"ih", "eh", "ae", "aa", "ah", "uh", "ax", "iy",
                                       "uw", "ao", "er", "ey", "ay", "oy", "ow", "aw",
                                       "a",  "i",  "u",  "e",  "o",  "N"};
constexpr const char* kVoiced[] = {"w", "y", "m", "ng", "v", "z", "zh", "jh", "l"};
constexpr const char* kUnvoiced[] = {"f", "s", "th", "sh", "hh"};

// The index of the first symbol that is in the group. A symbol matches every member of which it is
// a prefix: "n" matches "ng", "t" matches "th".
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
    Pieces syllables = text::splitText(divided, ".");
    std::transform(syllables.begin(), syllables.end(), syllables.begin(), text::trimmed);
    return syllables;
}

// Drops the last symbol of the last syllable, which silences a vowel; a lone symbol becomes a rest.
void silenceLast(std::vector<std::string>& syllables) {
    if (syllables.empty()) {
        syllables.emplace_back("sil");
        return;
    }
    Pieces symbols = text::splitText(syllables.back(), "");
    if (symbols.size() < 2) {
        syllables.back() = "sil";
        return;
    }
    symbols.pop_back();
    syllables.back() = text::joinText(symbols, " ");
}

// For each number of letters of a word, the spoken syllable that a hyphen after them holds: that of
// the written syllable of the last of these letters, at most the last one that is spoken. Before
// the first letter and past the end of the spelling it is the first.
std::vector<std::size_t> heldSyllables(std::size_t letters, const Pieces& written,
                                       std::size_t spokenCount) {
    std::vector<std::size_t> held = {0};
    for (std::size_t i = 0; i < written.size(); ++i) {
        held.insert(held.end(), written[i].size(), std::min(i, spokenCount - 1));
    }
    held.resize(letters + 1);
    return held;
}

// Counts the hyphens of each spoken syllable.
std::vector<std::size_t> countHyphens(std::string_view typed, const Pieces& written,
                                      std::size_t spokenCount) {
    const auto held = heldSyllables(typed.size(), written, spokenCount);
    std::vector<std::size_t> hyphens(spokenCount);
    std::size_t letters = 0;
    for (const char byte : typed) {
        if (byte == '-') {
            ++hyphens[held[letters]];
        } else {
            ++letters;
        }
    }
    return hyphens;
}

// Appends a syllable without its stress digits, and then without the white space at its ends.
void appendSyllable(std::vector<std::string>& syllables, std::string_view syllable) {
    const auto isSpaceOrDigit = [](char byte) {
        return isStressDigit(byte) || text::isSpace(byte);
    };
    while (!syllable.empty() && isSpaceOrDigit(syllable.back())) {
        syllable.remove_suffix(1);
    }
    std::string& symbols = syllables.emplace_back();
    for (const char byte : syllable) {
        if (!isStressDigit(byte) && !(symbols.empty() && text::isSpace(byte))) {
            symbols.push_back(byte);
        }
    }
}

void appendWhole(std::vector<std::string>& syllables, std::string_view phonemes) {
    text::forEachSplit(phonemes, ".", [&syllables](std::string_view syllable) {
        appendSyllable(syllables, syllable);
    });
}

void appendDivided(std::vector<std::string>& syllables, const PronunciationEntry& entry,
                   std::string_view typed) {
    const Pieces spoken = syllablesOf(entry.phonemes);
    const auto hyphens = countHyphens(typed, syllablesOf(entry.spelling), spoken.size());
    for (std::size_t i = 0; i < spoken.size(); ++i) {
        if (hyphens[i] == 0) {
            syllables.emplace_back(spoken[i]);
        } else {
            appendHeld(syllables, spoken[i], hyphens[i]);
        }
    }
}

std::vector<std::string> copied(const Pieces& pieces) {
    return {pieces.begin(), pieces.end()};
}

WordEntry wordEntry(std::string word, const PronunciationEntry& entry) {
    const Pieces written = syllablesOf(entry.spelling);
    const Pieces spoken = syllablesOf(entry.phonemes);
    WordEntry found{std::move(word), copied(written), copied(spoken), {}};
    found.holds.resize(spoken.size());
    const auto held = heldSyllables(found.word.size(), written, spoken.size());
    for (std::size_t letters = 0; letters < held.size(); ++letters) {
        found.holds[held[letters]].push_back(letters);
    }
    return found;
}

} // namespace

void convertEnglishWord(const PronunciationDictionary& dictionary, std::u32string_view lyric,
                        std::int32_t begin, std::int32_t end, std::vector<std::string>& syllables) {
    if (begin < 0 || begin >= end || static_cast<std::size_t>(end) > lyric.size()) {
        return;
    }
    const auto word =
        lyric.substr(static_cast<std::size_t>(begin), static_cast<std::size_t>(end - begin));
    const std::string typed = typedWord(word);
    if (word == U"0") {
        silenceLast(syllables);
    }
    if (!hasHyphens(typed)) {
        if (const auto line = dictionary.findLine(typed)) {
            appendWhole(syllables, line->phonemes);
        }
    } else if (const auto entry = dictionary.find(withoutHyphens(typed))) {
        appendDivided(syllables, *entry, typed);
    }
}

std::vector<WordEntry> findWordEntries(const PronunciationDictionary& dictionary,
                                       std::string_view word) {
    std::string stem = withoutHyphens(std::string(word));
    std::transform(stem.begin(), stem.end(), stem.begin(), toLower);
    stem.resize(suffixStart(stem));
    std::vector<WordEntry> entries;
    for (const char* const suffix : {"", "(1)", "(2)", "(3)"}) {
        if (const auto entry = dictionary.find(stem + suffix)) {
            entries.push_back(wordEntry(stem + suffix, *entry));
        }
    }
    return entries;
}

std::size_t suffixStart(std::string_view word) {
    constexpr std::size_t kLength = 3;
    const auto begin = word.size() - std::min(word.size(), kLength);
    const auto end = word.substr(begin);
    const bool isSuffix =
        end.size() == kLength && end[0] == '(' && end[1] >= '0' && end[1] <= '9' && end[2] == ')';
    return isSuffix ? begin : word.size();
}

void appendHeld(std::vector<std::string>& syllables, std::string_view syllable,
                std::size_t hyphens) {
    Pieces symbols = text::splitText(syllable, "");
    const auto nucleus = static_cast<std::size_t>(findSyllableNucleus(symbols));
    const auto cut = static_cast<std::ptrdiff_t>(std::min(nucleus + 1, symbols.size()));
    const Pieces rest(symbols.begin() + cut, symbols.end());
    symbols.erase(symbols.begin() + cut, symbols.end());
    syllables.push_back(text::joinText(symbols, " "));
    syllables.insert(syllables.end(), hyphens, "-");
    syllables.back() += " " + text::joinText(rest, " ");
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
