// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wysim/song/ScoreLyric.h"

#include <pugixml.hpp>

#include <string>

namespace wybeta::wysim::song {

// The whole text of an element, which comments and CDATA sections may cut into pieces.
std::string textOf(pugi::xml_node element);

// Whether wysim wrote the score, whose lyrics are then what a person typed, marks and all.
bool isOwnScore(pugi::xml_node score);

// Whether a note is a rest, or sounds in another part.
bool isSilent(pugi::xml_node note);

// "2" as well as "part1verse2"; a lyric without a number belongs to the first verse.
int verseOf(pugi::xml_node lyric);

// The words of a lyric; where two share a note, an elision stands between them.
ScoreSyllable readLyric(pugi::xml_node lyric, bool isTyped);

} // namespace wybeta::wysim::song
