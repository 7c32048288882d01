// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace wybeta::wysim::picture {

// A note's lyric taken apart: "さくら[s a]" is the lyric "さくら" on the syllable "s a".
struct NoteText {
    explicit NoteText(std::string_view text);

    std::string lyric;
    std::string syllable;
};

// How wide a text is drawn, in units of its font size.
double drawnWidth(std::string_view utf8);

} // namespace wybeta::wysim::picture
