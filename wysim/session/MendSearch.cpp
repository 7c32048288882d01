// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/session/MendSearch.h"

#include "wysim/words/CharacterKinds.h"
#include "wysim/words/LyricText.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace wybeta::wysim::session {

namespace {

bool isMarkOrBlank(char32_t character) {
    return !words::isOfWords(character) && !words::isApostrophe(character);
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
    text.erase(text.begin(), std::find_if(text.begin(), text.end(), words::isOfWords));
    text.erase(std::find_if(text.rbegin(), text.rend(), words::isOfWords).base(), text.end());
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
    words::Reason reason;
    std::u32string (*rewrite)(std::u32string);
};
constexpr Rewriting kRewritings[] = {
    {words::Reason::Blank, words::withPlainBlanks},
    {words::Reason::Mark, withoutLastMark},
    {words::Reason::Mark, withoutFirstMark},
    {words::Reason::Apostrophe, words::withPlainApostrophes},
    {words::Reason::FullWidth, words::withPlainLetters},
    {words::Reason::HalfWidthKana, words::withOrdinaryKana},
    {words::Reason::Mark, withoutApostrophesAround},
};
// What makes several words of one.
constexpr Rewriting kPartings[] = {
    {words::Reason::HyphenJoins, withBlanksForHyphens},
    {words::Reason::Mark, withBlanksForMarks},
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

Mending MendSearch::run() {
    const auto& word = word_.word;
    if (std::any_of(word.begin(), word.end(), words::isKanji)) {
        return {words::Reason::Kanji, {}};
    }
    syllablesAround_ = tries_.divide(words::utf8Of(word_.before + U" " + word_.after)).size();
    if (auto mending = tryRewriting()) {
        return *std::move(mending);
    }
    const bool hasLetters = std::any_of(word.begin(), word.end(), [](char32_t character) {
        return words::isAscii(character) && words::isOfWords(character);
    });
    return hasLetters ? Mending{words::Reason::Unknown, sungNeighbours()}
                      : Mending{words::Reason::OtherCharacter, {}};
}

std::optional<std::u32string> MendSearch::sung(const std::u32string& text) {
    const auto words = words::wordsBetweenBlanks(words::utf8Of(text));
    const bool areAllSung = std::all_of(words.begin(), words.end(), [this](const auto& word) {
        return !tries_.divide(word).empty();
    });
    if (words.empty() || !areAllSung) {
        return std::nullopt;
    }
    for (const auto* const blank : {U"", U" "}) {
        auto candidate = text + blank;
        const auto syllables = tries_.divide(words::utf8Of(word_.before + candidate + word_.after));
        if (syllables.size() > syllablesAround_) {
            return candidate;
        }
    }
    return std::nullopt;
}

std::optional<Mending> MendSearch::tryRewriting() {
    auto text = word_.word;
    if (const auto mend = sung(text)) {
        return Mending{words::Reason::BeforeKanaPair, {*mend}};
    }
    for (const auto& [reason, rewrite] : kRewritings) {
        for (auto next = rewrite(text); next != text; next = rewrite(text)) {
            text = std::move(next);
            if (const auto mend = sung(text)) {
                return Mending{reason, {*mend}};
            }
        }
    }
    rewritten_ = text;
    for (const auto& [reason, part] : kPartings) {
        if (const auto mend = sung(part(text))) {
            return Mending{reason, {*mend}};
        }
    }
    return std::nullopt;
}

// The words with one letter changed that the extension sings, when there are letters enough to tell
// which word may be meant.
std::vector<std::u32string> MendSearch::sungNeighbours() {
    constexpr std::size_t kShortest = 3;
    constexpr std::size_t kLongest = 32;
    std::vector<std::u32string> found;
    auto word = rewritten_;
    word.erase(std::remove(word.begin(), word.end(), U'-'), word.end());
    const bool isOfLetters = std::all_of(word.begin(), word.end(), [](char32_t character) {
        return words::isAsciiLetter(character) || character == U'\'' || !words::isAscii(character);
    });
    if (!isOfLetters || word.size() < kShortest || word.size() > kLongest) {
        return found;
    }
    for (const auto& neighbour : neighboursOf(word)) {
        if (found.size() == kMaxMends || tries_.areUsedUp()) {
            break;
        }
        const auto mend = sung(neighbour);
        if (mend && std::find(found.begin(), found.end(), *mend) == found.end()) {
            found.push_back(*mend);
        }
    }
    return found;
}

} // namespace wybeta::wysim::session
