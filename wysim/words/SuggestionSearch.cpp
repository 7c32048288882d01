// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/words/SuggestionSearch.h"

#include "lyrics/KanaPhonemeTable.h"
#include "wysim/words/CharacterKinds.h"
#include "wysim/words/LyricText.h"
#include "wysim/words/Readings.h"
#include "wysim/words/Respelling.h"

#include <algorithm>
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

std::u32string withOrdinaryMarks(std::u32string text) {
    return withSungMarks(withOrdinaryKana(std::move(text)));
}

// What to change in a word, again and again, and what was wrong when it is sung then.
struct Rewriting {
    Reason reason;
    std::u32string (*rewrite)(std::u32string);
};
constexpr Rewriting kRewritings[] = {
    {Reason::Blank, withPlainBlanks},
    {Reason::HalfWidthKana, withOrdinaryMarks},
    {Reason::Mark, withoutLastMark},
    {Reason::Mark, withoutFirstMark},
    {Reason::Apostrophe, withPlainApostrophes},
    {Reason::FullWidth, withPlainLetters},
    {Reason::Mark, withoutApostrophesAround},
};
// What makes several words of one.
constexpr Rewriting kPartings[] = {
    {Reason::HyphenJoins, withBlanksForHyphens},
    {Reason::Mark, withBlanksForMarks},
};

} // namespace

Diagnosis SuggestionSearch::run() {
    const auto& word = word_.word;
    if (std::any_of(word.begin(), word.end(), isKanji)) {
        return {Reason::Kanji, {}};
    }
    asItIs_ = reader_.syllablesOf(utf8Of(word_.before + word + word_.after));
    syllablesAround_ = reader_.syllablesOf(utf8Of(word_.before + U" " + word_.after)).size();
    if (auto diagnosis = tryRewriting()) {
        return *std::move(diagnosis);
    }
    if (auto diagnosis = tryParting()) {
        return *std::move(diagnosis);
    }
    const bool hasLetters = std::any_of(word.begin(), word.end(), [](char32_t character) {
        return isAscii(character) && isOfWords(character);
    });
    return {hasLetters ? Reason::Unknown : Reason::OtherCharacter, proposals()};
}

std::optional<std::u32string> SuggestionSearch::sung(const std::u32string& text) {
    const auto words = wordsBetweenBlanks(utf8Of(text));
    const bool areAllSung = std::all_of(
        words.begin(), words.end(), [this](const auto& word) { return reader_.singsAllOf(word); });
    if (words.empty() || !areAllSung) {
        return std::nullopt;
    }
    for (const auto* const blank : {U"", U" "}) {
        auto candidate = text + blank;
        const auto syllables = reader_.syllablesOf(utf8Of(word_.before + candidate + word_.after));
        if (syllables.size() > syllablesAround_ && syllables != asItIs_) {
            return candidate;
        }
    }
    return std::nullopt;
}

std::optional<Diagnosis> SuggestionSearch::tryRewriting() {
    auto text = word_.word;
    if (auto suggestion = sung(text)) {
        const bool isBeforePair = lyrics::findKanaPair(word_.after, 0) != nullptr;
        return Diagnosis{isBeforePair ? Reason::BeforeKanaPair : Reason::Mark, {{*suggestion, {}}}};
    }
    for (const auto& [reason, rewrite] : kRewritings) {
        // An apostrophe at its end may belong to the word.
        plain_ = text;
        for (auto next = rewrite(text); next != text; next = rewrite(text)) {
            text = std::move(next);
            // Of "th'" there would be the names of its letters.
            const bool isClipped = rewrite == withoutApostrophesAround && text.size() < 3;
            if (auto suggestion = isClipped ? std::nullopt : sung(text)) {
                return Diagnosis{reason, {{*suggestion, {}}}};
            }
        }
    }
    if (respellingsOf(plain_, reader_.dictionary()).empty()) {
        plain_ = text;
    }
    return std::nullopt;
}

// A hyphen that is none of the keyboard's joins the parts of a word rather than it parts words.
std::optional<Diagnosis> SuggestionSearch::tryParting() {
    for (const auto& [reason, part] : kPartings) {
        if (auto suggestion = sung(part(plain_))) {
            std::vector<Proposal> proposals = {{*suggestion, {}}};
            const bool isJoined =
                plain_.find_first_of(U"\u00AD\u2010\u2011") != std::u32string::npos;
            for (auto& respelling : respellingsOf(plain_, reader_.dictionary())) {
                proposals.insert(isJoined ? proposals.begin() : proposals.end(),
                                 {word_.word, std::move(respelling.syllables)});
                break;
            }
            return Diagnosis{reason, std::move(proposals)};
        }
    }
    return std::nullopt;
}

// Texts that are sung where the word is, and the word itself with phonemes.
std::vector<Proposal> SuggestionSearch::proposals() {
    std::vector<Proposal> found;
    for (auto& proposal : proposalsFor(plain_, reader_, isAmongKana_)) {
        if (!proposal.syllables.empty()) {
            found.push_back({word_.word, std::move(proposal.syllables), proposal.isGuess});
        } else if (auto text = sung(proposal.text)) {
            found.push_back({*std::move(text), {}});
        }
    }
    return found;
}

} // namespace wybeta::wysim::words
