// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/laying/SyllableLattice.h"

namespace wybeta::wysim::laying {

namespace {

std::size_t usualSyllables(const LatticeWord& word) {
    return word.word->ways.front().syllables.size();
}

} // namespace

SyllableLattice::SyllableLattice(const std::vector<LineToLay>& lines) {
    for (std::size_t index = 0; index < lines.size(); ++index) {
        addLine(lines[index], index);
    }
    countWhatIsLeft();
}

void SyllableLattice::addLine(const LineToLay& line, std::size_t index) {
    const auto first = words_.size();
    for (std::size_t i = 0; i < line.words.size(); ++i) {
        const auto& word = line.words[i];
        if (!word.ways.empty()) {
            words_.push_back({&word, index, i, words_.size() == first, false, {}, 0, 0, 0});
            addSyllables(words_.back());
        }
    }
    if (words_.size() > first) {
        words_.back().endsLine = true;
    }
}

void SyllableLattice::addSyllables(LatticeWord& word) {
    const auto index = static_cast<std::uint32_t>(words_.size() - 1);
    const auto& ways = word.word->ways;
    for (std::uint32_t way = 0; way < ways.size(); ++way) {
        word.begins.push_back(static_cast<std::uint32_t>(syllables_.size()));
        const auto count = ways[way].syllables.size();
        for (std::uint32_t i = 0; i < count; ++i) {
            syllables_.push_back({index, way, i, i + 1 == count, ways[way].joinCosts[i]});
        }
    }
}

void SyllableLattice::countWhatIsLeft() {
    std::size_t leftInLine = 0;
    std::size_t leftInText = 0;
    std::size_t nextLine = words_.size();
    for (auto i = words_.size(); i-- > 0;) {
        auto& word = words_[i];
        leftInLine = word.endsLine ? 0 : leftInLine;
        word.leftInLine = leftInLine;
        word.leftInText = leftInText;
        word.nextLine = nextLine;
        leftInLine += usualSyllables(word);
        leftInText += usualSyllables(word);
        nextLine = word.beginsLine ? i : nextLine;
    }
}

} // namespace wybeta::wysim::laying
