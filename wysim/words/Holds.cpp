// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/words/Holds.h"

#include "wysim/words/LyricText.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>

namespace wybeta::wysim::words {

namespace {

constexpr auto kHold = "-";

bool isHold(std::string_view syllable) {
    return !syllable.empty() && syllable.front() == '-';
}

// The phonemes of syllables without what holds them.
template <class Iterator>
std::vector<std::string> soundsOf(Iterator begin, Iterator end) {
    std::vector<std::string> sounds;
    for (; begin != end; ++begin) {
        const auto symbols = wordsBetweenBlanks(*begin);
        std::copy_if(symbols.begin(), symbols.end(), std::back_inserter(sounds),
                     [](const auto& symbol) { return symbol != kHold; });
    }
    return sounds;
}

// Where the holds that are syllables of their own, such as that of "ー", are taken together with
// the syllable before them: how many syllables each begins.
std::vector<std::size_t> groupsOf(const Syllables& syllables) {
    std::vector<std::size_t> sizes;
    for (const auto& syllable : syllables) {
        if (sizes.empty() || !isHold(syllable)) {
            sizes.push_back(0);
        }
        ++sizes.back();
    }
    return sizes;
}

} // namespace

std::optional<Holds> holdsFor(const Syllables& syllables,
                              const std::vector<std::size_t>& notesOfSyllables) {
    auto groups = groupsOf(syllables);
    if (notesOfSyllables.size() == syllables.size()) {
        groups.assign(syllables.size(), 1);
    }
    if (notesOfSyllables.empty() || notesOfSyllables.size() != groups.size()) {
        return std::nullopt;
    }
    Holds holds;
    for (std::size_t i = 0; i < groups.size(); ++i) {
        if (notesOfSyllables[i] < groups[i]) {
            return std::nullopt;
        }
        holds.resize(holds.size() + groups[i]);
        holds.back() = notesOfSyllables[i] - groups[i];
    }
    return holds;
}

Syllables withHolds(const Syllables& syllables, const Holds& holds) {
    Syllables carried;
    for (std::size_t i = 0; i < syllables.size(); ++i) {
        carried.push_back(syllables[i]);
        carried.insert(carried.end(), holds[i], kHold);
    }
    return carried;
}

Syllables spread(const Syllables& syllables, std::size_t notes) {
    auto carried = syllables;
    if (notes >= syllables.size()) {
        carried.resize(notes, kHold);
        return carried;
    }
    carried.resize(notes);
    const auto rest =
        soundsOf(syllables.begin() + static_cast<std::ptrdiff_t>(notes), syllables.end());
    for (const auto& sound : rest) {
        carried.back() += " " + sound;
    }
    return carried;
}

} // namespace wybeta::wysim::words
