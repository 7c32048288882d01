// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/words/PlainWords.h"

#include "lyrics/BracketedPhonemes.h"
#include "text/Splitting.h"
#include "wysim/words/SongWords.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <string>
#include <utility>

namespace wybeta::wysim::words {

namespace {

// In a bracket, the space of "- " goes, by which a syllable without further consonants is held.
bool areAlike(const Syllables& some, const Syllables& others) {
    return std::equal(some.begin(), some.end(), others.begin(), others.end(),
                      [](const auto& one, const auto& other) {
                          return text::trimmed(one) == text::trimmed(other);
                      });
}

std::string plainWord(LyricReader& reader, const SongWord& word) {
    const auto bracketed = lyrics::findBracketedPhonemes(word.text);
    if (!bracketed || bracketed->text.empty() || word.text.back() != ']') {
        return word.text;
    }
    const std::string plain(bracketed->text);
    auto syllables = reader.syllablesOf(plain);
    // Those that the notes had no room for are not in the bracket.
    syllables.resize(std::min(syllables.size(), word.notes));
    return areAlike(syllables, lyrics::bracketToSyllables(bracketed->phonemes)) ? plain : word.text;
}

} // namespace

song::Song withPlainWords(LyricReader& reader, song::Song song) {
    std::map<std::pair<std::string, std::size_t>, std::string> known;
    for (const auto& word : wordsOf(song)) {
        const auto [plain, isNew] = known.try_emplace({word.text, word.notes});
        if (isNew) {
            plain->second = plainWord(reader, word);
        }
        if (plain->second != word.text) {
            typeWord(song, word, plain->second);
        }
    }
    return song;
}

} // namespace wybeta::wysim::words
