// SPDX-License-Identifier: GPL-3.0-or-later
//
// Scores in MusicXML that are as small as what a test shows. Times are counted in quarter notes.
#pragma once

#include <string>
#include <vector>

namespace wybeta::tests {

std::string lyricOf(const std::string& text, const std::string& number = "1");

// A note such as "C4" with what else stands inside of it, such as a lyric.
std::string noteOf(const std::string& pitch, int duration, const std::string& more = "");
std::string restOf(int duration, const std::string& more = "");
std::string backupOf(int duration);
std::string voiceOf(int number);

struct SmallPart {
    std::string name;
    std::vector<std::string> measures; // what stands inside of them
};
std::string scoreOf(const std::vector<SmallPart>& parts);
// A score of one part, called "Voice".
std::string scoreOf(const std::vector<std::string>& measures);

} // namespace wybeta::tests
