// SPDX-License-Identifier: GPL-3.0-or-later
#include "lyrics/LyricConversion.h"

#include "dictionary/Text.h"
#include "dictionary/WordLookup.h"
#include "lyrics/BracketedPhonemes.h"
#include "lyrics/KanaPhonemeTable.h"

#include <utf8cpp/utf8.h>

#include <iterator>
#include <optional>
#include <utility>

namespace wybeta::lyrics {

namespace {

using dictionary::PronunciationDictionary;

std::string inBrackets(std::string_view text, std::string_view syllable) {
    std::string lyric;
    lyric.reserve(text.size() + syllable.size() + 2);
    return lyric.append(text).append("[").append(syllable).append("]");
}

// Spreads the syllables, of which there is at least one, over as many notes.
template <class Syllables>
NoteLyricList toNoteLyrics(std::string_view text, const Syllables& syllables) {
    NoteLyricList noteLyrics;
    noteLyrics.reserve(syllables.size());
    for (const auto& syllable : syllables) {
        noteLyrics.push_back(inBrackets(noteLyrics.empty() ? text : "", syllable));
    }
    return noteLyrics;
}

NoteLyricList takeAsWritten(const BracketedPhonemes& bracketed) {
    auto syllables = dictionary::splitText(bracketed.phonemes, ",");
    for (auto& syllable : syllables) {
        syllable = dictionary::trimmed(syllable);
    }
    return toNoteLyrics(bracketed.text, syllables);
}

NoteLyricList convertText(std::string_view lyric, const PronunciationDictionary& dictionary) {
    const auto syllables = lyricToSyllables(lyric, dictionary);
    return syllables.empty() ? NoteLyricList{std::string(lyric)} : toNoteLyrics(lyric, syllables);
}

std::u32string decode(std::string_view utf8) {
    std::u32string text;
    utf8::utf8to32(utf8.begin(), utf8.end(), std::back_inserter(text));
    return text;
}

// Whether an English word can begin with the character.
bool startsWord(char32_t character) {
    return character >= U'!' && character <= U'~';
}

// Reads a lyric from left to right. A word stays open until a space, a kana or the end closes it.
class LyricScan {
public:
    LyricScan(std::u32string_view text, const PronunciationDictionary& dictionary)
        : text_(text), dictionary_(dictionary) {}

    SyllableList run() {
        for (std::size_t i = 0; i < text_.size(); ++i) {
            i += readAt(i);
        }
        closeWord(text_.size());
        return std::move(syllables_);
    }

private:
    // Returns how many characters after the one at `i` were read along with it.
    std::size_t readAt(std::size_t i) {
        if (text_[i] == U' ') {
            closeWord(i);
        } else if (const auto* const pair = findKanaPair(text_, i)) {
            // The word takes the pair's first kana with it, and so is not found in the dictionary:
            // a word written directly against a two-kana syllable is not sung.
            closeWord(i + 1);
            syllables_.emplace_back(pair->phonemes);
            return 1;
        } else if (const auto* const single = findKanaSingle(text_, i)) {
            closeWord(i);
            syllables_.emplace_back(single->phonemes);
        } else if (!wordStart_ && startsWord(text_[i])) {
            wordStart_ = i;
        }
        return 0;
    }

    void closeWord(std::size_t end) {
        if (wordStart_) {
            dictionary::convertEnglishWord(dictionary_, text_,
                                           static_cast<std::int32_t>(*wordStart_),
                                           static_cast<std::int32_t>(end), syllables_);
            wordStart_.reset();
        }
    }

    std::u32string_view text_;
    const PronunciationDictionary& dictionary_;
    std::optional<std::size_t> wordStart_;
    SyllableList syllables_;
};

} // namespace

bool convertLyric(std::string_view lyric, NoteLyricList& noteLyrics,
                  const PronunciationDictionary& dictionary) {
    const auto bracketed = findBracketedPhonemes(lyric);
    noteLyrics = bracketed ? takeAsWritten(*bracketed) : convertText(lyric, dictionary);
    return bracketed.has_value();
}

SyllableList lyricToSyllables(std::string_view lyric, const PronunciationDictionary& dictionary) {
    return LyricScan(decode(lyric), dictionary).run();
}

} // namespace wybeta::lyrics
