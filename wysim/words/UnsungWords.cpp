// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/words/UnsungWords.h"

#include "wysim/words/CharacterKinds.h"
#include "wysim/words/LyricText.h"
#include "wysim/words/Proposals.h"
#include "wysim/words/Readings.h"
#include "wysim/words/Romaji.h"

#include <algorithm>
#include <string>
#include <utility>

namespace wybeta::wysim::words {

namespace {

using lyrics::PartKind;
using Pronunciations = std::vector<Syllables>;

// Whether a character in front of a word keeps out of it.
bool isHarmlessInFront(char32_t character) {
    return !isOfWords(character) && (!isAscii(character) || isOtherBlank(character));
}

Pronunciations pronunciationsOfWord(const WordInText& word, bool isAmongKana, LyricReader& reader) {
    SuggestionSearch search(reader, word, isAmongKana);
    const auto diagnosis = search.run();
    if (diagnosis.reason == Reason::Unknown) {
        return pronunciationsOf(search.plainWord(), reader, isAmongKana);
    }
    Pronunciations pronunciations;
    for (const auto& [text, syllables, isGuess] : diagnosis.proposals) {
        pronunciations.push_back(syllables.empty() ? reader.syllablesOf(utf8Of(text)) : syllables);
    }
    return pronunciations;
}

// The syllables of the words in order: of the given word as given, of all others the likeliest.
Syllables joined(const std::vector<Pronunciations>& words, std::size_t given, std::size_t choice) {
    Syllables syllables;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const auto& chosen = words[i][i == given ? choice : 0];
        syllables.insert(syllables.end(), chosen.begin(), chosen.end());
    }
    return syllables;
}

bool isInReading(const std::vector<Reading>& readings, const lyrics::LyricPart& part) {
    return std::any_of(readings.begin(), readings.end(), [&part](const auto& reading) {
        return part.begin >= reading.begin && part.begin < reading.end;
    });
}

} // namespace

std::vector<lyrics::LyricPart> visibleWords(std::u32string_view lyric,
                                            const lyrics::LyricReading& reading) {
    std::vector<lyrics::LyricPart> joined;
    bool isOpen = false; // whether the last one can take up more
    for (auto part : reading.parts) {
        const bool isPassedOver = part.kind == PartKind::PassedOver;
        if (!joined.empty()) {
            joined.back().end = std::min(joined.back().end, part.begin);
        }
        if (isOpen && part.kind == PartKind::Word && joined.back().end == part.begin &&
            (!part.isKnown || isLatinLetter(lyric[part.begin - 1]))) {
            joined.back().end = part.end;
        } else {
            part.kind = isPassedOver ? PartKind::Word : part.kind;
            joined.push_back(part);
        }
        isOpen = isPassedOver;
    }
    return joined;
}

std::size_t findWord(std::u32string_view lyric, std::size_t begin, std::size_t end) {
    while (begin < end && isHarmlessInFront(lyric[begin])) {
        ++begin;
    }
    const auto word = lyric.substr(begin, end - begin);
    return std::any_of(word.begin(), word.end(), isOfWords) ? begin : end;
}

bool isJapanese(std::u32string_view lyric, const lyrics::LyricReading& reading) {
    const bool holdsKana =
        std::any_of(reading.parts.begin(), reading.parts.end(), [](const auto& part) {
            return part.kind == PartKind::Kana || part.kind == PartKind::KanaPair;
        });
    const auto words = wordsBetweenBlanks(utf8Of(lyric));
    return holdsKana || std::any_of(lyric.begin(), lyric.end(), isKanji) ||
           (words.size() > 1 && std::all_of(words.begin(), words.end(), [](const auto& word) {
                return kanaOf(charactersOf(word)).has_value();
            }));
}

WordInText wordAt(std::u32string_view lyric, std::size_t begin, std::size_t end) {
    const auto blank = begin == 0 ? lyric.npos : lyric.rfind(U' ', begin - 1);
    const auto first = blank == lyric.npos ? 0 : blank + 1;
    const auto last = std::min(lyric.find(U' ', end), lyric.size());
    return {std::u32string(lyric.substr(first, begin - first)),
            std::u32string(lyric.substr(begin, end - begin)),
            std::u32string(lyric.substr(end, last - end))};
}

std::vector<Syllables> pronunciationsOfLyric(std::u32string_view lyric, LyricReader& reader) {
    const auto reading = reader.read(utf8Of(lyric));
    const auto readings = findReadings(lyric);
    const bool isAmongKana = isJapanese(lyric, reading);
    std::vector<Pronunciations> words;
    for (const auto& part : visibleWords(lyric, reading)) {
        const auto begin = findWord(lyric, part.begin, part.end);
        const bool isUnsung = part.kind == PartKind::Word && !part.isKnown && begin < part.end;
        const auto first =
            reading.syllables.begin() + static_cast<std::ptrdiff_t>(part.firstSyllable);
        words.push_back(
            isUnsung && !isInReading(readings, part)
                ? pronunciationsOfWord(wordAt(lyric, begin, part.end), isAmongKana, reader)
                : Pronunciations{
                      {first, first + static_cast<std::ptrdiff_t>(isUnsung ? 0 : part.syllables)}});
    }
    const auto isUnpronounced = [](const auto& pronunciations) { return pronunciations.empty(); };
    if (std::any_of(words.begin(), words.end(), isUnpronounced)) {
        return {};
    }
    Pronunciations all = {joined(words, 0, 0)};
    for (std::size_t word = 0; word < words.size(); ++word) {
        for (std::size_t choice = 1; choice < words[word].size(); ++choice) {
            all.push_back(joined(words, word, choice));
        }
    }
    return all;
}

} // namespace wybeta::wysim::words
