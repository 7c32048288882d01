// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/session/PieceCheck.h"

#include "wysim/words/CharacterKinds.h"
#include "wysim/words/LyricText.h"

#include <algorithm>
#include <utility>

namespace wybeta::wysim::session {

namespace {

// Whether a character in front of a word keeps out of it.
bool isHarmlessInFront(char32_t character) {
    return !words::isOfWords(character) &&
           (!words::isAscii(character) || words::isOtherBlank(character));
}

} // namespace

bool KnownKana::isKana(char32_t character) {
    const auto [known, isNew] = known_.try_emplace(character, false);
    if (isNew) {
        known->second =
            !words::isAscii(character) && !scratch_.divide(words::utf8Of({&character, 1})).empty();
    }
    return known->second;
}

std::vector<words::Finding> PieceCheck::run() {
    syllables_ = divide(piece_);
    const auto isKana = [this](char32_t character) { return kana_.isKana(character); };
    for (auto at = piece_.begin(); at != piece_.end();) {
        const auto begin = std::find_if_not(at, piece_.end(), isKana);
        at = std::find_if(begin, piece_.end(), isKana);
        // Marks in front of a word are passed over.
        const auto word = std::find_if_not(begin, at, isHarmlessInFront);
        if (std::any_of(word, at, words::isOfWords)) {
            checkWord(static_cast<std::size_t>(word - piece_.begin()),
                      static_cast<std::size_t>(at - piece_.begin()));
        }
    }
    return std::move(findings_);
}

Syllables PieceCheck::divide(const std::u32string& text) {
    return scratch_.divide(words::utf8Of(text));
}

void PieceCheck::checkWord(std::size_t begin, std::size_t end) {
    const auto word = inPiece(begin, end);
    const auto without = divide(word.before + U" " + word.after);
    if (without == syllables_) {
        addUnsung(word, begin);
    } else if (word.word == U"0") {
        checkZero(word, begin);
    } else {
        checkHyphens(word, begin, without);
        findSilentCharacters(begin, end);
    }
}

void PieceCheck::checkZero(const WordInText& word, std::size_t begin) {
    if (word.before.empty() || !kana_.isKana(word.before.back())) {
        add(begin, word.word, {words::Reason::Zero, {}});
        return;
    }
    const std::u32string sound(1, word.before.back());
    add(begin - 1, sound + word.word, {words::Reason::Zero, {sound}}, 1);
}

void PieceCheck::checkHyphens(const WordInText& word, std::size_t begin, const Syllables& without) {
    auto whole = word.word;
    whole.erase(std::remove(whole.begin(), whole.end(), U'-'), whole.end());
    if (whole == word.word) {
        return;
    }
    if (divide(word.before + whole + word.after).size() > without.size()) {
        add(begin, word.word, {words::Reason::HyphenHolds, {whole}},
            syllables_.size() - without.size());
    }
}

// Characters of other scripts in a word that is sung without them.
void PieceCheck::findSilentCharacters(std::size_t begin, std::size_t end) {
    const auto isOther = [](char32_t character) {
        return !words::isAscii(character) && words::isOfWords(character);
    };
    const auto wordEnd = piece_.begin() + static_cast<std::ptrdiff_t>(end);
    for (auto at = piece_.begin() + static_cast<std::ptrdiff_t>(begin); at != wordEnd;) {
        const auto first = std::find_if(at, wordEnd, isOther);
        at = std::find_if_not(first, wordEnd, isOther);
        const auto column = static_cast<std::size_t>(first - piece_.begin());
        if (first != at) {
            const auto other = inPiece(column, static_cast<std::size_t>(at - piece_.begin()));
            if (divide(other.before + U" " + other.after) == syllables_) {
                addUnsung(other, column);
            }
        }
    }
}

void PieceCheck::addUnsung(const WordInText& word, std::size_t begin) {
    auto mending = MendSearch(scratch_, word).run();
    const auto needsBlank = [](const auto& mend) { return mend.back() == U' '; };
    if (!std::any_of(mending.mends.begin(), mending.mends.end(), needsBlank)) {
        add(begin, word.word, mending);
        return;
    }
    // The blank shows only with what comes behind it.
    const auto pair = word.after.substr(0, 2);
    for (auto& mend : mending.mends) {
        mend += pair;
    }
    add(begin, word.word + pair, mending);
}

void PieceCheck::add(std::size_t begin, const std::u32string& word, const Mending& mending,
                     std::size_t syllables) {
    words::Finding finding{1, begin + 1, words::utf8Of(word), mending.reason, {}, syllables};
    for (const auto& mend : mending.mends) {
        finding.mends.push_back(words::utf8Of(mend));
    }
    findings_.push_back(std::move(finding));
}

WordInText PieceCheck::inPiece(std::size_t begin, std::size_t end) const {
    return {piece_.substr(0, begin), piece_.substr(begin, end - begin), piece_.substr(end)};
}

} // namespace wybeta::wysim::session
