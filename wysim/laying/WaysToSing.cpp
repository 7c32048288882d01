// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/laying/WaysToSing.h"

#include "dictionary/WordLookup.h"
#include "lyrics/BracketedPhonemes.h"
#include "text/Splitting.h"
#include "wysim/words/LyricText.h"
#include "wysim/words/Sounds.h"
#include "wysim/words/UnsungWords.h"

#include <algorithm>
#include <string_view>

namespace wybeta::wysim::laying {

namespace {

using words::isVowel;
using words::Symbols;

constexpr double kShorterEntry = 0.5;
constexpr double kLongerEntry = 1.5;
constexpr double kUsualJoin = 0.8;  // "flow'r", "ev'ry"
constexpr double kSeldomJoin = 1.5; // "giv'n"
constexpr double kKanaJoin = 0.5;
constexpr double kExtraSyllable = 1; // "blessèd"

bool isOneOf(std::string_view symbol, std::initializer_list<std::string_view> set) {
    return std::find(set.begin(), set.end(), symbol) != set.end();
}

std::optional<double> joinCost(const Symbols& first, const Symbols& second) {
    if (second.size() == 1 && isOneOf(second.front(), {"N", "cl", "-"})) {
        return kKanaJoin;
    }
    if (first.empty() || second.empty()) {
        return std::nullopt;
    }
    const bool beginsWithVowel = isVowel(second.front());
    if (beginsWithVowel && isOneOf(first.back(), {"aw", "ay"}) && second.front() == "er") {
        return kUsualJoin; // flower, fire
    }
    if (beginsWithVowel && isOneOf(first.back(), {"er", "iy", "uw"}) &&
        isOneOf(second.front(), {"ah", "er", "ih", "iy", "ae", "eh"})) {
        return kUsualJoin; // every, glittering, glorious
    }
    if (second.size() >= 2 && isOneOf(second.back(), {"n", "l", "m"}) &&
        isOneOf(second[second.size() - 2], {"ah", "ih"}) && second.size() <= 3) {
        return kSeldomJoin; // heaven, fallen
    }
    if (beginsWithVowel && isVowel(first.back())) {
        return kSeldomJoin; // being, poet
    }
    return std::nullopt;
}

WayToSing wayOf(Syllables syllables, double cost, bool isOwn) {
    WayToSing way{std::move(syllables), {}, cost, isOwn};
    Symbols previous;
    for (const auto& syllable : way.syllables) {
        const auto symbols = words::symbolsOf(syllable);
        way.joinCosts.push_back(previous.empty() ? std::nullopt : joinCost(previous, symbols));
        previous = symbols;
    }
    return way;
}

bool endsWith(std::string_view text, std::string_view end) {
    return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}

// The word with its "-ed" as a syllable: "blessèd".
std::optional<Syllables> withSoundedEnding(std::string_view lyric, const Syllables& syllables) {
    auto symbols = words::symbolsOf(syllables.empty() ? std::string() : syllables.back());
    if (!endsWith(lyric, "ed") || endsWith(lyric, "eed") || symbols.size() < 3 ||
        !isOneOf(symbols.back(), {"d", "t"})) {
        return std::nullopt;
    }
    symbols.pop_back();
    if (isOneOf(symbols.back(), {"ah", "eh", "ih"})) {
        return std::nullopt; // it is sounded already, as in "wanted" and "red"
    }
    std::string onset;
    if (!isVowel(symbols.back())) {
        onset = symbols.back() + " ";
        symbols.pop_back();
    }
    auto sounded = syllables;
    sounded.back() = text::joinText({symbols.begin(), symbols.end()}, " ");
    sounded.push_back(onset + "ih d");
    return sounded;
}

bool hasCount(const std::vector<WayToSing>& ways, std::size_t count) {
    return std::any_of(ways.begin(), ways.end(),
                       [count](const auto& way) { return way.syllables.size() == count; });
}

} // namespace

const std::vector<WayToSing>& WaysToSing::of(const std::string& lyric) {
    const auto [known, isNew] = known_.try_emplace(lyric);
    if (isNew) {
        known->second = find(lyric);
    }
    return known->second;
}

std::vector<WayToSing> WaysToSing::find(const std::string& lyric) {
    std::vector<WayToSing> ways;
    if (lyrics::findBracketedPhonemes(lyric)) {
        auto syllables = reader_.syllablesOf(lyric);
        const bool isEmpty = std::any_of(syllables.begin(), syllables.end(), [](const auto& one) {
            return words::symbolsOf(one).empty();
        });
        if (!syllables.empty() && !isEmpty) {
            ways.push_back(wayOf(std::move(syllables), 0, false));
        }
    } else if (reader_.singsAllOf(lyric)) {
        ways.push_back(wayOf(reader_.syllablesOf(lyric), 0, false));
        for (auto& entry : dictionary::findWordEntries(reader_.dictionary(), lyric)) {
            if (!entry.syllables.empty() && !hasCount(ways, entry.syllables.size())) {
                const bool isShorter = entry.syllables.size() < ways.front().syllables.size();
                ways.push_back(wayOf(std::move(entry.syllables),
                                     isShorter ? kShorterEntry : kLongerEntry, false));
            }
        }
    } else if (usesGuesses_) {
        for (auto& one : words::LyricPronunciations(words::charactersOf(lyric), reader_).all()) {
            if (!one.syllables.empty() && !hasCount(ways, one.syllables.size())) {
                ways.push_back(wayOf(std::move(one.syllables), ways.empty() ? 0 : 1, false));
            }
        }
    }
    if (ways.empty()) {
        return ways;
    }
    if (auto sounded = withSoundedEnding(lyric, ways.front().syllables)) {
        if (!hasCount(ways, sounded->size())) {
            ways.push_back(wayOf(*std::move(sounded), kExtraSyllable, true));
        }
    }
    return ways;
}

std::string joinedSyllable(const std::string& first, const std::string& second) {
    auto symbols = words::symbolsOf(first);
    auto further = words::symbolsOf(second);
    if (further.front() == "-") {
        return first;
    }
    if (isVowel(further.front()) && isOneOf(symbols.back(), {"er", "iy"})) {
        symbols.back() = symbols.back() == "er" ? "r" : "y";
    } else if (further.size() >= 2 && isOneOf(further.back(), {"n", "l", "m"}) &&
               further[further.size() - 2] == "ah" && !isVowel(further.front())) {
        further.erase(further.end() - 2);
    }
    symbols.insert(symbols.end(), further.begin(), further.end());
    return text::joinText({symbols.begin(), symbols.end()}, " ");
}

} // namespace wybeta::wysim::laying
