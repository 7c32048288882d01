// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "dictionary/PronunciationDictionary.h"
#include "wysim/words/Sounds.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace wybeta::wysim::words {

// How a word sounds, found by way of words that the dictionary has.
struct Derivation {
    Symbols symbols;
    std::vector<std::string> words; // of the dictionary, in the order of their sounds
    std::size_t steps = 0;          // rules that lead from them to the word, doubtful ones twice
};

// The likelier first.
using Derivations = std::vector<Derivation>;

// The words of a dictionary and those that the rules of English spelling derive from them. All
// words are in plain spelling (see PlainSpelling.h).
class KnownWords {
public:
    // Derivations of one word that are kept, and the steps that each may have.
    static constexpr std::size_t kMost = 5;
    static constexpr std::size_t kMostSteps = 3;

    // The dictionary has to outlive this.
    explicit KnownWords(const dictionary::PronunciationDictionary& dictionary)
        : KnownWords(dictionary, kMostSteps) {}

    // The word's first pronunciation in the dictionary, which has at least one symbol; if it has
    // none, what the rules derive.
    Derivations find(const std::string& word) const;

    // As find(), with the dictionary's alternative pronunciations of the word.
    Derivations findAll(const std::string& word) const;

private:
    KnownWords(const dictionary::PronunciationDictionary& dictionary, std::size_t stepsLeft)
        : dictionary_(dictionary), stepsLeft_(stepsLeft) {}

    void addListed(const std::string& word, Derivations& found) const;
    Derivations derive(const std::string& word) const;

    const dictionary::PronunciationDictionary& dictionary_;
    std::size_t stepsLeft_;
};

// A rule that derives a word from other words. It finds them in `known` and gives the derivations
// with their steps counted, the likelier first; none for a word that it is not about.
using Rule = Derivations (*)(const KnownWords& known, const std::string& word);

// Puts those of fewer steps first, and keeps only the first of those that sound alike, and no more
// than KnownWords::kMost.
void keepBest(Derivations& derivations);

} // namespace wybeta::wysim::words
