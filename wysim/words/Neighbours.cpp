// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/words/Neighbours.h"

#include "wysim/words/CharacterKinds.h"
#include "wysim/words/LyricText.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace wybeta::wysim::words {

namespace {

constexpr std::size_t kShortest = 3;
constexpr std::size_t kLongest = 32;

// All texts that are one slip of the keyboard away, the likelier first: two letters in the wrong
// order, a forgotten apostrophe, one letter too many, one too few, another one.
std::vector<std::u32string> neighboursOf(const std::u32string& word) {
    constexpr std::u32string_view kLetters = U"etaoinshrdlucmfwypvbgkjqxz";
    std::vector<std::u32string> neighbours;
    const auto addWith = [&](std::size_t place, std::size_t replaced, std::u32string_view letters) {
        for (const char32_t letter : letters) {
            neighbours.push_back(word);
            neighbours.back().replace(place, replaced, 1, letter);
        }
    };
    for (std::size_t i = 0; i + 1 < word.size(); ++i) {
        neighbours.push_back(word);
        std::swap(neighbours.back()[i], neighbours.back()[i + 1]);
    }
    for (std::size_t i = 0; i <= word.size(); ++i) {
        addWith(i, 0, U"'");
    }
    for (std::size_t i = 0; i < word.size(); ++i) {
        neighbours.push_back(word);
        neighbours.back().erase(i, 1);
    }
    for (std::size_t i = 0; i <= word.size(); ++i) {
        addWith(i, 0, kLetters);
    }
    for (std::size_t i = 0; i < word.size(); ++i) {
        addWith(i, 1, kLetters);
    }
    return neighbours;
}

bool isOfLetters(const std::u32string& word) {
    return std::all_of(word.begin(), word.end(), [](char32_t character) {
        return isAsciiLetter(character) || character == U'\'' || !isAscii(character);
    });
}

} // namespace

std::vector<std::u32string> knownNeighbours(std::u32string word, const LyricReader& reader,
                                            std::size_t most) {
    word.erase(std::remove(word.begin(), word.end(), U'-'), word.end());
    std::vector<std::u32string> found;
    if (!isOfLetters(word) || word.size() < kShortest || word.size() > kLongest) {
        return found;
    }
    for (auto& neighbour : neighboursOf(word)) {
        if (found.size() == most) {
            break;
        }
        if (reader.hasWord(utf8Of(neighbour)) &&
            std::find(found.begin(), found.end(), neighbour) == found.end()) {
            found.push_back(std::move(neighbour));
        }
    }
    return found;
}

} // namespace wybeta::wysim::words
