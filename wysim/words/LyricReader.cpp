// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/words/LyricReader.h"

#include "resources/ResourceTable.h"
#include "wysim/words/CharacterKinds.h"
#include "wysim/words/LyricText.h"

#include <algorithm>

namespace wybeta::wysim::words {

namespace {

dictionary::PronunciationDictionary loadDictionary() {
    const auto& text = *resources::findResource("cmudict0_7butf8spll");
    return dictionary::loadPronunciationDictionary(text.data, text.size,
                                                   dictionary::TextLifetime::OutlivesTheDictionary);
}

} // namespace

LyricReader::LyricReader() : dictionary_(loadDictionary()) {}

bool LyricReader::singsAllOf(const std::string& lyric) {
    const auto text = charactersOf(lyric);
    const auto reading = read(lyric);
    return !reading.syllables.empty() &&
           std::none_of(reading.parts.begin(), reading.parts.end(), [&text](const auto& part) {
               const auto begin = text.begin() + static_cast<std::ptrdiff_t>(part.begin);
               const auto end = text.begin() + static_cast<std::ptrdiff_t>(part.end);
               const bool isLeftOut = part.kind == lyrics::PartKind::PassedOver ||
                                      (part.kind == lyrics::PartKind::Word && !part.isKnown);
               return isLeftOut && std::any_of(begin, end, isOfWords);
           });
}

bool LyricReader::hasWord(std::string word) const {
    std::transform(word.begin(), word.end(), word.begin(), [](char letter) {
        return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    });
    return dictionary_.find(word).has_value();
}

lyrics::LyricReading LyricReader::read(std::string_view lyric) {
    ++conversions_;
    return lyrics::readLyric(lyric, dictionary_);
}

} // namespace wybeta::wysim::words
