// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/words/KnownWords.h"

#include "wysim/words/Beginnings.h"
#include "wysim/words/Elisions.h"
#include "wysim/words/Endings.h"
#include "wysim/words/SpellingVariants.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace wybeta::wysim::words {

namespace {

// Of derivations with as many steps, those of the rule that comes first here count as likelier.
constexpr Rule kRules[] = {
    deriveFromVariants, deriveFromElision, deriveFromClitics,    deriveFromInflection,
    deriveFromSuffix,   deriveFromPrefix,  deriveFromOtherForms,
};

} // namespace

Derivations KnownWords::find(const std::string& word) const {
    Derivations found;
    addListed(word, found);
    return found.empty() ? derive(word) : found;
}

Derivations KnownWords::findAll(const std::string& word) const {
    auto found = find(word);
    for (const auto* const suffix : {"(1)", "(2)", "(3)"}) {
        addListed(word + suffix, found);
    }
    return found;
}

void KnownWords::addListed(const std::string& word, Derivations& found) const {
    const auto entry = dictionary_.find(word);
    auto symbols = entry ? symbolsOf(entry->phonemes) : Symbols();
    if (!symbols.empty()) {
        found.push_back({std::move(symbols), {word}, 0});
    }
}

Derivations KnownWords::derive(const std::string& word) const {
    Derivations derived;
    if (stepsLeft_ == 0) {
        return derived;
    }
    const KnownWords others(dictionary_, stepsLeft_ - 1);
    for (const auto rule : kRules) {
        auto more = rule(others, word);
        std::move(more.begin(), more.end(), std::back_inserter(derived));
    }
    keepBest(derived);
    return derived;
}

void keepBest(Derivations& derivations) {
    std::stable_sort(derivations.begin(), derivations.end(),
                     [](const auto& one, const auto& other) { return one.steps < other.steps; });
    Derivations best;
    for (auto& derivation : derivations) {
        const bool isNew = std::none_of(best.begin(), best.end(), [&](const auto& other) {
            return other.symbols == derivation.symbols;
        });
        if (isNew && derivation.steps <= KnownWords::kMostSteps &&
            best.size() < KnownWords::kMost) {
            best.push_back(std::move(derivation));
        }
    }
    derivations = std::move(best);
}

} // namespace wybeta::wysim::words
