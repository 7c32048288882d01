// SPDX-License-Identifier: GPL-3.0-or-later
#include "dictionary/PronunciationDictionary.h"

#include "text/Splitting.h"

#include <algorithm>
#include <cstring>
#include <numeric>
#include <utility>

namespace wybeta::dictionary {

namespace {

// At namespace scope, not a function-local static: it must live from load to unload.
PronunciationDictionary moduleDictionary;

// Just under the average line of the English dictionary (46 bytes). Reserving the index cuts
// loading by a third; for other texts a wrong guess costs only time.
constexpr std::size_t kBytesPerLine = 45;

constexpr std::size_t kPrefixCount = 0x10000;

// The first two bytes of a word that is not empty, as a number that sorts like the words. The word
// ends at a TAB or with the text.
std::size_t prefixOf(std::string_view text) {
    const auto first = static_cast<unsigned char>(text[0]);
    const auto second =
        text.size() > 1 && text[1] != '\t' ? static_cast<unsigned char>(text[1]) : 0u;
    return std::size_t{first} << 8 | second;
}

// The first such byte, or `end` if there is none.
char* findByte(char* begin, char* end, char byte) {
    auto* const found = std::memchr(begin, byte, static_cast<std::size_t>(end - begin));
    return found != nullptr ? static_cast<char*>(found) : end;
}

// Removes the stress digits and fills what they leave free with TABs. Writes every byte and steps
// over those to keep, since a branch for each costs a tenth of the whole load.
void removeStressDigits(char* begin, char* end) {
    char* out = begin;
    for (const char* in = begin; in != end; ++in) {
        *out = *in;
        out += *in >= '0' && *in <= '2' ? 0 : 1;
    }
    std::fill(out, end, '\t');
}

} // namespace

std::optional<PronunciationEntry> PronunciationDictionary::find(std::string_view word) const {
    if (index_.empty() || word.empty()) {
        return std::nullopt;
    }
    const auto* const begin = index_.data() + prefixStarts_[prefixOf(word)];
    const auto* const end = index_.data() + prefixStarts_[prefixOf(word) + 1];
    const auto* const found =
        std::lower_bound(begin, end, word, [this](Offset offset, std::string_view key) {
            return wordAt(offset) < key;
        });
    if (found == end || wordAt(*found) != word) {
        return std::nullopt;
    }
    const auto line = lineAt(*found);
    return PronunciationEntry{line.phonemes, line.spelling};
}

// The text is almost sorted: lines in order are appended, the others collected and merged.
PronunciationDictionary::PronunciationDictionary(std::string_view text) {
    text_.reserve(text.size() + 1);
    text_.assign(text.begin(), text.end());
    text_.push_back('\n');
    index_.reserve(text.size() / kBytesPerLine);
    std::vector<Offset> outOfOrder;
    char* const end = text_.data() + text_.size();
    for (char* begin = text_.data(); begin != end;) {
        // A CR before the LF may end a line of its own; in CR LF, the next line is empty.
        char* const lineFeed = findByte(begin, end, '\n');
        for (; begin <= lineFeed; ++begin) {
            char* const lineEnd = findByte(begin, lineFeed, '\r');
            if (lineEnd != begin) {
                addLine(begin, lineEnd, outOfOrder);
            }
            begin = lineEnd;
        }
    }
    mergeInto(std::move(outOfOrder));
    countPrefixes();
}

// Adds a line to the index, unless it has another number of fields than three.
void PronunciationDictionary::addLine(char* begin, char* end, std::vector<Offset>& outOfOrder) {
    const auto line = text::trimmed({begin, static_cast<std::size_t>(end - begin)});
    char* const word = begin + (line.data() - begin);
    char* const lineEnd = word + line.size();
    char* const wordEnd = findByte(word, lineEnd, '\t');
    if (wordEnd == lineEnd) {
        return;
    }
    char* const phonemesEnd = findByte(wordEnd + 1, lineEnd, '\t');
    if (phonemesEnd == lineEnd || findByte(phonemesEnd + 1, lineEnd, '\t') != lineEnd) {
        return;
    }
    removeStressDigits(wordEnd + 1, phonemesEnd);
    *lineEnd = '\n';
    const std::string_view added(word, static_cast<std::size_t>(wordEnd - word));
    const bool isInOrder = index_.empty() || wordAt(index_.back()) < added;
    (isInOrder ? index_ : outOfOrder).push_back(static_cast<Offset>(word - text_.data()));
}

// Sorting all lines instead would make a load take a third longer.
void PronunciationDictionary::mergeInto(std::vector<Offset> outOfOrder) {
    const auto byWord = [this](Offset a, Offset b) { return wordAt(a) < wordAt(b); };
    std::stable_sort(outOfOrder.begin(), outOfOrder.end(), byWord);

    std::vector<Offset> merged;
    merged.reserve(index_.size() + outOfOrder.size());
    auto rest = index_.cbegin();
    for (const Offset offset : outOfOrder) {
        const auto above = std::upper_bound(rest, index_.cend(), offset, byWord);
        merged.insert(merged.end(), rest, above);
        rest = above;
        // An equal word here is from an earlier line, so this one replaces it.
        if (!merged.empty() && wordAt(merged.back()) == wordAt(offset)) {
            merged.back() = offset;
        } else {
            merged.push_back(offset);
        }
    }
    merged.insert(merged.end(), rest, index_.cend());
    merged.shrink_to_fit();
    index_ = std::move(merged);
}

void PronunciationDictionary::countPrefixes() {
    prefixStarts_.resize(kPrefixCount + 1);
    for (const Offset offset : index_) {
        ++prefixStarts_[prefixOf(textFrom(offset)) + 1];
    }
    std::partial_sum(prefixStarts_.begin(), prefixStarts_.end(), prefixStarts_.begin());
}

std::string_view PronunciationDictionary::wordAt(Offset offset) const {
    const auto rest = textFrom(offset);
    return rest.substr(0, rest.find('\t'));
}

DictionaryLine PronunciationDictionary::lineAt(Offset offset) const {
    auto rest = textFrom(offset);
    rest = rest.substr(0, rest.find('\n'));
    // Several TABs may end the phonemes, where stress digits were removed.
    const auto wordEnd = rest.find('\t');
    const auto phonemesEnd = rest.find('\t', wordEnd + 1);
    return {rest.substr(0, wordEnd), rest.substr(wordEnd + 1, phonemesEnd - wordEnd - 1),
            rest.substr(rest.find_last_of('\t') + 1)};
}

PronunciationDictionary loadPronunciationDictionary(const char* text, std::int32_t size) {
    if (text == nullptr || size < 1) {
        return {};
    }
    return PronunciationDictionary({text, static_cast<std::size_t>(size)});
}

PronunciationDictionary& pronunciationDictionary() {
    return moduleDictionary;
}

} // namespace wybeta::dictionary
