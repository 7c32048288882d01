// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/session/Holds.h"

#include "wysim/words/LyricText.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>

namespace wybeta::wysim::session {

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
        const auto symbols = words::wordsBetweenBlanks(*begin);
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

bool carryHeld(const Syllables& carried, const Syllables& syllables, const Holds& holds) {
    auto next = carried.begin();
    for (std::size_t i = 0; i < syllables.size(); ++i) {
        if (static_cast<std::size_t>(carried.end() - next) < 1 + holds[i]) {
            return false;
        }
        const auto end = next + static_cast<std::ptrdiff_t>(1 + holds[i]);
        const auto syllable = syllables.begin() + static_cast<std::ptrdiff_t>(i);
        if (isHold(*next) != isHold(*syllable) || !std::all_of(next + 1, end, isHold) ||
            soundsOf(next, end) != soundsOf(syllable, syllable + 1)) {
            return false;
        }
        next = end;
    }
    return next == carried.end();
}

std::optional<std::size_t> heldOnce(const Syllables& carried, const Syllables& syllables,
                                    const std::vector<bool>& wanted) {
    if (carried.size() != syllables.size() + 1) {
        return std::nullopt;
    }
    const auto place = std::mismatch(syllables.begin(), syllables.end(), carried.begin()).first;
    const auto other = static_cast<std::size_t>(place - syllables.begin());
    // It is the first that differs, or the one before a hold that was put in.
    auto first = other == 0 ? 0 : other - 1;
    while (first > 0 && isHold(syllables[first])) {
        --first;
    }
    for (std::size_t i = first; i <= other && i < syllables.size(); ++i) {
        Holds holds(syllables.size());
        holds[i] = 1;
        if (wanted[i] && carryHeld(carried, syllables, holds)) {
            return i;
        }
    }
    return std::nullopt;
}

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

} // namespace wybeta::wysim::session
