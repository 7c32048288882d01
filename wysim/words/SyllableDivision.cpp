// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/words/SyllableDivision.h"

#include "text/Splitting.h"

#include <algorithm>
#include <iterator>

namespace wybeta::wysim::words {

namespace {

using Phonemes = std::vector<std::string_view>;

constexpr std::string_view kVowels[] = {"aa", "ae", "ah", "ao", "aw", "ay", "eh", "er",
                                        "ey", "ih", "iy", "ow", "oy", "uh", "uw"};

// The onsets that at least 30 entries of the English dictionary begin with. Divided by them, 99.4 %
// of the entries are divided as the dictionary has it; by all that begin an entry, 91.9 %.
constexpr std::string_view kOnsets[] = {
    "",     "b",     "b l",   "b r", "b y",   "ch",   "d",     "d r",   "d w",  "dh",   "f",
    "f l",  "f r",   "f y",   "g",   "g l",   "g r",  "g w",   "g y",   "hh",   "hh w", "hh y",
    "jh",   "k",     "k l",   "k r", "k w",   "k y",  "l",     "m",     "m y",  "n",    "p",
    "p l",  "p r",   "p y",   "r",   "s",     "s k",  "s k r", "s k w", "s l",  "s m",  "s n",
    "s p",  "s p l", "s p r", "s t", "s t r", "s w",  "sh",    "sh l",  "sh m", "sh n", "sh r",
    "sh w", "t",     "t r",   "t w", "th",    "th r", "v",     "w",     "y",    "z",    "zh"};

bool isOnset(Phonemes::const_iterator begin, Phonemes::const_iterator end) {
    const auto onset = text::joinText({begin, end}, " ");
    return std::binary_search(std::begin(kOnsets), std::end(kOnsets), onset);
}

// The first of the phonemes that is in the onset of the vowel, which is the end of the range.
Phonemes::const_iterator onsetOf(Phonemes::const_iterator begin, Phonemes::const_iterator vowel) {
    while (!isOnset(begin, vowel)) {
        ++begin;
    }
    return begin;
}

} // namespace

bool isVowel(std::string_view phoneme) {
    return std::binary_search(std::begin(kVowels), std::end(kVowels), phoneme);
}

std::vector<std::string> divideIntoSyllables(const Phonemes& phonemes) {
    std::vector<std::string> syllables;
    auto begin = phonemes.begin();
    auto vowel = std::find_if(begin, phonemes.end(), isVowel);
    while (vowel != phonemes.end()) {
        const auto next = std::find_if(vowel + 1, phonemes.end(), isVowel);
        const auto end = next != phonemes.end() ? onsetOf(vowel + 1, next) : next;
        syllables.push_back(text::joinText({begin, end}, " "));
        begin = end;
        vowel = next;
    }
    return syllables;
}

} // namespace wybeta::wysim::words
