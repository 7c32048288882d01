// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

namespace wybeta::tests {

// What a lyric turns into, one text per note, worked out as simply as can be. Knows the kana and
// the English words that RandomLyrics uses, and no others.
std::vector<std::string> naiveNoteLyrics(const std::string& lyric);

} // namespace wybeta::tests
