// SPDX-License-Identifier: GPL-3.0-or-later
#include "lyrics/LyricConversion.h"

#include "lyrics/BracketedPhonemes.h"

#include <utility>

namespace wybeta::lyrics {

namespace {

// Builds the note texts in place, reusing the syllable strings.
NoteLyricList noteTexts(std::string_view text, SyllableList syllables) {
    for (auto& syllable : syllables) {
        syllable.insert(syllable.begin(), '[');
        syllable.push_back(']');
    }
    syllables.front().insert(0, text);
    return syllables;
}

NoteLyricList convertText(std::string_view lyric,
                          const dictionary::PronunciationDictionary& dictionary) {
    SyllableList syllables = lyricToSyllables(lyric, dictionary);
    return syllables.empty() ? NoteLyricList{std::string(lyric)}
                             : noteTexts(lyric, std::move(syllables));
}

} // namespace

bool convertLyric(std::string_view lyric, NoteLyricList& noteLyrics,
                  const dictionary::PronunciationDictionary& dictionary) {
    const auto bracketed = findBracketedPhonemes(lyric);
    noteLyrics = bracketed ? noteTexts(bracketed->text, bracketToSyllables(bracketed->phonemes))
                           : convertText(lyric, dictionary);
    return bracketed.has_value();
}

} // namespace wybeta::lyrics
