// SPDX-License-Identifier: GPL-3.0-or-later
//
// The input is a word. Its guess has to consist of the symbols of the English dictionary, with one
// vowel in each syllable; a word with anything but letters and apostrophes has none.
#include "wysim/words/LetterToSound.h"

#include "fuzz/Check.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <set>
#include <sstream>
#include <string>
#include <string_view>

namespace wybeta::fuzz {

namespace {

const std::set<std::string> kVowels = {"aa", "ae", "ah", "ao", "aw", "ay", "eh", "er",
                                       "ey", "ih", "iy", "ow", "oy", "uh", "uw"};
const std::set<std::string> kConsonants = {"b",  "ch", "d",  "dh", "f",  "g", "hh", "jh",
                                           "k",  "l",  "m",  "n",  "ng", "p", "r",  "s",
                                           "sh", "t",  "th", "v",  "w",  "y", "z",  "zh"};

void checkSyllable(const std::string& syllable) {
    std::istringstream symbols(syllable);
    std::string joined;
    std::size_t vowels = 0;
    for (std::string symbol; symbols >> symbol; joined += (joined.empty() ? "" : " ") + symbol) {
        vowels += kVowels.count(symbol);
        check(kVowels.count(symbol) + kConsonants.count(symbol) == 1, "a symbol that is none");
    }
    check(vowels == 1, "not one vowel in a syllable");
    checkEqual(syllable, joined);
}

bool mayBeGuessed(std::string_view word) {
    constexpr std::string_view kCharacters =
        "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ'";
    return word.size() <= 64 && word.find_first_not_of(kCharacters) == std::string_view::npos;
}

} // namespace

} // namespace wybeta::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace wybeta::fuzz;
    const auto word = textOf(data, size);
    const auto syllables = wybeta::wysim::words::guessSyllables(word);
    std::for_each(syllables.begin(), syllables.end(), checkSyllable);
    check(syllables.empty() || mayBeGuessed(word), "a guess of what is no word");
    return 0;
}
