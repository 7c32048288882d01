// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/words/Sounds.h"

#include "text/Splitting.h"

#include <algorithm>
#include <iterator>

namespace wybeta::wysim::words {

namespace {

constexpr std::string_view kVowels[] = {"aa", "ae", "ah", "ao", "aw", "ay", "eh", "er",
                                        "ey", "ih", "iy", "ow", "oy", "uh", "uw"};
constexpr std::string_view kVoiceless[] = {"ch", "f", "hh", "k", "p", "s", "sh", "t", "th"};
constexpr std::string_view kVoiced[] = {"b",  "d", "dh", "g", "jh", "l", "m", "n",
                                        "ng", "r", "v",  "w", "y",  "z", "zh"};
constexpr std::string_view kSibilants[] = {"ch", "jh", "s", "sh", "z", "zh"};

// Of more than one consonant; each consonant but ng can begin a word by itself.
constexpr std::string_view kOnsets[] = {
    "p r", "t r", "k r", "b r", "d r",  "g r",   "f r",   "th r",  "sh r",  "p l",   "k l",   "b l",
    "g l", "f l", "s l", "t w", "k w",  "d w",   "g w",   "s w",   "th w",  "hh w",  "sh w",  "s p",
    "s t", "s k", "s f", "s m", "s n",  "s p r", "s p l", "s t r", "s k r", "s k w", "s k l", "p y",
    "b y", "k y", "f y", "v y", "th y", "m y",   "hh y",  "g y",   "s p y", "s k y",
};

template <std::size_t Size>
bool isAmong(std::string_view symbol, const std::string_view (&set)[Size]) {
    return std::find(std::begin(set), std::end(set), symbol) != std::end(set);
}

using Place = Symbols::const_iterator;

std::string joined(Place begin, Place end) {
    return text::joinText({begin, end}, " ");
}

bool isOnset(Place begin, Place end) {
    if (end - begin < 2) {
        return begin == end || *begin != "ng";
    }
    return isAmong(joined(begin, end), kOnsets);
}

} // namespace

Symbols symbolsOf(std::string_view phonemes) {
    Symbols symbols;
    for (const auto symbol : text::splitText(phonemes, "")) {
        if (symbol != ".") {
            symbols.emplace_back(symbol);
        }
    }
    return symbols;
}

bool isSymbol(std::string_view symbol) {
    return isVowel(symbol) || isVoiceless(symbol) || isAmong(symbol, kVoiced);
}

bool isVowel(std::string_view symbol) {
    return isAmong(symbol, kVowels);
}

bool isVoiceless(std::string_view symbol) {
    return isAmong(symbol, kVoiceless);
}

bool isSibilant(std::string_view symbol) {
    return isAmong(symbol, kSibilants);
}

std::size_t countNuclei(const Symbols& symbols) {
    return static_cast<std::size_t>(std::count_if(symbols.begin(), symbols.end(), isVowel));
}

std::size_t findNucleus(const Symbols& symbols, std::size_t number) {
    std::size_t at = 0;
    while (at < symbols.size() && (!isVowel(symbols[at]) || number-- > 0)) {
        ++at;
    }
    return at;
}

std::vector<std::string> dividedIntoSyllables(const Symbols& symbols) {
    std::vector<std::string> syllables;
    auto begin = symbols.begin();
    auto nucleus = std::find_if(begin, symbols.end(), isVowel);
    while (nucleus != symbols.end()) {
        const auto next = std::find_if(nucleus + 1, symbols.end(), isVowel);
        auto end = next == symbols.end() ? next : nucleus + 1;
        while (!isOnset(end, next)) {
            ++end;
        }
        syllables.push_back(joined(begin, end));
        begin = end;
        nucleus = next;
    }
    if (begin != symbols.end()) {
        syllables.push_back(joined(begin, symbols.end()));
    }
    return syllables;
}

} // namespace wybeta::wysim::words
