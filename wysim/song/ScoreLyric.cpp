// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/song/ScoreLyric.h"

#include "wysim/song/Song.h"

#include <utf8cpp/utf8.h>

#include <algorithm>

namespace wybeta::wysim::song {

namespace {

constexpr std::u32string_view kSpaces = U" \t\r\n\u00A0";
constexpr std::u32string_view kMarks = U"-_\u00AD\u2010\u2011\u2012\u2013\u2014"
                                       U".,;:!?\"()\u00AB\u00BB\u2018\u201C\u201D\u201E\u2026"
                                       U"、。，．・！？「」『』（）";
constexpr char32_t kTypographicApostrophe = U'\u2019';

bool isOneOf(char32_t character, std::u32string_view set) {
    return set.find(character) != std::u32string_view::npos;
}

std::u32string withoutEnds(const std::u32string& text, std::u32string_view unwanted) {
    const auto first = text.find_first_not_of(unwanted);
    return first == std::u32string::npos
               ? std::u32string()
               : text.substr(first, text.find_last_not_of(unwanted) - first + 1);
}

std::u32string withSingleSpaces(std::string_view unchecked) {
    std::u32string text;
    // A reference to a character may stand for one that there is not.
    for (const char32_t character : utf8::utf8to32(utf8::replace_invalid(unchecked))) {
        // What no song can hold becomes a blank.
        if (!isOneOf(character, kSpaces) && isTextCharacter(character)) {
            text += character;
        } else if (text.empty() || text.back() != U' ') {
            text += U' ';
        }
    }
    return text;
}

bool isBracket(std::string_view text) {
    return text.size() >= 2 && text.front() == '[' && text.back() == ']';
}

} // namespace

ScoreSyllable joined(ScoreSyllable first, const ScoreSyllable& second) {
    if (first.text.empty() || second.text.empty()) {
        return first.text.empty() ? second : first;
    }
    const bool isOneWord = first.leavesWordOpen && second.continuesWord;
    first.text += (isOneWord ? "" : " ") + second.text;
    first.leavesWordOpen = second.leavesWordOpen;
    return first;
}

std::string onOneLine(std::string_view utf8) {
    return utf8::utf32to8(withoutEnds(withSingleSpaces(utf8), kSpaces));
}

std::string typedText(std::string_view utf8) {
    auto text = withSingleSpaces(utf8);
    std::replace(text.begin(), text.end(), kTypographicApostrophe, U'\'');
    const bool hasPhonemes = text.find(U'[') != std::u32string::npos;
    return utf8::utf32to8(
        withoutEnds(text, std::u32string(kSpaces).append(hasPhonemes ? U"" : kMarks)));
}

bool continuesDivision(std::string_view word, std::string_view text) {
    return !word.empty() && word.back() == ']' && isBracket(text);
}

std::string withSyllable(std::string word, std::string_view syllable) {
    if (continuesDivision(word, syllable)) {
        word.back() = ',';
        syllable.remove_prefix(1);
    }
    return word.append(syllable);
}

} // namespace wybeta::wysim::song
