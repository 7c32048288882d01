// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/words/Beginnings.h"

#include "wysim/words/Letters.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace wybeta::wysim::words {

namespace {

struct Prefix {
    std::string_view letters;
    std::string_view phonemes;
};
constexpr Prefix kPrefixes[] = {
    {"un", "ah n"},          {"re", "r iy"},         {"be", "b ih"},       {"a", "ah"},
    {"over", "ow v er"},     {"under", "ah n d er"}, {"out", "aw t"},      {"fore", "f ao r"},
    {"mis", "m ih s"},       {"dis", "d ih s"},      {"non", "n aa n"},    {"in", "ih n"},
    {"up", "ah p"},          {"by", "b ay"},         {"mid", "m ih d"},    {"after", "ae f t er"},
    {"ever", "eh v er"},     {"never", "n eh v er"}, {"half", "hh ae f"},  {"well", "w eh l"},
    {"all", "ao l"},         {"down", "d aw n"},     {"self", "s eh l f"}, {"god", "g aa d"},
    {"grand", "g r ae n d"}, {"great", "g r ey t"},  {"step", "s t eh p"}, {"en", "eh n"},
};

// "hereof", "therewith", "whereon": only these words come after here, there and where.
constexpr Prefix kPlaces[] = {{"here", "hh ih r"}, {"there", "dh eh r"}, {"where", "w eh r"}};
constexpr std::string_view kAfterPlaces[] = {"about", "after", "at",   "by",   "ever", "for",
                                             "fore",  "from",  "in",   "into", "of",   "on",
                                             "out",   "to",    "unto", "upon", "with", "withal"};

// More words only seem to have a prefix than an ending.
constexpr std::size_t kSteps = 2;

void addWithPrefix(const KnownWords& known, const std::string& rest, std::string_view phonemes,
                   Derivations& derived) {
    for (auto& found : known.find(rest)) {
        auto symbols = symbolsOf(phonemes);
        symbols.insert(symbols.end(), found.symbols.begin(), found.symbols.end());
        found.symbols = std::move(symbols);
        found.steps += kSteps;
        derived.push_back(std::move(found));
    }
}

bool canFollow(const Prefix& prefix, const std::string& rest) {
    constexpr std::size_t kShortestRest = 3;
    const bool needsConsonant = prefix.letters == "a" || prefix.letters == "be";
    return rest.size() >= kShortestRest && hasVowelLetter(rest) && rest.front() != '\'' &&
           !(needsConsonant && hasVowelLetter(rest.substr(0, 1)));
}

// The vowel of "the" is sung only where no other follows: "th'eternal", but "th'same".
void addAfterThe(const KnownWords& known, const std::string& rest, Derivations& derived) {
    Derivations found;
    addWithPrefix(known, rest, "dh", found);
    for (auto& word : found) {
        if (word.symbols.size() > 1 && !isVowel(word.symbols[1])) {
            word.symbols.insert(word.symbols.begin() + 1, "ah");
        }
        derived.push_back(std::move(word));
    }
}

} // namespace

Derivations deriveFromPrefix(const KnownWords& known, const std::string& word) {
    Derivations derived;
    for (const auto& prefix : kPrefixes) {
        const auto rest = word.substr(std::min(word.size(), prefix.letters.size()));
        if (beginsWith(word, prefix.letters) && canFollow(prefix, rest)) {
            addWithPrefix(known, rest, prefix.phonemes, derived);
        }
    }
    for (const auto& place : kPlaces) {
        for (const auto after : kAfterPlaces) {
            if (word == std::string(place.letters).append(after)) {
                addWithPrefix(known, std::string(after), place.phonemes, derived);
            }
        }
    }
    if (word.size() >= 5 && beginsWith(word, "th'")) {
        addAfterThe(known, word.substr(3), derived);
    } else if (word.size() >= 5 && (beginsWith(word, "'tw") || beginsWith(word, "'ti"))) {
        addWithPrefix(known, word.substr(2), "t", derived);
    }
    return derived;
}

} // namespace wybeta::wysim::words
