// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/words/Wording.h"

#include "lyrics/BracketedPhonemes.h"
#include "text/Splitting.h"
#include "wysim/words/LyricText.h"

namespace wybeta::wysim::words {

std::string inQuotes(std::string_view text) {
    return text.empty() ? "nothing" : "'" + std::string(text) + "'";
}

std::string inDoubleQuotes(std::string_view lyric) {
    return "\"" + std::string(lyric) + "\"";
}

std::string inBrackets(const std::vector<std::string>& syllables) {
    std::string text;
    for (const auto& syllable : syllables) {
        text += (text.empty() ? "[" : " [") + syllable + "]";
    }
    return text.empty() ? "-" : text;
}

std::string withBracket(std::string_view lyric, const std::vector<std::string>& syllables) {
    const auto bracketed = lyrics::findBracketedPhonemes(lyric);
    return std::string(bracketed ? bracketed->text : lyric) + "[" +
           text::joinText(viewsOf(syllables), ",") + "]";
}

std::string_view trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(" \t\r");
    return first == std::string_view::npos
               ? std::string_view()
               : text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

std::string_view withoutReturn(std::string_view line) {
    return !line.empty() && line.back() == '\r' ? line.substr(0, line.size() - 1) : line;
}

} // namespace wybeta::wysim::words
