// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace wybeta::wysim::song {

// What a score writes under one note.
struct ScoreSyllable {
    std::string text;            // empty when there is nothing to sing
    bool continuesWord = false;  // the word began under an earlier note
    bool leavesWordOpen = false; // the word goes on under a later note
    bool isTyped = false;        // as a person typed it, however many syllables that are
};

// The words of two notes under one.
ScoreSyllable joined(ScoreSyllable first, const ScoreSyllable& second);

// A title or a name on one line, with single spaces between its words.
std::string onOneLine(std::string_view utf8);

// The text of a syllable as a person would type it: without the hyphens and punctuation marks
// around it, with plain apostrophes and single spaces. A text with phonemes in brackets keeps its
// marks.
std::string typedText(std::string_view utf8);

// Whether the text of a note is a division's continuation, such as "[k u]", of a word such as
// "さくら[s a]".
bool continuesDivision(std::string_view word, std::string_view text);

// The word with a further syllable; phonemes in brackets are put into one bracket, so that typing
// "さくら[s a,k u]" divides as it was.
std::string withSyllable(std::string word, std::string_view syllable);

} // namespace wybeta::wysim::song
