// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wysim/words/Holds.h"
#include "wysim/words/LyricReader.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace wybeta::wysim::words {

// A text whose syllables can be held over further notes: those of words by hyphens, those of kana
// by "ー".
class HoldableText {
public:
    // Reads the text, which has no hyphens yet.
    HoldableText(LyricReader& reader, std::u32string text);

    const std::u32string& text() const { return text_; }
    const lyrics::LyricReading& reading() const { return reading_; }
    const Syllables& syllables() const { return reading_.syllables; }

    // The first syllable that is to be held and that no mark holds.
    std::optional<std::size_t> outOfReach(const Holds& holds) const;
    // Why no mark holds a syllable, as the end of a sentence.
    const std::string& whyOutOfReach(std::size_t syllable) const { return marks_[syllable].why; }
    // The last syllable that a mark holds; without any, the last one.
    std::size_t lastInReach() const;

    // The text with marks that hold each syllable that often, and the syllables that it then gives.
    // All of these have to be in reach.
    std::string textHeld(const Holds& holds) const;
    Syllables syllablesHeld(const Holds& holds) const;

private:
    // What holds a syllable: a character at a place in the text.
    struct Mark {
        char32_t character = 0; // 0 when nothing holds the syllable
        std::size_t place = 0;
        std::string why;
    };

    void addMarks(const lyrics::LyricPart& part, const dictionary::PronunciationDictionary& words);
    void addHyphens(std::size_t begin, const std::string& word,
                    const dictionary::PronunciationDictionary& words);

    std::u32string text_;
    lyrics::LyricReading reading_;
    std::vector<Mark> marks_; // of each syllable
};

} // namespace wybeta::wysim::words
