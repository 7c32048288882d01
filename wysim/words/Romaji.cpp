// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/words/Romaji.h"

#include "wysim/words/Letters.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>

namespace wybeta::wysim::words {

namespace {

constexpr std::size_t kShortestRomaji = 2;
constexpr std::size_t kLongestRomaji = 64;

// Letters that a mora begins with, and its kana with each vowel; an empty one is not written so.
struct Row {
    std::u32string_view onset;
    std::array<std::u32string_view, 5> kana; // with a, i, u, e, o
};
constexpr std::u32string_view kVowelLetters = U"aiueo";

// clang-format off: laid out like a syllabary chart.
constexpr Row kRows[] = {
    {U"", {U"あ", U"い", U"う", U"え", U"お"}},
    {U"k", {U"か", U"き", U"く", U"け", U"こ"}},
    {U"s", {U"さ", U"し", U"す", U"せ", U"そ"}},
    {U"t", {U"た", U"ち", U"つ", U"て", U"と"}},
    {U"n", {U"な", U"に", U"ぬ", U"ね", U"の"}},
    {U"h", {U"は", U"ひ", U"ふ", U"へ", U"ほ"}},
    {U"m", {U"ま", U"み", U"む", U"め", U"も"}},
    {U"y", {U"や", U"", U"ゆ", U"いぇ", U"よ"}},
    {U"r", {U"ら", U"り", U"る", U"れ", U"ろ"}},
    {U"w", {U"わ", U"うぃ", U"", U"うぇ", U"を"}},
    {U"g", {U"が", U"ぎ", U"ぐ", U"げ", U"ご"}},
    {U"z", {U"ざ", U"じ", U"ず", U"ぜ", U"ぞ"}},
    {U"d", {U"だ", U"ぢ", U"づ", U"で", U"ど"}},
    {U"b", {U"ば", U"び", U"ぶ", U"べ", U"ぼ"}},
    {U"p", {U"ぱ", U"ぴ", U"ぷ", U"ぺ", U"ぽ"}},
    {U"f", {U"ふぁ", U"ふぃ", U"ふ", U"ふぇ", U"ふぉ"}},
    {U"v", {U"ゔぁ", U"ゔぃ", U"ゔ", U"ゔぇ", U"ゔぉ"}},
    {U"j", {U"じゃ", U"じ", U"じゅ", U"じぇ", U"じょ"}},
    {U"sh", {U"しゃ", U"し", U"しゅ", U"しぇ", U"しょ"}},
    {U"ch", {U"ちゃ", U"ち", U"ちゅ", U"ちぇ", U"ちょ"}},
    {U"ts", {U"つぁ", U"つぃ", U"つ", U"つぇ", U"つぉ"}},
    {U"dz", {U"", U"ぢ", U"づ", U"", U""}},
    {U"ky", {U"きゃ", U"", U"きゅ", U"きぇ", U"きょ"}},
    {U"sy", {U"しゃ", U"", U"しゅ", U"しぇ", U"しょ"}},
    {U"ty", {U"ちゃ", U"", U"ちゅ", U"ちぇ", U"ちょ"}},
    {U"ny", {U"にゃ", U"", U"にゅ", U"にぇ", U"にょ"}},
    {U"hy", {U"ひゃ", U"", U"ひゅ", U"ひぇ", U"ひょ"}},
    {U"my", {U"みゃ", U"", U"みゅ", U"みぇ", U"みょ"}},
    {U"ry", {U"りゃ", U"", U"りゅ", U"りぇ", U"りょ"}},
    {U"gy", {U"ぎゃ", U"", U"ぎゅ", U"ぎぇ", U"ぎょ"}},
    {U"zy", {U"じゃ", U"", U"じゅ", U"じぇ", U"じょ"}},
    {U"jy", {U"じゃ", U"", U"じゅ", U"じぇ", U"じょ"}},
    {U"dy", {U"ぢゃ", U"", U"ぢゅ", U"ぢぇ", U"ぢょ"}},
    {U"by", {U"びゃ", U"", U"びゅ", U"びぇ", U"びょ"}},
    {U"py", {U"ぴゃ", U"", U"ぴゅ", U"ぴぇ", U"ぴょ"}},
    {U"kw", {U"くぁ", U"くぃ", U"", U"くぇ", U"くぉ"}},
    {U"gw", {U"ぐぁ", U"ぐぃ", U"", U"ぐぇ", U"ぐぉ"}},
};
// clang-format on

// What the word is read as: small letters, an apostrophe after an n that stands alone, and U'-' for
// each long vowel.
struct Spelled {
    std::u32string_view written;
    std::u32string_view read;
};
constexpr Spelled kSpelled[] = {
    {U"āâĀÂ", U"a-"}, {U"īîĪÎ", U"i-"}, {U"ūûŪÛ", U"u-"},
    {U"ēêĒÊ", U"e-"}, {U"ōôŌÔ", U"o-"}, {U"\u0304\u0302-‐‑ー", U"-"},
    {U"'’ʼ＇", U"'"},
};

void appendRead(std::u32string& letters, char32_t written) {
    if (written >= U'A' && written <= U'Z') {
        written += U'a' - U'A';
    }
    const auto* const found =
        std::find_if(std::begin(kSpelled), std::end(kSpelled),
                     [written](const auto& row) { return isOneOf(written, row.written); });
    if (found != std::end(kSpelled)) {
        letters += found->read;
    } else {
        letters += written;
    }
}

bool isAt(std::u32string_view letters, std::u32string_view begin) {
    return letters.substr(0, begin.size()) == begin;
}

// Takes a mora of a vowel, with or without consonants, from the front of the letters.
std::u32string_view takeVowelMora(std::u32string_view& letters) {
    for (const auto& row : kRows) {
        const auto rest = letters.substr(std::min(letters.size(), row.onset.size()));
        const auto vowel =
            rest.empty() ? std::u32string_view::npos : kVowelLetters.find(rest.front());
        if (isAt(letters, row.onset) && vowel != std::u32string_view::npos) {
            letters = rest.substr(1);
            return row.kana[vowel];
        }
    }
    return {};
}

// The letters of an ん at the front: an m before m, b and p, an n before consonants and at the end,
// and with an apostrophe or hyphen after it anywhere. Where two n are followed by a vowel, the
// second begins a mora; elsewhere they are one ん.
std::size_t countLettersOfN(std::u32string_view letters) {
    const char32_t next = letters.size() > 1 ? letters[1] : 0;
    if (letters.front() == U'm') {
        return next == U'b' || next == U'p' || next == U'm' ? 1 : 0;
    }
    if (letters.front() != U'n' || isOneOf(next, U"aiueoy")) {
        return 0;
    }
    const char32_t afterNext = letters.size() > 2 ? letters[2] : 0;
    const bool isPair = next == U'n' && !isOneOf(afterNext, U"aiueoy");
    return next == U'\'' || next == U'-' || isPair ? 2 : 1;
}

bool isDoubled(std::u32string_view letters) {
    constexpr std::u32string_view kDoubling = U"kstpcgzdbfj";
    return letters.size() > 2 && isOneOf(letters[0], kDoubling) &&
           (letters[0] == letters[1] || isAt(letters, U"tch"));
}

// Takes one kana from the front of the letters; empty if no mora begins with them.
std::u32string_view takeKana(std::u32string_view& letters, bool isAfterVowel) {
    if (isAfterVowel && letters.front() == U'-') {
        letters.remove_prefix(1);
        return U"ー";
    }
    if (isDoubled(letters)) {
        letters.remove_prefix(1);
        return U"っ";
    }
    if (const auto count = countLettersOfN(letters); count > 0) {
        letters.remove_prefix(count);
        return U"ん";
    }
    return takeVowelMora(letters);
}

} // namespace

std::optional<std::u32string> kanaOf(std::u32string_view word) {
    if (word.size() < kShortestRomaji || word.size() > kLongestRomaji) {
        return std::nullopt;
    }
    std::u32string letters;
    for (const char32_t character : word) {
        appendRead(letters, character);
    }
    if (letters.find_first_of(kVowelLetters) == std::u32string::npos) {
        return std::nullopt;
    }
    std::u32string kana;
    std::u32string_view left(letters);
    for (bool isAfterVowel = false; !left.empty();) {
        const auto next = takeKana(left, isAfterVowel);
        if (next.empty()) {
            return std::nullopt;
        }
        isAfterVowel = next != U"ん" && next != U"っ" && next != U"ー";
        kana += next;
    }
    return kana;
}

} // namespace wybeta::wysim::words
