// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/words/Endings.h"

#include "wysim/words/Letters.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>

namespace wybeta::wysim::words {

namespace {

struct Ending {
    std::string_view letters;
    std::string_view phonemes; // or one of the two below, which the symbol before decides
    std::size_t shortestStem = 3;
};
constexpr std::string_view kPlural = "s or z or ih z";
constexpr std::string_view kPast = "t or d or ih d";

constexpr Ending kInflections[] = {
    {"s", kPlural},      {"es", kPlural},     {"ed", kPast},        {"ed", "ih d"}, {"Ed", "ih d"},
    {"ing", "ih ng", 2}, {"eth", "ih th", 2}, {"est", "ah s t", 2}, {"er", "er"},
};
constexpr Ending kSuffixes[] = {
    {"less", "l ah s"},
    {"ness", "n ah s"},
    {"ful", "f ah l"},
    {"edly", "ih d l iy"},
    {"ly", "l iy"},
    {"like", "l ay k"},
    {"ward", "w er d"},
    {"wards", "w er d z"},
    {"some", "s ah m"},
    {"ship", "sh ih p"},
    {"hood", "hh uh d"},
    {"land", "l ah n d"},
    {"wise", "w ay z"},
    {"dom", "d ah m"},
    {"ish", "ih sh"},
    {"able", "ah b ah l"},
    {"ment", "m ah n t"},
    {"fold", "f ow l d"},
    {"most", "m ow s t"},
    {"tide", "t ay d"},
    {"man", "m ah n"},
    {"men", "m eh n"},
    {"let", "l ah t"},
    {"ling", "l ih ng"},
    {"y", "iy"},
    {"en", "ah n"},
    {"n", "n"},
    {"soever", "s ow eh v er"},
    {"where", "w eh r"},
    {"ever", "eh v er"},
    {"pence", "p ah n s"},
    {"score", "s k ao r"},
};

// Whether a base ends in one consonant after one vowel letter. "hoping" then comes from "hope",
// since "hop" would have its p doubled; a word of several vowels, such as "open", need not double.
bool needsDroppedE(const std::string& base) {
    constexpr std::string_view kNeverDoubled = "wxy";
    const auto size = base.size();
    return size >= 2 && !isVowelLetter(base[size - 1]) && isVowelLetter(base[size - 2]) &&
           kNeverDoubled.find(base[size - 1]) == std::string_view::npos &&
           (size == 2 || !isVowelLetter(base[size - 3]));
}

bool endsDoubled(const std::string& base) {
    const auto size = base.size();
    return size >= 3 && base[size - 1] == base[size - 2] && !isVowelLetter(base.back());
}

// What a word can be without an ending that begins with a vowel, the likelier first.
std::vector<std::string> stemsBeforeVowel(const std::string& base) {
    constexpr std::string_view kNeverLast = "eiu"; // "seeth" is no "se", "ruing" no "ru"
    const bool endsInVowel = kNeverLast.find(base.back()) != std::string_view::npos;
    std::vector<std::string> stems{base, base + "e"};
    if (needsDroppedE(base) || endsInVowel) {
        std::swap(stems[0], stems[1]);
    }
    const auto shorter = base.substr(0, base.size() - 1);
    if (endsDoubled(base)) {
        stems.push_back(shorter);
    } else if (base.back() == 'i') {
        stems.push_back(shorter + "y");
    } else if (base.back() == 'y') {
        stems.push_back(shorter + "ie");
    }
    return stems;
}

std::vector<std::string> stemsOf(const std::string& base, const Ending& ending) {
    if (ending.letters == "es") {
        return base.back() == 'i' ? stemsBeforeVowel(base) : std::vector<std::string>{base};
    }
    if (isVowelLetter(ending.letters.front())) {
        auto stems = stemsBeforeVowel(base);
        if (needsDroppedE(base) && std::count_if(base.begin(), base.end(), isVowelLetter) == 1) {
            stems.erase(std::find(stems.begin(), stems.end(), base));
        }
        return stems;
    }
    std::vector<std::string> stems{base};
    if (base.back() == 'i') {
        stems.push_back(base.substr(0, base.size() - 1) + "y");
    }
    return stems;
}

std::string_view pluralAfter(const std::string& symbol) {
    if (isSibilant(symbol)) {
        return "ih z";
    }
    return isVoiceless(symbol) ? "s" : "z";
}

std::string_view pastAfter(const std::string& symbol) {
    if (symbol == "t" || symbol == "d") {
        return "ih d";
    }
    return isVoiceless(symbol) ? "t" : "d";
}

std::string_view phonemesOf(const Ending& ending, const std::string& before) {
    if (ending.phonemes == kPlural) {
        return pluralAfter(before);
    }
    return ending.phonemes == kPast ? pastAfter(before) : ending.phonemes;
}

bool endsInSyllabicL(const Symbols& symbols) {
    const auto size = symbols.size();
    return size >= 3 && symbols[size - 1] == "l" && symbols[size - 2] == "ah" &&
           !isVowel(symbols[size - 3]);
}

bool endsInVowelAndEr(const Symbols& symbols) {
    const auto size = symbols.size();
    return size >= 2 && symbols[size - 1] == "er" && isVowel(symbols[size - 2]);
}

// "happily" has "ah" for the last vowel of "happy", "really" one l, "musically" no vowel before it.
void fitToLy(Symbols& symbols, const std::string& stem) {
    if (symbols.back() == "iy" && stem.back() == 'y') {
        symbols.back() = "ah";
    } else if (symbols.back() == "l" && symbols.size() > 2) {
        symbols.pop_back();
        if (endsIn(stem, "ical") && symbols.back() == "ah") {
            symbols.pop_back();
        }
    }
}

// Where the ending has a vowel, "sparkle" and "desire" have one less.
void fitToVowel(Symbols& symbols, const std::string& stem) {
    if (endsIn(stem, "le") && endsInSyllabicL(symbols)) {
        symbols.erase(symbols.end() - 2);
    } else if (endsIn(stem, "re") && endsInVowelAndEr(symbols)) {
        symbols.back() = "r";
    }
}

void fitToEnding(Symbols& symbols, const std::string& stem, const Ending& ending) {
    if (ending.letters == "ly") {
        fitToLy(symbols, stem);
    } else if (isVowel(symbolsOf(phonemesOf(ending, symbols.back())).front())) {
        fitToVowel(symbols, stem);
    }
}

void append(Symbols& symbols, std::string_view phonemes) {
    for (auto& symbol : symbolsOf(phonemes)) {
        symbols.push_back(std::move(symbol));
    }
}

// An s alone does not follow a sibilant, and an es is an ending by itself only after one or an o,
// or where a y became an i. A y follows consonants, an n follows -er, as in "silvern".
bool canTake(const Derivation& stem, const std::string& base, const Ending& ending) {
    const bool hisses = isSibilant(stem.symbols.back());
    if (ending.letters == "s") {
        return !hisses || base.back() == 'e';
    }
    if (ending.letters == "es") {
        return hisses || base.back() == 'o' || base.back() == 'i';
    }
    if (ending.letters == "n") {
        return endsIn(base, "er");
    }
    return ending.letters != "y" || !isVowelLetter(base.back());
}

void addWithEnding(const KnownWords& known, const std::string& base, const Ending& ending,
                   Derivations& derived) {
    for (const auto& stem : stemsOf(base, ending)) {
        if (stem.size() < ending.shortestStem || !hasVowelLetter(stem)) {
            continue;
        }
        for (auto& found : known.find(stem)) {
            if (canTake(found, base, ending)) {
                fitToEnding(found.symbols, stem, ending);
                append(found.symbols, phonemesOf(ending, found.symbols.back()));
                ++found.steps;
                derived.push_back(std::move(found));
            }
        }
    }
}

template <std::size_t Size>
Derivations deriveFromEndings(const KnownWords& known, const std::string& word,
                              const Ending (&endings)[Size]) {
    Derivations derived;
    for (const auto& ending : endings) {
        if (word.size() >= ending.letters.size() + 2 && endsIn(word, ending.letters)) {
            const auto base = word.substr(0, word.size() - ending.letters.size());
            addWithEnding(known, base, ending, derived);
        }
    }
    return derived;
}

// A word such as "sacrèd", whose e the dictionary has as a vowel, too.
Derivations findWithSungEd(const KnownWords& known, const std::string& word) {
    constexpr std::size_t kShortestSung = 2;
    Derivations sung;
    const auto at = word.find(kSungE);
    if (at == std::string::npos) {
        return sung;
    }
    for (auto& found : known.findAll(std::string(word).replace(at, 1, "e"))) {
        const auto size = found.symbols.size();
        const auto vowel = size < kShortestSung ? std::string() : found.symbols[size - 2];
        if (found.steps == 0 && (vowel == "ih" || vowel == "ah")) {
            ++found.steps;
            sung.push_back(std::move(found));
        }
    }
    return sung;
}

struct Clitic {
    std::string_view letters;
    std::string_view afterVowel;
    std::string_view afterConsonant;
};
constexpr Clitic kSecondPerson = {"'st", "s t", "s t"};
constexpr Clitic kThirdPerson = {"'th", "th", "th"};
constexpr Clitic kClitics[] = {
    {"'s", kPlural, kPlural},
    kSecondPerson,
    kThirdPerson,
    {"'t", "t", "t"},
    {"'ll", "l", "ah l"},
    {"'ve", "v", "ah v"},
    {"'re", "er", "er"},
    {"'rt", "r t", "er t"},
    {"'lt", "l t", "ah l t"},
    {"'dst", "d s t", "ah d s t"},
};

// They take -st without a vowel: "wouldst", "can'st".
constexpr std::string_view kAuxiliaries[] = {"would", "could", "should", "might", "had",
                                             "did",   "may",   "can",    "need"};

// The auxiliary of a form in -st or -'st; empty for any other word.
std::string_view auxiliaryOf(const std::string& word) {
    for (const auto auxiliary : kAuxiliaries) {
        const auto end = beginsWith(word, auxiliary) ? word.substr(auxiliary.size()) : "";
        if (end == "st" || end == "'st") {
            return auxiliary;
        }
    }
    return {};
}

// The verb of "mak'st" has an e that it leaves out before the ending.
std::vector<std::string> stemsOf(const std::string& stem, const Clitic& clitic) {
    const bool isOfVerb =
        clitic.letters == kSecondPerson.letters || clitic.letters == kThirdPerson.letters;
    return isOfVerb ? stemsBeforeVowel(stem) : std::vector<std::string>{stem};
}

std::string_view phonemesOf(const Clitic& clitic, const std::string& before) {
    if (clitic.afterVowel == kPlural) {
        return pluralAfter(before);
    }
    if (clitic.letters == "'st" && isSibilant(before)) {
        return "ah s t";
    }
    return isVowel(before) ? clitic.afterVowel : clitic.afterConsonant;
}

void addWithClitic(const KnownWords& known, const std::string& stem, const Clitic& clitic,
                   Derivations& derived) {
    for (auto& found : known.find(stem)) {
        append(found.symbols, phonemesOf(clitic, found.symbols.back()));
        ++found.steps;
        derived.push_back(std::move(found));
    }
}

} // namespace

Derivations deriveFromClitics(const KnownWords& known, const std::string& word) {
    Derivations derived;
    if (const auto auxiliary = auxiliaryOf(word); !auxiliary.empty()) {
        addWithClitic(known, std::string(auxiliary), kSecondPerson, derived);
        return derived;
    }
    for (const auto& clitic : kClitics) {
        if (word.size() >= clitic.letters.size() + 2 && endsIn(word, clitic.letters)) {
            const auto stem = word.substr(0, word.size() - clitic.letters.size());
            for (const auto& whole : stemsOf(stem, clitic)) {
                addWithClitic(known, whole, clitic, derived);
            }
        }
    }
    return derived;
}

Derivations deriveFromInflection(const KnownWords& known, const std::string& word) {
    auto derived = findWithSungEd(known, word);
    auto more = deriveFromEndings(known, word, kInflections);
    std::move(more.begin(), more.end(), std::back_inserter(derived));
    return derived;
}

Derivations deriveFromSuffix(const KnownWords& known, const std::string& word) {
    return deriveFromEndings(known, word, kSuffixes);
}

} // namespace wybeta::wysim::words
