// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/words/PlainSpelling.h"

#include "wysim/words/Letters.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace wybeta::wysim::words {

namespace {

constexpr std::size_t kLongestWord = 64;

constexpr std::u32string_view kApostrophes = U"'`´ʼ‘’′＇";
constexpr std::u32string_view kDashes = U"-\u00AD‐‑‒–—―−﹘﹣－";

// The accented small letters of a plain one; capitals are made small before.
struct Accented {
    std::string_view plain;
    std::u32string_view letters;
};
constexpr Accented kAccented[] = {
    {"a", U"àáâãäåāăą"},  {"ae", U"æ"},      {"c", U"çćĉċč"}, {"d", U"ďđð"},  {"e", U"èéêëēĕėęě"},
    {"g", U"ĝğġģ"},       {"i", U"ìíîïĩīĭ"}, {"l", U"ĺļľł"},  {"n", U"ñńņň"}, {"o", U"òóôõöøōŏő"},
    {"oe", U"œ"},         {"r", U"ŕŗř"},     {"s", U"śŝşšſ"}, {"ss", U"ß"},   {"t", U"ţťŧ"},
    {"u", U"ùúûüũūŭůűų"}, {"y", U"ýÿŷ"},     {"z", U"źżž"},   {"fi", U"ﬁ"},   {"fl", U"ﬂ"},
};

bool isCombiningAccent(char32_t character) {
    return character >= 0x0300 && character <= 0x036F;
}

// The small letter of a capital one in Latin-1 and Latin Extended-A.
char32_t small(char32_t character) {
    const bool isLatin1 = character >= 0xC0 && character <= 0xDE && character != 0xD7;
    if ((character >= U'A' && character <= U'Z') || isLatin1) {
        return character + 0x20;
    }
    if (character == U'Ÿ') {
        return U'ÿ';
    }
    // Capitals are even there, but odd in two ranges.
    const bool isOddRange = (character >= 0x0139 && character <= 0x0148) ||
                            (character >= 0x0179 && character <= 0x017E);
    const bool isExtended = character >= 0x0100 && character <= 0x017E && character != 0x0138;
    return isExtended && (character % 2 == 1) == isOddRange ? character + 1 : character;
}

// Empty for a character that no word is written with.
std::string_view plainLettersOf(char32_t character) {
    constexpr std::string_view kLetters = "abcdefghijklmnopqrstuvwxyz";
    if (character >= U'a' && character <= U'z') {
        return kLetters.substr(character - U'a', 1);
    }
    const auto* const found =
        std::find_if(std::begin(kAccented), std::end(kAccented),
                     [character](const auto& row) { return isOneOf(character, row.letters); });
    return found != std::end(kAccented) ? found->plain : std::string_view();
}

bool endsInAccentedEd(std::u32string_view word) {
    constexpr std::u32string_view kAccentedEd[] = {
        U"èd", U"éd", U"êd", U"ëd", U"e\u0300d", U"e\u0301d", U"e\u0302d", U"e\u0308d"};
    return std::any_of(
        std::begin(kAccentedEd), std::end(kAccentedEd), [word](std::u32string_view end) {
            return word.size() > end.size() && word.substr(word.size() - end.size()) == end;
        });
}

std::optional<std::string> plainCharactersOf(std::u32string_view word) {
    std::string plain;
    for (const char32_t character : word) {
        const auto letters = plainLettersOf(character);
        if (isOneOf(character, kApostrophes)) {
            plain += '\'';
        } else if (isOneOf(character, kDashes)) {
            plain += '-';
        } else if (!letters.empty()) {
            plain += letters;
        } else if (plain.empty() || !isCombiningAccent(character)) {
            return std::nullopt;
        }
    }
    return plain;
}

bool isLetter(char character) {
    return character >= 'a' && character <= 'z';
}

} // namespace

std::optional<std::string> plainSpellingOf(std::u32string_view word) {
    if (word.size() > kLongestWord) {
        return std::nullopt;
    }
    std::u32string inSmallLetters(word);
    std::transform(word.begin(), word.end(), inSmallLetters.begin(), small);
    auto plain = plainCharactersOf(inSmallLetters);
    if (!plain || std::none_of(plain->begin(), plain->end(), isLetter)) {
        return std::nullopt;
    }
    if (endsInAccentedEd(inSmallLetters)) {
        (*plain)[plain->size() - 2] = kSungE;
    }
    return plain;
}

} // namespace wybeta::wysim::words
