// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/words/LetterToSound.h"

#include "wysim/words/Sounds.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <optional>

// The tables of Flite's rules, which none of its headers declares.
extern "C" {
extern const char* const cmu_lts_phone_table[];
extern const unsigned short cmu_lts_letter_index[];
extern const unsigned char cmu_lts_model[];
}

namespace wybeta::wysim::words {

namespace {

// The letters of a word, without its apostrophes.
struct Spelling {
    std::string letters;
    std::vector<bool> followsApostrophe; // for each letter
};

struct Sound {
    std::string_view phoneme;
    std::size_t letter; // the index of the one that it is the sound of
};

using Sounds = std::vector<Sound>;

// What the rules look at on each side of a letter: so many characters, of which the first one that
// is no longer in the word is '#' and the others are '0'.
constexpr std::size_t kContext = 4;
constexpr std::string_view kBefore = "000#";
constexpr std::string_view kAfter = "#000";

std::optional<Spelling> spellingOf(std::string_view word) {
    Spelling spelling;
    bool followsApostrophe = false;
    for (const char character : word) {
        const bool isUpperCase = character >= 'A' && character <= 'Z';
        const char letter = isUpperCase ? static_cast<char>(character - 'A' + 'a') : character;
        if (letter >= 'a' && letter <= 'z') {
            spelling.letters += letter;
            spelling.followsApostrophe.push_back(followsApostrophe);
        } else if (letter != '\'') {
            return std::nullopt;
        }
        followsApostrophe = letter == '\'' && !spelling.letters.empty();
    }
    return spelling;
}

// What the rules give for the letter at an index of a word that has its context around it: no
// phoneme, one, or two with a hyphen between them.
//
// The rules of a letter are a binary tree. A node has six bytes: which character of the context it
// asks for, the character that this is compared with, and the numbers of the nodes to go on with,
// low byte first, if they are equal and if not. A leaf begins with 255 and the number of its sound.
std::string_view phonesAt(std::string_view inContext, std::size_t index) {
    constexpr unsigned char kLeaf = 255;
    const auto nodeAt = [](int number) { return cmu_lts_model + std::ptrdiff_t{6} * number; };
    const auto* node = nodeAt(cmu_lts_letter_index[inContext[index] - 'a']);
    while (node[0] != kLeaf) {
        // The letter itself is not part of its context.
        const auto asked = index - kContext + node[0] + (node[0] < kContext ? 0 : 1);
        const bool isEqual = inContext[asked] == static_cast<char>(node[1]);
        const auto* const next = node + (isEqual ? 2 : 4);
        node = nodeAt(next[0] | next[1] << 8);
    }
    const std::string_view phones = cmu_lts_phone_table[node[1]];
    return phones == "epsilon" ? std::string_view() : phones;
}

// The symbol of the dictionary for a phone of the rules, "ey1" or "t".
std::string_view symbolOf(std::string_view phone) {
    const auto symbol = phone.substr(0, phone.find_first_of("012"));
    return symbol == "ax" ? "ah" : symbol;
}

Sounds soundsByRules(const std::string& letters) {
    const std::string inContext = std::string(kBefore) + letters + std::string(kAfter);
    Sounds sounds;
    for (std::size_t letter = 0; letter < letters.size(); ++letter) {
        auto phones = phonesAt(inContext, letter + kContext);
        while (!phones.empty()) {
            const auto phone = phones.substr(0, phones.find('-'));
            sounds.push_back({symbolOf(phone), letter});
            phones.remove_prefix(std::min(phone.size() + 1, phones.size()));
        }
    }
    return sounds;
}

bool isLaxVowel(std::string_view phoneme) {
    constexpr std::string_view kLaxVowels[] = {"aa", "ae", "ao", "eh", "ih", "uh"};
    return std::binary_search(std::begin(kLaxVowels), std::end(kLaxVowels), phoneme);
}

// Whether the letter at an index and the next one are usually one vowel.
bool isDigraph(const std::string& letters, std::size_t index) {
    const auto two = std::string_view(letters).substr(index, 2);
    return two == "ae" || two == "ey" || two == "ou";
}

// Whether the "er" of a letter is "r": where an apostrophe replaces its vowel ("glitt'ring"), and
// where the vowel before it is lax, after which English has no other vowel ("thorp").
bool isWithoutVowel(const Sound& sound, const Sound& before, const Spelling& spelling) {
    return sound.phoneme == "er" && spelling.letters[sound.letter] == 'r' &&
           (spelling.followsApostrophe[sound.letter] || isLaxVowel(before.phoneme));
}

// The sounds without the vowels that the rules add because they look at one letter at a time.
Sounds withoutNeedlessVowels(const Sounds& sounds, const Spelling& spelling) {
    Sounds kept;
    for (auto sound : sounds) {
        const auto before = kept.empty() ? Sound{"", 0} : kept.back();
        if (isWithoutVowel(sound, before, spelling)) {
            sound.phoneme = "r";
        }
        const bool isInHiatus = isVowel(before.phoneme) && isVowel(sound.phoneme);
        if (!isInHiatus || before.letter + 1 != sound.letter ||
            !isDigraph(spelling.letters, before.letter)) {
            kept.push_back(sound);
        }
    }
    return kept;
}

// How sonorous a phoneme is: 0 for none, 1 for an obstruent, 6 for a vowel.
int sonorityOf(std::string_view phoneme) {
    if (phoneme.empty()) {
        return 0;
    }
    if (phoneme == "w" || phoneme == "y") {
        return 5;
    }
    if (phoneme == "r" || phoneme == "l") {
        return phoneme == "r" ? 4 : 3;
    }
    if (phoneme == "m" || phoneme == "n" || phoneme == "ng") {
        return 2;
    }
    return isVowel(phoneme) ? 6 : 1;
}

// Adds a sonorant as the nucleus of a syllable, for which the dictionary writes a vowel.
void addSyllabic(Sounds& sounds, const Sound& sonorant) {
    const auto phoneme = sonorant.phoneme;
    if (phoneme == "r" || phoneme == "w" || phoneme == "y") {
        const auto* const vowel = phoneme == "r" ? "er" : phoneme == "w" ? "uw" : "iy";
        sounds.push_back({vowel, sonorant.letter});
    } else {
        sounds.push_back({"ah", sonorant.letter});
        sounds.push_back(sonorant);
    }
}

// The sounds with the vowels that the rules leave out: a sonorant between less sonorous sounds is
// sung as a syllable ("dishonour"), unless an apostrophe replaces its vowel ("heav'n").
Sounds withSyllabicSonorants(const Sounds& sounds, const Spelling& spelling) {
    Sounds sung;
    for (std::size_t i = 0; i < sounds.size(); ++i) {
        const auto sonority = sonorityOf(sounds[i].phoneme);
        const auto before = i > 0 ? sonorityOf(sounds[i - 1].phoneme) : 0;
        const auto after = i + 1 < sounds.size() ? sonorityOf(sounds[i + 1].phoneme) : 0;
        const bool isSonorant = sonority > 1 && !isVowel(sounds[i].phoneme);
        if (isSonorant && before < sonority && after < sonority &&
            !spelling.followsApostrophe[sounds[i].letter]) {
            addSyllabic(sung, sounds[i]);
        } else {
            sung.push_back(sounds[i]);
        }
    }
    return sung;
}

Symbols symbolsByRules(const Spelling& spelling) {
    const auto sounds = withSyllabicSonorants(
        withoutNeedlessVowels(soundsByRules(spelling.letters), spelling), spelling);
    Symbols symbols;
    for (const auto& sound : sounds) {
        symbols.emplace_back(sound.phoneme);
    }
    return symbols;
}

// Erases each "gh".
void eraseSilentLetters(Spelling& spelling) {
    for (auto at = spelling.letters.find("gh"); at != std::string::npos;
         at = spelling.letters.find("gh", at)) {
        const auto begin = spelling.followsApostrophe.begin() + static_cast<std::ptrdiff_t>(at);
        spelling.followsApostrophe.erase(begin, begin + 2);
        spelling.letters.erase(at, 2);
    }
}

} // namespace

// Flite's rules alone give 93.7 % of the dictionary's words their number of syllables; without the
// needless vowels it is 94.3 %, and with the syllabic sonorants 95.2 %. They give a few words no
// vowel before a silent "gh", such as "heigh".
std::vector<std::string> guessSyllables(std::string_view word) {
    if (word.size() > kLongestGuessed) {
        return {};
    }
    auto spelling = spellingOf(word);
    if (!spelling) {
        return {};
    }
    auto symbols = symbolsByRules(*spelling);
    if (countNuclei(symbols) == 0) {
        eraseSilentLetters(*spelling);
        symbols = symbolsByRules(*spelling);
    }
    return countNuclei(symbols) == 0 ? Symbols() : dividedIntoSyllables(symbols);
}

} // namespace wybeta::wysim::words
