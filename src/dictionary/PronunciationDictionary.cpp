// SPDX-License-Identifier: GPL-3.0-or-later
#include "dictionary/PronunciationDictionary.h"

#include "text/Splitting.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace wybeta::dictionary {

namespace {

// Not local to the function that gives it, so that it lives exactly as long as the module.
PronunciationDictionary moduleDictionary;

// Rather less than the average line of the English dictionary. It saves the list of places from
// growing, which takes longer than it looks; with other texts it is no more than a guess.
constexpr std::size_t kBytesPerLine = 45;

// Takes what stands before the first delimiter off the front of the text, and the delimiter with
// it; the whole text if it has none.
std::string_view takeUntil(std::string_view& text, char delimiter) {
    const std::string_view taken = text.substr(0, text.find(delimiter));
    text.remove_prefix(std::min(taken.size() + 1, text.size()));
    return taken;
}

std::optional<PronunciationDictionary::Item> itemOfLine(std::string_view line) {
    // No TAB is left at the end of the line, so an empty rest means that there was none to take.
    std::string_view rest = trimmed(line);
    const std::string_view word = takeUntil(rest, '\t');
    const std::string_view phonemes = takeUntil(rest, '\t');
    if (rest.empty() || rest.find('\t') != std::string_view::npos) {
        return std::nullopt;
    }
    return PronunciationDictionary::Item{word, phonemes, rest};
}

bool isStressDigit(char byte) {
    return byte >= '0' && byte <= '2';
}

char* copy(std::string_view text, char* out) {
    return std::copy(text.begin(), text.end(), out);
}

// Writes each byte but steps only over those to keep: a jump at every digit would be slower.
char* copyWithoutStressDigits(std::string_view phonemes, char* out) {
    for (const char byte : phonemes) {
        *out = byte;
        out += isStressDigit(byte) ? 0 : 1;
    }
    return out;
}

constexpr std::size_t kFirstBytes = 0x10000;

// The first two bytes of a word that is not empty, as a number that is in order with the words.
std::size_t firstBytes(std::string_view word) {
    const auto byteAt = [word](std::size_t i) {
        return i < word.size() ? static_cast<unsigned char>(word[i]) : 0u;
    };
    return byteAt(0) << 8 | byteAt(1);
}

} // namespace

std::optional<PronunciationEntry> PronunciationDictionary::find(std::string_view word) const {
    if (places_.empty() || word.empty()) {
        return std::nullopt;
    }
    const auto* const begin = places_.data() + starts_[firstBytes(word)];
    const auto* const end = places_.data() + starts_[firstBytes(word) + 1];
    const auto* const place =
        std::lower_bound(begin, end, word, [this](const Place& element, std::string_view key) {
            return wordAt(element) < key;
        });
    if (place == end || wordAt(*place) != word) {
        return std::nullopt;
    }
    const Item item = itemAt(*place);
    return PronunciationEntry{item.phonemes, item.spelling};
}

// The lines come nearly sorted. Those that ascend are in place at once; only the late ones, which
// belong before or upon an earlier line, are sorted in afterwards.
PronunciationDictionary::PronunciationDictionary(std::string_view text) {
    packed_.resize(text.size()); // packing only leaves bytes out
    places_.reserve(text.size() / kBytesPerLine);
    char* out = packed_.data();
    std::vector<Place> late;
    while (!text.empty()) {
        // CR LF needs no care: the empty line that it seems to hold is no item.
        std::string_view lines = takeUntil(text, '\n');
        while (!lines.empty()) {
            if (const auto item = itemOfLine(takeUntil(lines, '\r'))) {
                const bool ascends = places_.empty() || wordAt(places_.back()) < item->word;
                (ascends ? places_ : late).push_back(pack(*item, out));
            }
        }
    }
    packed_.resize(static_cast<std::size_t>(out - packed_.data()));
    packed_.shrink_to_fit();
    merge(std::move(late));
    countStarts();
}

// Writes the item at `out` and moves `out` behind it.
PronunciationDictionary::Place PronunciationDictionary::pack(const Item& item, char*& out) {
    char* const word = out;
    char* const phonemes = copy(item.word, word);
    char* const spelling = copyWithoutStressDigits(item.phonemes, phonemes);
    out = copy(item.spelling, spelling);
    // A text has less than 2 GiB, so every offset fits.
    const auto offset = [this](const char* position) {
        return static_cast<std::uint32_t>(position - packed_.data());
    };
    return {offset(word), offset(phonemes), offset(spelling), offset(out)};
}

void PronunciationDictionary::merge(std::vector<Place> late) {
    const auto byWord = [this](const Place& a, const Place& b) { return wordAt(a) < wordAt(b); };
    std::stable_sort(late.begin(), late.end(), byWord);

    std::vector<Place> merged;
    merged.reserve(places_.size() + late.size());
    auto rest = places_.cbegin();
    for (const Place& place : late) {
        const auto above = std::upper_bound(rest, places_.cend(), place, byWord);
        merged.insert(merged.end(), rest, above);
        rest = above;
        // An equal word came from an earlier line: what came in order after a late line lies above.
        if (!merged.empty() && wordAt(merged.back()) == wordAt(place)) {
            merged.back() = place;
        } else {
            merged.push_back(place);
        }
    }
    merged.insert(merged.end(), rest, places_.cend());
    merged.shrink_to_fit();
    places_ = std::move(merged);
}

void PronunciationDictionary::countStarts() {
    starts_.resize(kFirstBytes + 1);
    for (const Place& place : places_) {
        ++starts_[firstBytes(wordAt(place)) + 1];
    }
    std::partial_sum(starts_.begin(), starts_.end(), starts_.begin());
}

PronunciationDictionary::Item PronunciationDictionary::itemAt(const Place& place) const {
    return {wordAt(place), packed(place.phonemes, place.spelling),
            packed(place.spelling, place.end)};
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
