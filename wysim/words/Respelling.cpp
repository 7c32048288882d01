// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/words/Respelling.h"

#include "text/Splitting.h"
#include "wysim/words/KnownWords.h"
#include "wysim/words/PlainSpelling.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace wybeta::wysim::words {

namespace {

std::string withoutHyphens(std::string word) {
    word.erase(std::remove(word.begin(), word.end(), '-'), word.end());
    return word;
}

// A word whose parts between hyphens are all known: "good-night".
Derivations joinedAtHyphens(const KnownWords& known, const std::string& word) {
    Derivation joined;
    for (const auto part : text::splitText(word, "-")) {
        auto found = known.find(std::string(part));
        if (found.empty()) {
            return {};
        }
        auto& best = found.front();
        std::move(best.symbols.begin(), best.symbols.end(), std::back_inserter(joined.symbols));
        std::move(best.words.begin(), best.words.end(), std::back_inserter(joined.words));
        joined.steps += best.steps;
    }
    ++joined.steps;
    return {std::move(joined)};
}

Derivations derivationsOf(const KnownWords& known, const std::string& plain) {
    auto whole = known.find(withoutHyphens(plain));
    const bool isListed = !whole.empty() && whole.front().steps == 0;
    if (isListed || plain.find('-') == std::string::npos) {
        return whole;
    }
    auto derived = joinedAtHyphens(known, plain);
    std::move(whole.begin(), whole.end(), std::back_inserter(derived));
    keepBest(derived);
    return derived;
}

} // namespace

std::vector<Respelling> respellingsOf(std::u32string_view word,
                                      const dictionary::PronunciationDictionary& dictionary) {
    std::vector<Respelling> respellings;
    const auto plain = plainSpellingOf(word);
    if (!plain) {
        return respellings;
    }
    for (auto& derived : derivationsOf(KnownWords(dictionary), *plain)) {
        // The dictionary has words without a vowel, such as "hmm" and "'ll".
        if (countNuclei(derived.symbols) > 0) {
            respellings.push_back(
                {dividedIntoSyllables(derived.symbols), std::move(derived.words)});
        }
    }
    return respellings;
}

} // namespace wybeta::wysim::words
