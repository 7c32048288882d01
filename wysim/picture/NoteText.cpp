// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/picture/NoteText.h"

#include "wysim/terminal/CharacterWidth.h"

#include <utf8cpp/utf8.h>

namespace wybeta::wysim::picture {

NoteText::NoteText(std::string_view text) : lyric(text) {
    const auto bracket = text.rfind('[');
    if (bracket != std::string_view::npos && text.back() == ']') {
        lyric = text.substr(0, bracket);
        syllable = text.substr(bracket + 1, text.size() - bracket - 2);
    }
}

double drawnWidth(std::string_view utf8) {
    double width = 0;
    for (auto next = utf8.begin(); next != utf8.end();) {
        const auto character = utf8::next(next, utf8.end());
        const auto isOneOf = [character](std::u32string_view set) {
            return set.find(character) != std::u32string_view::npos;
        };
        width += terminal::isWide(character) ? 1
                 : isOneOf(U" .,'Iijlfrt[]") ? 0.36
                 : isOneOf(U"mwMW")          ? 0.9
                                             : 0.6;
    }
    return width;
}

} // namespace wybeta::wysim::picture
