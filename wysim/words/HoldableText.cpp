// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/words/HoldableText.h"

#include "text/Splitting.h"
#include "wysim/words/LyricText.h"

#include <algorithm>
#include <utility>

namespace wybeta::wysim::words {

using lyrics::PartKind;

HoldableText::HoldableText(LyricReader& reader, std::u32string text)
    : text_(std::move(text)), reading_(reader.read(utf8Of(text_))) {
    for (const auto& part : reading_.parts) {
        addMarks(part, reader.dictionary());
    }
}

void HoldableText::addMarks(const lyrics::LyricPart& part,
                            const dictionary::PronunciationDictionary& words) {
    if (part.kind == PartKind::Kana || part.kind == PartKind::KanaPair) {
        marks_.push_back({U'ー', part.end, {}});
    } else if (part.isKnown) {
        addHyphens(part.begin, utf8Of(text_.substr(part.begin, part.end - part.begin)), words);
    } else if (part.kind == PartKind::Zero && !marks_.empty()) {
        marks_.back() = {0, 0, "a 0 drops its sound"};
    }
    marks_.resize(part.firstSyllable + part.syllables, {0, 0, "a rest is not held"});
}

// A hyphen after the last of its letters holds a syllable. A suffix such as "(1)" is left whole.
void HoldableText::addHyphens(std::size_t begin, const std::string& word,
                              const dictionary::PronunciationDictionary& words) {
    const auto letters = dictionary::suffixStart(word);
    const auto suffix = word.substr(letters);
    for (const auto& entry : dictionary::findWordEntries(words, word)) {
        if (entry.word.substr(dictionary::suffixStart(entry.word)) != suffix) {
            continue;
        }
        const auto why = "the dictionary divides the word as " +
                         text::joinText({entry.written.begin(), entry.written.end()}, "-");
        for (const auto& places : entry.holds) {
            const auto beyond = std::upper_bound(places.begin(), places.end(), letters);
            marks_.push_back(beyond == places.begin() ? Mark{0, 0, why}
                                                      : Mark{U'-', begin + *(beyond - 1), {}});
        }
    }
}

std::optional<std::size_t> HoldableText::outOfReach(const Holds& holds) const {
    for (std::size_t i = 0; i < holds.size(); ++i) {
        if (holds[i] > 0 && marks_[i].character == 0) {
            return i;
        }
    }
    return std::nullopt;
}

std::size_t HoldableText::lastInReach() const {
    const auto last = std::find_if(marks_.rbegin(), marks_.rend(),
                                   [](const auto& mark) { return mark.character != 0; });
    return static_cast<std::size_t>((last == marks_.rend() ? marks_.end() : last.base()) -
                                    marks_.begin()) -
           1;
}

// From the last mark to the first, so that the places of those to come stay.
std::string HoldableText::textHeld(const Holds& holds) const {
    auto text = text_;
    for (auto i = holds.size(); i-- > 0;) {
        text.insert(marks_[i].place, holds[i], marks_[i].character);
    }
    return utf8Of(text);
}

Syllables HoldableText::syllablesHeld(const Holds& holds) const {
    Syllables syllables;
    for (std::size_t i = 0; i < holds.size(); ++i) {
        if (holds[i] > 0 && marks_[i].character == U'-') {
            dictionary::appendHeld(syllables, reading_.syllables[i], holds[i]);
        } else {
            syllables.push_back(reading_.syllables[i]);
            syllables.insert(syllables.end(), holds[i], "-");
        }
    }
    return syllables;
}

} // namespace wybeta::wysim::words
