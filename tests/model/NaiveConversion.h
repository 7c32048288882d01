// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <string>
#include <vector>

namespace wybeta::tests {

struct NaiveWord {
    std::string phonemes; // without stress digits
    std::string spelling;
};
using NaiveWords = std::map<std::string, NaiveWord>;

// What a lyric turns into, one text per note, worked out as simply as can be. Throws
// utf8::exception for a lyric without brackets that is not valid UTF-8.
std::vector<std::string> naiveNoteLyrics(const std::string& lyric, const NaiveWords& words);

// The same with the English words that RandomLyrics uses, and no others.
std::vector<std::string> naiveNoteLyrics(const std::string& lyric);

} // namespace wybeta::tests
