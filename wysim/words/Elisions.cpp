// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/words/Elisions.h"

#include "wysim/words/Letters.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>

namespace wybeta::wysim::words {

namespace {

// What an apostrophe within a word may stand for, the likelier first.
constexpr std::string_view kVowelFillings[] = {"e", "o", "i", "a", "u", "ou", ""};
// Between vowels it stands for these: "o'er", "ta'en".
constexpr std::string_view kConsonantFillings[] = {"v", "k"};
// After these letters comes a word of its own or an ending, and nothing was left out.
constexpr std::string_view kCliticLetters[] = {"s",  "st", "t",  "th", "ll",
                                               "ve", "re", "rt", "lt", "dst"};

// What an apostrophe in front may stand for. The sounds of all its letters are dropped.
constexpr std::string_view kFrontFillings[] = {"", "be", "a", "e", "h"};

// What an apostrophe at the end may stand for, by the letters before it.
struct LastFilling {
    std::string_view written;
    std::string_view letters;
    std::size_t dropped; // symbols at the end that the letters sound like
};
constexpr LastFilling kLastFillings[] = {
    {"o", "ugh", 0}, {"i", "th", 1}, {"a", "ll", 1}, {"a", "ve", 1}, {"n", "d", 1},
    {"l", "d", 1},   {"s", "t", 1},  {"p", "t", 1},  {"f", "t", 1},  {"k", "t", 1},
    {"c", "t", 1},   {"a", "t", 1},  {"th", "e", 0}, {"", "", 0},    {"", "e", 0},
};

// The vowels that letters are written for, where neighbouring ones count as one. The u of "qu" is
// part of a consonant.
std::size_t countVowels(std::string_view letters) {
    std::size_t count = 0;
    bool isAfterVowel = false;
    for (std::size_t i = 0; i < letters.size(); ++i) {
        const bool isVowel = isVowelLetter(letters[i]) && (i == 0 || letters[i - 1] != 'q');
        count += isVowel && !isAfterVowel ? 1 : 0;
        isAfterVowel = isVowel;
    }
    return count;
}

bool endsInSilentE(std::string_view letters) {
    const auto size = letters.size();
    return size >= 3 && letters.back() == 'e' && !isVowelLetter(letters[size - 2]) &&
           countVowels(letters) > 1;
}

bool isVowelAt(const Symbols& symbols, std::size_t at) {
    return at < symbols.size() && isVowel(symbols[at]);
}

// Without a vowel between them, t or d and d would sound like one.
bool holdsPastApart(const Symbols& symbols, std::size_t at) {
    const bool isBeforeD = at + 1 < symbols.size() && symbols[at + 1] == "d";
    return isBeforeD && at > 0 && (symbols[at - 1] == "t" || symbols[at - 1] == "d");
}

// "er" leaves its r where a vowel is next to it. The dictionary has "ao" for "ow" before r.
void dropEr(Symbols& symbols, std::size_t at) {
    const bool isAfterVowel = at > 0 && isVowelAt(symbols, at - 1);
    if (isAfterVowel || isVowelAt(symbols, at + 1)) {
        symbols[at] = "r";
    }
    if (isAfterVowel && symbols[at - 1] == "ow") {
        symbols[at - 1] = "ao";
    }
}

void eraseVowel(Symbols& symbols, std::size_t at) {
    constexpr std::string_view kWeak[] = {"ah", "eh", "ih", "iy", "uh", "uw"};
    const bool isWeak =
        std::find(std::begin(kWeak), std::end(kWeak), symbols[at]) != std::end(kWeak);
    if (!isWeak || holdsPastApart(symbols, at)) {
        return;
    }
    const auto place = symbols.begin() + static_cast<std::ptrdiff_t>(at);
    const bool hasGlide = at > 0 && symbols[at - 1] == "y" && !isVowelAt(symbols, at + 1);
    symbols.erase(hasGlide ? place - 1 : place, place + 1);
}

// Takes the vowel out of its word as singers do; leaves it where that cannot be sung.
void dropVowel(Symbols& symbols, std::size_t at) {
    if (!isVowelAt(symbols, at)) {
        return;
    }
    const bool isBeforeVowel = isVowelAt(symbols, at + 1);
    if (symbols[at] == "er") {
        dropEr(symbols, at);
    } else if (symbols[at] == "ow" && isBeforeVowel) {
        symbols[at] = "w";
    } else if (symbols[at] == "iy" && isBeforeVowel) {
        symbols[at] = "y";
    } else {
        eraseVowel(symbols, at);
    }
}

void append(Derivations& derived, Derivation&& more) {
    ++more.steps;
    derived.push_back(std::move(more));
}

struct Gap {
    std::string before;
    std::string after;
};

void addWithVowel(const KnownWords& known, const Gap& gap, std::string_view filling,
                  Derivations& derived) {
    const auto before = countVowels(gap.before);
    const auto sung = before + countVowels(gap.after) - (endsInSilentE(gap.after) ? 1 : 0);
    auto all = known.findAll(gap.before + std::string(filling) + gap.after);
    // Some words are listed with and without the vowel.
    std::stable_partition(all.begin(), all.end(),
                          [sung](const auto& found) { return countNuclei(found.symbols) == sung; });
    for (auto& found : all) {
        if (countNuclei(found.symbols) > std::max<std::size_t>(sung, 1)) {
            dropVowel(found.symbols, findNucleus(found.symbols, before));
        }
        append(derived, std::move(found));
    }
}

// "o'er" is "over" without its v and its second syllable.
void addWithConsonant(const KnownWords& known, const Gap& gap, std::string_view filling,
                      Derivations& derived) {
    for (auto& found : known.find(gap.before + std::string(filling) + gap.after)) {
        const auto nucleus = findNucleus(found.symbols, countVowels(gap.before));
        if (nucleus < found.symbols.size() && nucleus > 0 &&
            found.symbols[nucleus - 1] == filling) {
            found.symbols.erase(found.symbols.begin() + static_cast<std::ptrdiff_t>(nucleus) - 1);
            dropVowel(found.symbols, nucleus - 1);
            append(derived, std::move(found));
        }
    }
}

// Whether a word was found that the dictionary has, so that others need not be thought of.
bool hasListed(const Derivations& derived) {
    return std::any_of(derived.begin(), derived.end(),
                       [](const auto& found) { return found.steps == 1; });
}

Derivations fillBetweenVowels(const KnownWords& known, const Gap& gap) {
    Derivations derived;
    for (const auto filling : kConsonantFillings) {
        if (!hasListed(derived)) {
            addWithConsonant(known, gap, filling, derived);
        }
    }
    return derived;
}

Derivations fillWithin(const KnownWords& known, const Gap& gap) {
    if (isVowelLetter(gap.before.back()) && isVowelLetter(gap.after.front())) {
        return fillBetweenVowels(known, gap);
    }
    Derivations derived;
    for (const auto filling : kVowelFillings) {
        if (!hasListed(derived)) {
            addWithVowel(known, gap, filling, derived);
        }
    }
    if (endsIn(gap.before, "ou")) {
        for (auto& found : known.find(gap.before + "l" + gap.after)) {
            append(derived, std::move(found));
        }
    }
    return derived;
}

// The symbols that the letters in front sound like: all up to the first vowel, if they have one.
std::size_t countSymbolsOf(std::string_view filling, const Symbols& symbols) {
    if (hasVowelLetter(filling)) {
        return findNucleus(symbols, 0) + 1;
    }
    return filling == "h" && symbols.front() == "hh" ? 1 : 0;
}

void addWithoutFront(const KnownWords& known, const std::string& rest, std::string_view filling,
                     Derivations& derived) {
    for (auto& found : known.find(std::string(filling) + rest)) {
        const auto dropped = countSymbolsOf(filling, found.symbols);
        if (dropped < found.symbols.size()) {
            const auto begin = found.symbols.begin();
            found.symbols.erase(begin, begin + static_cast<std::ptrdiff_t>(dropped));
            append(derived, std::move(found));
        }
    }
}

Derivations fillInFront(const KnownWords& known, const std::string& rest) {
    Derivations derived;
    for (const auto filling : kFrontFillings) {
        if (!hasListed(derived)) {
            addWithoutFront(known, rest, filling, derived);
        }
    }
    return derived;
}

void addClipped(const KnownWords& known, const std::string& word, std::size_t dropped,
                Derivations& derived) {
    for (auto& found : known.find(word)) {
        if (found.symbols.size() > dropped) {
            found.symbols.resize(found.symbols.size() - dropped);
            append(derived, std::move(found));
        }
    }
}

Derivations fillAtEnd(const KnownWords& known, const std::string& written) {
    Derivations derived;
    if (written.size() >= 4 && endsIn(written, "in")) {
        for (auto& found : known.find(written + "g")) {
            if (found.symbols.back() == "ng") {
                found.symbols.back() = "n";
                append(derived, std::move(found));
            }
        }
    }
    // "roses'" is rather a plural than a superlative.
    const bool isPlural = written.size() > 3 && endsIn(written, "es");
    for (const auto& filling : kLastFillings) {
        const bool canStandHere =
            endsIn(written, filling.written) && !(isPlural && filling.letters == "t");
        if (canStandHere && !hasListed(derived)) {
            addClipped(known, written + std::string(filling.letters), filling.dropped, derived);
        }
    }
    return derived;
}

} // namespace

Derivations deriveFromElision(const KnownWords& known, const std::string& word) {
    const auto at = word.find('\'');
    if (at == std::string::npos) {
        return {};
    }
    const Gap gap{word.substr(0, at), word.substr(at + 1)};
    if (gap.before.empty()) {
        return fillInFront(known, gap.after);
    }
    if (gap.after.empty()) {
        return fillAtEnd(known, gap.before);
    }
    const bool isClitic = std::find(std::begin(kCliticLetters), std::end(kCliticLetters),
                                    gap.after) != std::end(kCliticLetters);
    return isClitic ? Derivations() : fillWithin(known, gap);
}

} // namespace wybeta::wysim::words
