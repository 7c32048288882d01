// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wysim/laying/TextToLay.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace wybeta::wysim::laying {

// A syllable of one way to sing a word.
struct LatticeSyllable {
    std::uint32_t word; // among the sung words
    std::uint32_t way;
    std::uint32_t number; // in the way, from 0
    bool isLast;          // of the word
    std::optional<double> joinCost;
};

// A word that is sung.
struct LatticeWord {
    const WordToLay* word;
    std::size_t line;        // an index
    std::size_t indexInLine; // among all words of the line
    bool beginsLine;         // as the first sung word
    bool endsLine;
    std::vector<std::uint32_t> begins; // the first syllable of each of its ways
    std::size_t leftInLine;            // how many syllables come after it, as they are usually sung
    std::size_t leftInText;
    std::size_t
        nextLine; // the first sung word of the next line; one past the last if there is none
};

// All syllables of a text in all ways in which they may be sung. Those of one way follow each
// other.
class SyllableLattice {
public:
    // The lines have to outlive this.
    explicit SyllableLattice(const std::vector<LineToLay>& lines);

    const std::vector<LatticeSyllable>& syllables() const { return syllables_; }
    const std::vector<LatticeWord>& words() const { return words_; }

private:
    void addLine(const LineToLay& line, std::size_t index);
    void addSyllables(LatticeWord& word);
    void countWhatIsLeft();

    std::vector<LatticeSyllable> syllables_;
    std::vector<LatticeWord> words_;
};

} // namespace wybeta::wysim::laying
