// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/words/Readings.h"

#include "lyrics/KanaPhonemeTable.h"
#include "text/Splitting.h"
#include "wysim/words/CharacterKinds.h"
#include "wysim/words/Letters.h"

#include <algorithm>
#include <iterator>
#include <set>

namespace wybeta::wysim::words {

namespace {

constexpr std::size_t kLongestReading = 64;
constexpr std::size_t kLongestKanjiWord = 32;

constexpr char32_t kLongVowel = U'ー';
constexpr std::u32string_view kBars = U"｜|";
constexpr std::u32string_view kOpening = U"(（《";
// In the order of the opening ones. People mix plain brackets with full-width ones.
constexpr std::u32string_view kClosing[] = {U")）", U")）", U"》"};
constexpr std::u32string_view kLongMarks = U"～〜―—－–‐‑−─~-";
constexpr char32_t kFullWidthZero = U'０';

bool isKana(char32_t character) {
    return lyrics::findKanaSingle({&character, 1}, 0) != nullptr;
}

bool isSameKana(char32_t one, char32_t other) {
    return one == other || lyrics::kanaEquals(one, other) || lyrics::kanaEquals(other, one);
}

// Whether a reading can be that of a word: it has the word's kana, and between them at least one
// kana for the kanji that stand together.
bool canBeRead(std::u32string_view word, std::u32string_view reading) {
    // fits[i] tells whether the word so far can be read as the first i kana.
    std::vector<bool> fits(reading.size() + 1);
    fits[0] = true;
    bool isAfterKanji = false;
    for (const char32_t character : word) {
        std::vector<bool> next(fits.size());
        for (std::size_t i = 1; i < fits.size(); ++i) {
            next[i] = isKanji(character) ? fits[i - 1] || next[i - 1] || (isAfterKanji && fits[i])
                                         : fits[i - 1] && isSameKana(character, reading[i - 1]);
        }
        fits = std::move(next);
        isAfterKanji = isKanji(character);
    }
    return fits.back();
}

bool isOfWord(char32_t character) {
    return isKanji(character) || isKana(character);
}

// Where the word at the end of a text begins: the longest one from a kanji on that can be read so.
// The size of the text if there is none.
std::size_t findWordAtEnd(std::u32string_view text, std::u32string_view reading) {
    std::size_t begin = text.size();
    for (std::size_t i = text.size(); i > 0 && isOfWord(text[i - 1]);) {
        --i;
        if (isKanji(text[i]) && canBeRead(text.substr(i), reading)) {
            begin = i;
        }
    }
    return begin;
}

// Where the last bar of a text is, if a word follows it; else the size of the text.
std::size_t findBar(std::u32string_view text) {
    const auto bar = text.find_last_of(kBars);
    return bar == std::u32string_view::npos || bar + 1 == text.size() ? text.size() : bar;
}

// The kana between a bracket and the one that closes it; empty if there is anything else.
std::u32string_view kanaInBracket(std::u32string_view text, std::size_t bracket) {
    const auto closing = kClosing[kOpening.find(text[bracket])];
    const auto inside = text.substr(bracket + 1, kLongestReading + 1);
    const auto length = std::find_if_not(inside.begin(), inside.end(), isKana) - inside.begin();
    const auto kana = inside.substr(0, static_cast<std::size_t>(length));
    const bool isClosed = kana.size() < inside.size() && isOneOf(inside[kana.size()], closing);
    return isClosed ? kana : std::u32string_view();
}

// The reading in the bracket at this place, if it is one. Its word begins at `from` or later.
std::optional<Reading> readingAt(std::u32string_view text, std::size_t bracket, std::size_t from) {
    const auto kana = kanaInBracket(text, bracket);
    if (kana.empty()) {
        return std::nullopt;
    }
    const auto first = std::max(from, bracket - std::min(bracket, kLongestKanjiWord));
    const auto before = text.substr(first, bracket - first);
    const auto bar = findBar(before);
    const auto begin = bar < before.size() ? bar : findWordAtEnd(before, kana);
    if (begin == before.size()) {
        return std::nullopt;
    }
    return Reading{first + begin, bracket + kana.size() + 2, std::u32string(kana)};
}

bool isAsciiWord(char32_t character) {
    return (character >= U'0' && character <= U'9') || (character >= U'A' && character <= U'Z') ||
           (character >= U'a' && character <= U'z');
}

using MoraSymbols = std::vector<std::string_view>;

bool isKanaVowel(std::string_view symbol) {
    constexpr std::string_view kKanaVowels[] = {"a", "i", "u", "e", "o", "wo"};
    return std::find(std::begin(kKanaVowels), std::end(kKanaVowels), symbol) !=
           std::end(kKanaVowels);
}

bool endsMora(std::string_view symbol) {
    return isKanaVowel(symbol) || symbol == "N" || symbol == "cl" || symbol == "-";
}

// The morae of one syllable; consonants after the last stay with it.
std::string moraeOf(const MoraSymbols& symbols) {
    const auto last = std::find_if(symbols.rbegin(), symbols.rend(), endsMora);
    std::string morae;
    for (auto at = symbols.begin(); at != symbols.end(); ++at) {
        const bool isEnd = endsMora(*at) && at + 1 < last.base();
        morae.append(*at).append(isEnd ? "," : " ");
    }
    morae.pop_back();
    return morae;
}

bool hasSeveralVowels(const MoraSymbols& symbols) {
    return std::count_if(symbols.begin(), symbols.end(), isKanaVowel) > 1 &&
           std::all_of(symbols.begin(), symbols.end(), isKanaSymbol);
}

} // namespace

bool isKanaSymbol(std::string_view symbol) {
    static const auto symbols = [] {
        std::set<std::string_view> all;
        const auto addAll = [&all](const auto& chart) {
            for (const auto& entry : chart) {
                const auto more = text::splitText(entry.phonemes, "");
                all.insert(more.begin(), more.end());
            }
        };
        addAll(lyrics::KanaPhonemeTable::singles());
        addAll(lyrics::KanaPhonemeTable::pairs());
        return all;
    }();
    return symbols.count(symbol) > 0;
}

std::vector<Reading> findReadings(std::u32string_view text) {
    std::vector<Reading> readings;
    std::size_t from = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (!isOneOf(text[i], kOpening)) {
            continue;
        }
        if (auto reading = readingAt(text, i, from)) {
            from = reading->end;
            readings.push_back(std::move(*reading));
        }
    }
    return readings;
}

std::u32string withSungMarks(std::u32string text) {
    for (std::size_t i = 1; i < text.size(); ++i) {
        const bool isBeforeWord = i + 1 < text.size() && isAsciiWord(text[i + 1]);
        if (isBeforeWord || !isKana(text[i - 1])) {
            continue;
        }
        if (isOneOf(text[i], kLongMarks)) {
            text[i] = kLongVowel;
        } else if (text[i] == kFullWidthZero) {
            text[i] = U'0';
        }
    }
    return text;
}

std::optional<std::string> dividedIntoMorae(std::string_view phonemes) {
    std::string divided;
    bool hasDivided = false;
    text::forEachSplit(phonemes, ",", [&](std::string_view syllable) {
        const auto symbols = text::splitText(syllable, "");
        const bool isDivided = hasSeveralVowels(symbols);
        divided += isDivided ? moraeOf(symbols) : std::string(text::trimmed(syllable));
        divided += ',';
        hasDivided = hasDivided || isDivided;
    });
    divided.pop_back();
    return hasDivided ? std::optional(divided) : std::nullopt;
}

} // namespace wybeta::wysim::words
