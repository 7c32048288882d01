// SPDX-License-Identifier: GPL-3.0-or-later
#include "dictionary/PronunciationDictionary.h"

#include "text/Splitting.h"

#include <algorithm>
#include <iterator>
#include <numeric>

namespace wybeta::dictionary {

namespace {

// At namespace scope, not a function-local static: it must live from load to unload.
PronunciationDictionary moduleDictionary;

// Just under the average line of the English dictionary (46 bytes). Without reserving, the index
// would keep 1.05 MB instead of 0.55.
constexpr std::size_t kBytesPerLine = 45;

constexpr std::size_t kPrefixCount = 0x8000;

// A number below kPrefixCount for the first three letters of a word, which sorts like the words.
// Another byte counts as the nearest character next to the letters, and nothing after it counts.
// Searching only the words of one prefix takes a quarter off the time of a lyric of English words.
std::size_t prefixOf(std::string_view word) {
    std::size_t prefix = 0;
    bool isLetter = true;
    for (std::size_t i = 0; i < 3; ++i) {
        const auto byte = isLetter && i < word.size() ? static_cast<unsigned char>(word[i]) : 0u;
        isLetter = byte >= 'a' && byte <= 'z';
        prefix = prefix << 5 | (std::clamp(byte, 'a' - 1u, 'z' + 1u) & 0x1F);
    }
    return prefix;
}

// Calls `callback` for each line that is not empty. In CR LF, a line ends at CR.
template <class Callback>
void forEachLine(std::string_view text, Callback callback) {
    text::forEachSplit(text, "\n", [&callback](std::string_view lines) {
        text::forEachSplit(lines, "\r", [&callback](std::string_view line) {
            if (!line.empty()) {
                callback(line);
            }
        });
    });
}

// The word of a line; empty if the line has another number of fields than three.
std::string_view wordOf(std::string_view line) {
    line = text::trimmed(line);
    const auto wordEnd = line.find('\t');
    const auto phonemesEnd = line.find('\t', wordEnd + 1);
    if (phonemesEnd == std::string_view::npos ||
        line.find('\t', phonemesEnd + 1) != std::string_view::npos) {
        return {};
    }
    return line.substr(0, wordEnd);
}

} // namespace

PronunciationDictionary::PronunciationDictionary(std::string_view text, TextLifetime lifetime)
    : text_(text), prefixStarts_(kPrefixCount + 1) {
    if (lifetime == TextLifetime::MayEndAfterLoading) {
        copy_ = std::make_unique<const std::string>(text);
        text_ = *copy_;
    }
    lineStarts_.reserve(text_.size() / kBytesPerLine);
    std::string_view lastWord;
    forEachLine(text_, [this, &lastWord](std::string_view line) {
        const auto word = wordOf(line);
        if (lastWord < word) {
            addWord(lineStarts_.end(), word);
            lastWord = word;
        } else if (!word.empty()) {
            addOutOfOrder(word);
        }
    });
    std::partial_sum(prefixStarts_.begin(), prefixStarts_.end(), prefixStarts_.begin());
}

// Adds the line of a word before the one at `place`.
void PronunciationDictionary::addWord(std::vector<Offset>::iterator place, std::string_view word) {
    lineStarts_.insert(place, static_cast<Offset>(word.data() - text_.data()));
    ++prefixStarts_[prefixOf(word) + 1];
}

// Inserts the line of a word that does not sort after all others, or replaces an earlier line of
// that word. The English text is almost sorted: 1,503 of its 133,853 words go before others, 86
// on average. In reverse order, loading it would take 0.8 s.
void PronunciationDictionary::addOutOfOrder(std::string_view word) {
    const auto place = std::lower_bound(
        lineStarts_.begin(), lineStarts_.end(), word,
        [this](Offset start, std::string_view key) { return wordAt(start) < key; });
    if (wordAt(*place) == word) {
        *place = static_cast<Offset>(word.data() - text_.data());
    } else {
        addWord(place, word);
    }
}

std::optional<PronunciationEntry> PronunciationDictionary::find(std::string_view word) const {
    const auto line = findLine(word);
    if (!line) {
        return std::nullopt;
    }
    return PronunciationEntry{withoutStressDigits(line->phonemes), line->spelling};
}

std::optional<DictionaryLine> PronunciationDictionary::findLine(std::string_view word) const {
    if (lineStarts_.empty()) {
        return std::nullopt;
    }
    const auto prefix = prefixOf(word);
    const auto* const end = lineStarts_.data() + prefixStarts_[prefix + 1];
    const auto* const found = std::lower_bound(
        lineStarts_.data() + prefixStarts_[prefix], end, word,
        [this](Offset start, std::string_view key) { return wordAt(start) < key; });
    if (found == end || wordAt(*found) != word) {
        return std::nullopt;
    }
    return lineAt(*found);
}

std::string_view PronunciationDictionary::wordAt(Offset start) const {
    const auto rest = text_.substr(start);
    return rest.substr(0, rest.find('\t'));
}

DictionaryLine PronunciationDictionary::lineAt(Offset start) const {
    const auto rest = text_.substr(start);
    const auto wordEnd = rest.find('\t');
    const auto phonemesEnd = rest.find('\t', wordEnd + 1);
    const auto end = std::find_if(rest.begin() + phonemesEnd, rest.end(),
                                  [](char byte) { return byte == '\r' || byte == '\n'; });
    const auto line = text::trimmed(rest.substr(0, static_cast<std::size_t>(end - rest.begin())));
    return {line.substr(0, wordEnd), line.substr(wordEnd + 1, phonemesEnd - wordEnd - 1),
            line.substr(phonemesEnd + 1)};
}

std::string withoutStressDigits(std::string_view phonemes) {
    std::string kept;
    kept.reserve(phonemes.size());
    std::remove_copy_if(phonemes.begin(), phonemes.end(), std::back_inserter(kept), isStressDigit);
    return kept;
}

PronunciationDictionary loadPronunciationDictionary(const char* text, std::int32_t size,
                                                    TextLifetime lifetime) {
    if (text == nullptr || size < 1) {
        return {};
    }
    return {{text, static_cast<std::size_t>(size)}, lifetime};
}

PronunciationDictionary& pronunciationDictionary() {
    return moduleDictionary;
}

} // namespace wybeta::dictionary
