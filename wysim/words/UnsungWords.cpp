// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/words/UnsungWords.h"

#include "wysim/words/CharacterKinds.h"
#include "wysim/words/LyricText.h"
#include "wysim/words/Readings.h"
#include "wysim/words/Romaji.h"

#include <algorithm>
#include <utility>

namespace wybeta::wysim::words {

namespace {

using lyrics::PartKind;
using Pronunciations = std::vector<Pronunciation>;

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
        pronunciations.push_back(
            {syllables.empty() ? reader.syllablesOf(utf8Of(text)) : syllables, isGuess});
    }
    return pronunciations;
}

// Adds a word without the parts of it that belong to kanji with their reading; these are words of
// their own, each added once.
void addAround(std::vector<VisibleWord>& words, lyrics::LyricPart part,
               const std::vector<Reading>& readings) {
    for (const auto& [begin, end, kana] : readings) {
        if (part.end <= begin || part.begin >= end) {
            continue;
        }
        if (part.begin < begin) {
            words.push_back({part, {}});
            words.back().part.end = begin;
        }
        if (words.empty() || words.back().part.begin != begin) {
            words.push_back({part, kana});
            words.back().part.begin = begin;
            words.back().part.end = end;
        }
        part.begin = std::min(part.end, end);
    }
    if (part.begin < part.end) {
        words.push_back({part, {}});
    }
}

} // namespace

std::vector<VisibleWord> visibleWords(std::u32string_view lyric,
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
    const auto readings = findReadings(lyric);
    std::vector<VisibleWord> words;
    for (const auto& part : joined) {
        addAround(words, part, readings);
    }
    return words;
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
    auto letters = std::u32string(lyric);
    std::replace_if(
        letters.begin(), letters.end(),
        [](char32_t character) { return !isOfWords(character) && !isApostrophe(character); }, U' ');
    const auto words = wordsBetweenBlanks(utf8Of(letters));
    return holdsKana || std::any_of(lyric.begin(), lyric.end(), isKanji) ||
           (words.size() > 1 && std::all_of(words.begin(), words.end(), [](const auto& word) {
                return kanaOf(charactersOf(word)).has_value();
            }));
}

WordInText wordAt(std::u32string_view lyric, std::size_t begin, std::size_t end) {
    const auto blank = begin == 0 ? std::u32string_view::npos : lyric.rfind(U' ', begin - 1);
    const auto first = blank == std::u32string_view::npos ? 0 : blank + 1;
    const auto last = std::min(lyric.find(U' ', end), lyric.size());
    return {std::u32string(lyric.substr(first, begin - first)),
            std::u32string(lyric.substr(begin, end - begin)),
            std::u32string(lyric.substr(end, last - end))};
}

LyricPronunciations::LyricPronunciations(std::u32string_view lyric, LyricReader& reader)
    : reader_(reader) {
    const auto reading = reader.read(utf8Of(lyric));
    const bool isAmongKana = isJapanese(lyric, reading);
    for (auto& visible : visibleWords(lyric, reading)) {
        auto& begin = visible.part.begin;
        const auto end = visible.part.end;
        const bool isUnsung =
            visible.kana.empty() && visible.part.kind == PartKind::Word && !visible.part.isKnown;
        begin = isUnsung ? findWord(lyric, begin, end) : begin;
        if (begin == end) {
            continue; // marks alone
        }
        std::u32string text(lyric.substr(begin, end - begin));
        auto pronunciations =
            isUnsung ? pronunciationsOfWord(wordAt(lyric, begin, end), isAmongKana, reader)
                     : Pronunciations{
                           {reader.syllablesOf(utf8Of(visible.kana.empty() ? text : visible.kana)),
                            false}};
        words_.push_back({std::move(visible), std::move(text), std::move(pronunciations)});
    }
}

std::optional<Pronunciation> LyricPronunciations::with(std::size_t begin,
                                                       const Pronunciation& pronunciation) const {
    const std::u32string* text = nullptr;
    for (const auto& word : words_) {
        if (word.visible.part.begin == begin) {
            text = &word.text;
        }
    }
    const auto isUnpronounced = [text](const auto& word) {
        return word.pronunciations.empty() && (text == nullptr || word.text != *text);
    };
    return text == nullptr || std::any_of(words_.begin(), words_.end(), isUnpronounced)
               ? std::nullopt
               : std::optional(joined(*text, pronunciation));
}

std::vector<Pronunciation> LyricPronunciations::all() const {
    std::vector<Pronunciation> ways;
    for (const auto& word : words_) {
        for (const auto& pronunciation : word.pronunciations) {
            if (word.pronunciations.size() == 1 && !ways.empty()) {
                continue; // as in the others
            }
            if (auto way = with(word.visible.part.begin, pronunciation)) {
                ways.push_back(*std::move(way));
            }
        }
    }
    return ways;
}

// A "0" works on what is sung before it, so it is read with that.
Pronunciation LyricPronunciations::joined(const std::u32string& word,
                                          const Pronunciation& pronunciation) const {
    Pronunciation all;
    for (const auto& [visible, text, pronunciations] : words_) {
        if (visible.part.kind == PartKind::Zero) {
            dictionary::convertEnglishWord(reader_.dictionary(), U"0", 0, 1, all.syllables);
            continue;
        }
        const auto& chosen = text == word ? pronunciation : pronunciations.front();
        all.syllables.insert(all.syllables.end(), chosen.syllables.begin(), chosen.syllables.end());
        all.isGuess = all.isGuess || chosen.isGuess;
    }
    return all;
}

} // namespace wybeta::wysim::words
