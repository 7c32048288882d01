// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/words/SuggestionSearch.h"

#include "wysim/words/CharacterKinds.h"
#include "wysim/words/LyricText.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace wybeta::wysim::words {

namespace {

bool isMarkOrBlank(char32_t character) {
    return !isOfWords(character) && !isApostrophe(character);
}

std::u32string withoutLastMark(std::u32string text) {
    if (!text.empty() && isMarkOrBlank(text.back())) {
        text.pop_back();
    }
    return text;
}

std::u32string withoutFirstMark(std::u32string text) {
    if (!text.empty() && isMarkOrBlank(text.front())) {
        text.erase(0, 1);
    }
    return text;
}

std::u32string withoutApostrophesAround(std::u32string text) {
    text.erase(text.begin(), std::find_if(text.begin(), text.end(), isOfWords));
    text.erase(std::find_if(text.rbegin(), text.rend(), isOfWords).base(), text.end());
    return text;
}

std::u32string withBlanksForHyphens(std::u32string text) {
    std::replace(text.begin(), text.end(), U'-', U' ');
    return text;
}

std::u32string withBlanksForMarks(std::u32string text) {
    std::replace_if(text.begin(), text.end(), isMarkOrBlank, U' ');
    return text;
}

// What to change in a word, again and again, and what was wrong when it is sung then.
struct Rewriting {
    Reason reason;
    std::u32string (*rewrite)(std::u32string);
};
constexpr Rewriting kRewritings[] = {
    {Reason::Blank, withPlainBlanks},         {Reason::Mark, withoutLastMark},
    {Reason::Mark, withoutFirstMark},         {Reason::Apostrophe, withPlainApostrophes},
    {Reason::FullWidth, withPlainLetters},    {Reason::HalfWidthKana, withOrdinaryKana},
    {Reason::Mark, withoutApostrophesAround},
};
// What makes several words of one.
constexpr Rewriting kPartings[] = {
    {Reason::HyphenJoins, withBlanksForHyphens},
    {Reason::Mark, withBlanksForMarks},
};

// All texts that are one slip of the keyboard away, the likelier first: two letters in the wrong
// order, a forgotten apostrophe, one letter too many, one too few, another one.
std::vector<std::u32string> neighboursOf(const std::u32string& word) {
    constexpr std::u32string_view kLetters = U"etaoinshrdlucmfwypvbgkjqxz";
    std::vector<std::u32string> neighbours;
    const auto addWith = [&](std::size_t place, std::size_t replaced, std::u32string_view letters) {
        for (const char32_t letter : letters) {
            neighbours.push_back(word);
            neighbours.back().replace(place, replaced, 1, letter);
        }
    };
    for (std::size_t i = 0; i + 1 < word.size(); ++i) {
        neighbours.push_back(word);
        std::swap(neighbours.back()[i], neighbours.back()[i + 1]);
    }
    for (std::size_t i = 0; i <= word.size(); ++i) {
        addWith(i, 0, U"'");
    }
    for (std::size_t i = 0; i < word.size(); ++i) {
        neighbours.push_back(word);
        neighbours.back().erase(i, 1);
    }
    for (std::size_t i = 0; i <= word.size(); ++i) {
        addWith(i, 0, kLetters);
    }
    for (std::size_t i = 0; i < word.size(); ++i) {
        addWith(i, 1, kLetters);
    }
    return neighbours;
}

} // namespace

Diagnosis SuggestionSearch::run() {
    const auto& word = word_.word;
    if (std::any_of(word.begin(), word.end(), isKanji)) {
        return {Reason::Kanji, {}};
    }
    syllablesAround_ = reader_.syllablesOf(utf8Of(word_.before + U" " + word_.after)).size();
    if (auto diagnosis = tryRewriting()) {
        return *std::move(diagnosis);
    }
    const bool hasLetters = std::any_of(word.begin(), word.end(), [](char32_t character) {
        return isAscii(character) && isOfWords(character);
    });
    return hasLetters ? Diagnosis{Reason::Unknown, sungNeighbours()}
                      : Diagnosis{Reason::OtherCharacter, {}};
}

std::optional<std::u32string> SuggestionSearch::sung(const std::u32string& text) {
    const auto words = wordsBetweenBlanks(utf8Of(text));
    const bool areAllSung = std::all_of(words.begin(), words.end(), [this](const auto& word) {
        return !reader_.syllablesOf(word).empty();
    });
    if (words.empty() || !areAllSung) {
        return std::nullopt;
    }
    for (const auto* const blank : {U"", U" "}) {
        auto candidate = text + blank;
        const auto syllables = reader_.syllablesOf(utf8Of(word_.before + candidate + word_.after));
        if (syllables.size() > syllablesAround_) {
            return candidate;
        }
    }
    return std::nullopt;
}

std::optional<Diagnosis> SuggestionSearch::tryRewriting() {
    auto text = word_.word;
    if (const auto suggestion = sung(text)) {
        return Diagnosis{Reason::BeforeKanaPair, {*suggestion}};
    }
    for (const auto& [reason, rewrite] : kRewritings) {
        for (auto next = rewrite(text); next != text; next = rewrite(text)) {
            text = std::move(next);
            if (const auto suggestion = sung(text)) {
                return Diagnosis{reason, {*suggestion}};
            }
        }
    }
    rewritten_ = text;
    for (const auto& [reason, part] : kPartings) {
        if (const auto suggestion = sung(part(text))) {
            return Diagnosis{reason, {*suggestion}};
        }
    }
    return std::nullopt;
}

// The words with one letter changed that the dictionary has, when there are letters enough to tell
// which word may be meant.
std::vector<std::u32string> SuggestionSearch::sungNeighbours() {
    constexpr std::size_t kShortest = 3;
    constexpr std::size_t kLongest = 32;
    std::vector<std::u32string> found;
    auto word = rewritten_;
    word.erase(std::remove(word.begin(), word.end(), U'-'), word.end());
    const bool isOfLetters = std::all_of(word.begin(), word.end(), [](char32_t character) {
        return isAsciiLetter(character) || character == U'\'' || !isAscii(character);
    });
    if (!isOfLetters || word.size() < kShortest || word.size() > kLongest) {
        return found;
    }
    for (const auto& neighbour : neighboursOf(word)) {
        const auto suggestion = reader_.hasWord(utf8Of(neighbour)) ? sung(neighbour) : std::nullopt;
        if (suggestion && std::find(found.begin(), found.end(), *suggestion) == found.end()) {
            found.push_back(*suggestion);
        }
        if (found.size() == kMaxSuggestions) {
            break;
        }
    }
    return found;
}

} // namespace wybeta::wysim::words
