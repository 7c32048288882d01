// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/laying/TextToLay.h"

#include "lyrics/KanaPhonemeTable.h"
#include "text/Splitting.h"
#include "wysim/song/Song.h"
#include "wysim/words/CharacterKinds.h"
#include "wysim/words/Letters.h"
#include "wysim/words/LyricText.h"
#include "wysim/words/Readings.h"
#include "wysim/words/Sounds.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace wybeta::wysim::laying {

namespace {

using Text = std::u32string_view;

constexpr std::u32string_view kAfterNumber = U".):．）：";
constexpr std::u32string_view kHyphens = U"-\u00AD\u2010\u2011";

bool isHyphen(char32_t character) {
    return words::isOneOf(character, kHyphens);
}

bool isKana(Text text, std::size_t place) {
    constexpr char32_t kFirstHalfWidth = 0xFF66;
    constexpr char32_t kLastHalfWidth = 0xFF9F;
    return lyrics::findKanaSingle(text, place) != nullptr ||
           (text[place] >= kFirstHalfWidth && text[place] <= kLastHalfWidth);
}

bool isDigit(char32_t character) {
    return (character >= U'0' && character <= U'9') || (character >= U'０' && character <= U'９');
}

bool isInWord(char32_t character) {
    return words::isOfWords(character) || words::isApostrophe(character) || isHyphen(character);
}

std::u32string inPlainCharacters(Text word) {
    return words::withOrdinaryKana(
        words::withPlainLetters(words::withPlainApostrophes(std::u32string(word))));
}

bool isSung(std::string_view symbol) {
    constexpr std::string_view kRest = "sil";
    return symbol == kRest || words::isSymbol(symbol) || words::isKanaSymbol(symbol);
}

// Characters that no lyric can hold become blanks.
std::u32string lyricCharacters(std::string_view line) {
    auto characters = words::charactersOf(line);
    std::replace_if(
        characters.begin(), characters.end(),
        [](char32_t character) { return !song::isTextCharacter(character); }, U' ');
    return characters;
}

// Whether a bracket has phonemes and nothing else inside.
bool isOfPhonemes(std::string_view inside) {
    auto symbols = std::string(inside);
    std::replace(symbols.begin(), symbols.end(), ',', ' ');
    const auto pieces = text::splitText(symbols, "");
    return !pieces.empty() && std::all_of(pieces.begin(), pieces.end(), isSung);
}

// A heading in the brackets that Japanese texts have for it.
bool isHeading(Text line) {
    const auto first = line.find_first_not_of(U" \t\u3000");
    const auto last = line.find_last_not_of(U" \t\u3000");
    return first != Text::npos && ((line[first] == U'【' && line[last] == U'】') ||
                                   (line[first] == U'［' && line[last] == U'］'));
}

// Cuts one line into its words.
class LineCutter {
public:
    LineCutter(Text line, WaysToSing& ways, words::LyricReader& reader)
        : line_(line), ways_(ways), reader_(reader), readings_(words::findReadings(line)) {}

    std::vector<WordToLay> cut() {
        passOverNumber();
        while (place_ < line_.size()) {
            if (!takeReading() && !takeBracket() && !takeKana() && !takeWord()) {
                ++place_;
            }
        }
        return std::move(words_);
    }

private:
    // Kanji with their reading in parentheses.
    bool takeReading() {
        while (reading_ < readings_.size() && readings_[reading_].begin < place_) {
            ++reading_;
        }
        if (reading_ == readings_.size() || readings_[reading_].begin != place_) {
            return false;
        }
        const auto& [begin, end, kana] = readings_[reading_];
        add(begin, end, kana, true);
        return true;
    }

    // The number of a verse: "1.", "1)" or right before a capital letter.
    void passOverNumber() {
        auto end = place_;
        while (end < line_.size() && (isDigit(line_[end]) || line_[end] == U' ')) {
            ++end;
        }
        const bool isNumber = end < line_.size() && end > place_ && isDigit(line_[end - 1]) &&
                              (words::isOneOf(line_[end], kAfterNumber) ||
                               (line_[end] >= U'A' && line_[end] <= U'Z'));
        place_ = isNumber ? end : place_;
    }

    // Phonemes with the word in front of them; a bracket with anything else is passed over.
    bool takeBracket() {
        if (line_[place_] != U'[' || hasNoMoreEnds_) {
            return false;
        }
        const auto end = line_.find(U']', place_);
        hasNoMoreEnds_ = end == Text::npos;
        if (hasNoMoreEnds_) {
            return false;
        }
        if (!isOfPhonemes(words::utf8Of(line_.substr(place_ + 1, end - place_ - 1)))) {
            place_ = end + 1;
            return true;
        }
        const bool belongs = !words_.empty() && wordEnd_ == place_;
        const auto begin = belongs ? wordBegin_ : place_;
        if (belongs) {
            words_.pop_back();
        }
        add(begin, end + 1, line_.substr(begin, end + 1 - begin), false);
        return true;
    }

    bool takeKana() {
        auto end = place_;
        while (end < line_.size() && isKana(line_, end)) {
            ++end;
        }
        if (end == place_) {
            return false;
        }
        add(place_, end, inPlainCharacters(line_.substr(place_, end - place_)), true);
        return true;
    }

    bool takeWord() {
        const auto end = endOfWord();
        auto begin = std::exchange(place_, end);
        const auto word = line_.substr(begin, end - begin);
        if (std::none_of(word.begin(), word.end(), words::isOfWords)) {
            return begin < end;
        }
        while (isHyphen(line_[begin])) {
            ++begin;
        }
        auto last = end;
        while (isHyphen(line_[last - 1])) {
            --last;
        }
        const auto bare = withoutQuotes(begin, last);
        add(bare.first, bare.second, lyricOf(bare.first, bare.second), false);
        place_ = end;
        return true;
    }

    // Where the characters end that may be a word from the place on.
    std::size_t endOfWord() const {
        const auto reading = reading_ < readings_.size() ? readings_[reading_].begin : line_.size();
        auto end = place_;
        while (end < reading && isInWord(line_[end]) && !isKana(line_, end) && !isDash(end)) {
            ++end;
        }
        return end;
    }

    // Two hyphens stand for a dash.
    bool isDash(std::size_t place) const {
        return isHyphen(line_[place]) && place + 1 < line_.size() && isHyphen(line_[place + 1]);
    }

    // Apostrophes around a word belong to it if the dictionary says so, as in "'tis" and "o'".
    std::pair<std::size_t, std::size_t> withoutQuotes(std::size_t begin, std::size_t end) {
        auto innerBegin = begin;
        while (innerBegin < end && words::isApostrophe(line_[innerBegin])) {
            ++innerBegin;
        }
        auto innerEnd = end;
        while (innerEnd > innerBegin && words::isApostrophe(line_[innerEnd - 1])) {
            --innerEnd;
        }
        const std::pair<std::size_t, std::size_t> ways[] = {
            {begin, end}, {begin, innerEnd}, {innerBegin, end}, {innerBegin, innerEnd}};
        for (const auto& way : ways) {
            if (reader_.singsAllOf(lyricOf(way.first, way.second))) {
                return way;
            }
        }
        return ways[0];
    }

    // A hyphen holds a syllable of a lyric, but that of a text only joins words.
    std::string lyricOf(std::size_t begin, std::size_t end) {
        const auto plain = inPlainCharacters(line_.substr(begin, end - begin));
        auto joined = plain;
        joined.erase(std::remove_if(joined.begin(), joined.end(), isHyphen), joined.end());
        auto parted = plain;
        std::replace_if(parted.begin(), parted.end(), isHyphen, U' ');
        const bool isParted = joined != plain && !reader_.singsAllOf(words::utf8Of(joined)) &&
                              singsEach(words::wordsBetweenBlanks(words::utf8Of(parted)));
        return words::utf8Of(isParted ? parted : joined);
    }

    bool singsEach(const std::vector<std::string>& pieces) {
        return std::all_of(pieces.begin(), pieces.end(),
                           [this](const auto& piece) { return reader_.singsAllOf(piece); });
    }

    void add(std::size_t begin, std::size_t end, Text lyric, bool isKana) {
        add(begin, end, words::utf8Of(lyric), isKana);
    }

    void add(std::size_t begin, std::size_t end, const std::string& lyric, bool isKana) {
        words_.push_back({words::utf8Of(line_.substr(begin, end - begin)), begin + 1, lyric,
                          ways_.of(lyric), isKana});
        wordBegin_ = begin;
        wordEnd_ = end;
        place_ = end;
    }

    Text line_;
    WaysToSing& ways_;
    words::LyricReader& reader_;
    std::vector<words::Reading> readings_;
    std::size_t reading_ = 0; // the first that begins at the place or after it
    std::size_t place_ = 0;
    bool hasNoMoreEnds_ = false; // of brackets
    std::size_t wordBegin_ = 0;  // of the last word
    std::size_t wordEnd_ = 0;
    std::vector<WordToLay> words_;
};

} // namespace

std::vector<LineToLay> linesToLay(const std::vector<std::string>& text, WaysToSing& ways,
                                  words::LyricReader& reader) {
    std::vector<LineToLay> lines;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto line = lyricCharacters(text[i]);
        if (isHeading(line)) {
            continue;
        }
        auto found = LineCutter(line, ways, reader).cut();
        if (!found.empty()) {
            lines.push_back({i + 1, std::move(found)});
        }
    }
    return lines;
}

} // namespace wybeta::wysim::laying
