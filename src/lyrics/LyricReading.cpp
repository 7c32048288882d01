// SPDX-License-Identifier: GPL-3.0-or-later
#include "lyrics/LyricReading.h"

#include "dictionary/WordLookup.h"
#include "lyrics/BracketedPhonemes.h"
#include "lyrics/KanaPhonemeTable.h"
#include "text/Splitting.h"

#include <utf8cpp/utf8.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <utility>

namespace wybeta::lyrics {

namespace {

using dictionary::PronunciationDictionary;

// Whether a byte of UTF-8 is the first one of its code point.
bool beginsCodePoint(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) != 0x80;
}

std::size_t countCodePoints(std::string_view utf8) {
    return static_cast<std::size_t>(std::count_if(utf8.begin(), utf8.end(), beginsCodePoint));
}

// The code points of a text. Those of a short lyric lie on the stack, so that typing allocates
// nothing but its result: 157 ns for a lyric where a std::u32string takes 168 ns.
class CodePoints {
public:
    explicit CodePoints(std::string_view utf8) {
        char32_t* begin = shortText_.data();
        if (utf8.size() > shortText_.size()) {
            longText_.resize(countCodePoints(utf8));
            begin = longText_.data();
        }
        const char32_t* const end = utf8::utf8to32(utf8.begin(), utf8.end(), begin);
        view_ = {begin, static_cast<std::size_t>(end - begin)};
    }
    CodePoints(const CodePoints&) = delete;
    CodePoints& operator=(const CodePoints&) = delete;

    std::u32string_view view() const { return view_; }

private:
    std::array<char32_t, 128> shortText_;
    std::u32string longText_;
    std::u32string_view view_;
};

// Whether an English word can begin with the character.
bool startsWord(char32_t character) {
    return character >= U'!' && character <= U'~';
}

// Reads a lyric from left to right and tells `listener` of each part. A word stays open until a
// space, a kana or the end closes it.
template <class Listener>
class LyricScan {
public:
    LyricScan(std::u32string_view text, const PronunciationDictionary& dictionary,
              Listener listener)
        : text_(text), dictionary_(dictionary), listener_(listener) {}

    SyllableList run() {
        syllables_.reserve(std::min(text_.size(), kMaxReserved));
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
        } else if (startsWord(text_[i])) {
            wordStart_ = wordStart_.value_or(i);
        } else if (const auto* const pair = findKanaPair(text_, i)) {
            // The word ends after the pair's first kana, and so is not found in the dictionary: a
            // word written directly against a two-kana syllable is not sung.
            closeWord(i + 1);
            addKana(PartKind::KanaPair, i, i + 2, *pair);
            return 1;
        } else if (const auto* const single = findKanaSingle(text_, i)) {
            closeWord(i);
            addKana(PartKind::Kana, i, i + 1, *single);
        } else if (!wordStart_) {
            listener_(LyricPart{PartKind::PassedOver, i, i + 1, syllables_.size(), 0, false});
        }
        return 0;
    }

    void addKana(PartKind kind, std::size_t begin, std::size_t end, const KanaEntry& kana) {
        listener_(LyricPart{kind, begin, end, syllables_.size(), 1, false});
        syllables_.emplace_back(kana.phonemes);
    }

    void closeWord(std::size_t end) {
        if (wordStart_) {
            addWord(*wordStart_, end);
            wordStart_.reset();
        }
    }

    void addWord(std::size_t begin, std::size_t end) {
        const auto before = syllables_.size();
        dictionary::convertEnglishWord(dictionary_, text_, static_cast<std::int32_t>(begin),
                                       static_cast<std::int32_t>(end), syllables_);
        const bool isZero = text_.substr(begin, end - begin) == U"0";
        const auto added = syllables_.size() - before;
        listener_(LyricPart{isZero ? PartKind::Zero : PartKind::Word, begin, end, before, added,
                            !isZero && added > 0});
    }

    // Caps the reservation for long texts with nothing to sing.
    static constexpr std::size_t kMaxReserved = 1'000'000;

    std::u32string_view text_;
    const PronunciationDictionary& dictionary_;
    Listener listener_;
    std::optional<std::size_t> wordStart_;
    SyllableList syllables_;
};

template <class Listener>
SyllableList scan(std::string_view lyric, const PronunciationDictionary& dictionary,
                  Listener listener) {
    const CodePoints codePoints(lyric);
    return LyricScan(codePoints.view(), dictionary, listener).run();
}

// Adds a part; characters that are passed over one after the other become one.
void addPart(std::vector<LyricPart>& parts, const LyricPart& part) {
    const bool isPassedOver = part.kind == PartKind::PassedOver;
    if (isPassedOver && !parts.empty() && parts.back().kind == part.kind &&
        parts.back().end == part.begin) {
        parts.back().end = part.end;
    } else if (part.begin != part.end) {
        parts.push_back(part);
    }
}

LyricReading readBracket(std::string_view lyric, const BracketedPhonemes& bracketed) {
    const std::string_view inside = bracketed.phonemes;
    const auto open = static_cast<std::size_t>(inside.data() - lyric.data()) - 1;
    const auto begin = countCodePoints(lyric.substr(0, open));
    const auto end = begin + countCodePoints(inside) + 2;
    LyricReading reading{{}, bracketToSyllables(inside)};
    const auto count = reading.syllables.size();
    addPart(reading.parts, {PartKind::PassedOver, 0, begin, 0, 0, false});
    addPart(reading.parts, {PartKind::Bracket, begin, end, 0, count, false});
    addPart(reading.parts, {PartKind::PassedOver, end, countCodePoints(lyric), count, 0, false});
    return reading;
}

} // namespace

LyricReading readLyric(std::string_view lyric, const PronunciationDictionary& dictionary) {
    if (const auto bracketed = findBracketedPhonemes(lyric)) {
        return readBracket(lyric, *bracketed);
    }
    LyricReading reading;
    reading.syllables = scan(lyric, dictionary,
                             [&reading](const LyricPart& part) { addPart(reading.parts, part); });
    return reading;
}

SyllableList lyricToSyllables(std::string_view lyric, const PronunciationDictionary& dictionary) {
    return scan(lyric, dictionary, [](const LyricPart&) {});
}

SyllableList bracketToSyllables(std::string_view phonemes) {
    SyllableList syllables;
    syllables.reserve(static_cast<std::size_t>(std::count(phonemes.begin(), phonemes.end(), ',')) +
                      1);
    text::forEachSplit(phonemes, ",", [&syllables](std::string_view syllable) {
        syllables.emplace_back(text::trimmed(syllable));
    });
    return syllables;
}

} // namespace wybeta::lyrics
