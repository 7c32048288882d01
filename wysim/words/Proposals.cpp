// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/words/Proposals.h"

#include "text/Splitting.h"
#include "wysim/words/KnownWords.h"
#include "wysim/words/LetterToSound.h"
#include "wysim/words/Letters.h"
#include "wysim/words/LyricText.h"
#include "wysim/words/Neighbours.h"
#include "wysim/words/PlainSpelling.h"
#include "wysim/words/Respelling.h"
#include "wysim/words/Romaji.h"
#include "wysim/words/Sounds.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

namespace wybeta::wysim::words {

namespace {

constexpr std::size_t kMostRespellings = 2;

// The sounds of a word that consists of two others, "dreamtime"; none for any other word.
Symbols soundsOfCompound(const std::string& word,
                         const dictionary::PronunciationDictionary& words) {
    constexpr std::size_t kShortestPart = 4;
    for (auto cut = kShortestPart; cut + kShortestPart <= word.size(); ++cut) {
        const auto first = words.find(word.substr(0, cut));
        const auto second = words.find(word.substr(cut));
        if (first && second) {
            auto symbols = symbolsOf(first->phonemes);
            const auto more = symbolsOf(second->phonemes);
            symbols.insert(symbols.end(), more.begin(), more.end());
            return symbols;
        }
    }
    return {};
}

// The sounds by the letters of a word. An "-èd" is a syllable of its own after the letters before.
Symbols soundsByLetters(std::string word) {
    const bool isSungEd = endsIn(word, "Ed");
    if (isSungEd) {
        word.replace(word.size() - 2, 2, "e");
    }
    auto symbols = symbolsOf(text::joinText(viewsOf(guessSyllables(word)), " "));
    if (isSungEd && !symbols.empty()) {
        symbols.insert(symbols.end(), {"ih", "d"});
    }
    return symbols;
}

Symbols soundsOf(const std::string& part, const dictionary::PronunciationDictionary& words) {
    const auto found = KnownWords(words).find(part);
    auto symbols = found.empty() ? soundsOfCompound(part, words) : found.front().symbols;
    return symbols.empty() ? soundsByLetters(part) : symbols;
}

// A guess by the letters of the word, of which parts between hyphens may be known.
Syllables guessOf(std::u32string_view word, const LyricReader& reader) {
    const auto plain = plainSpellingOf(word);
    if (!plain) {
        return {};
    }
    Symbols symbols;
    for (const auto part : text::splitText(*plain, "-")) {
        auto sounds = soundsOf(std::string(part), reader.dictionary());
        std::move(sounds.begin(), sounds.end(), std::back_inserter(symbols));
    }
    return countNuclei(symbols) == 0 ? Syllables() : dividedIntoSyllables(symbols);
}

// Whether kana can be meant though nothing around the word is Japanese: there are three morae or
// more, and no sound that only loanwords have.
bool looksJapanese(std::u32string_view kana) {
    constexpr std::u32string_view kOfLoanwords = U"ぁぃぅぇぉゔ";
    const auto morae = std::count_if(kana.begin(), kana.end(), [](char32_t character) {
        return !isOneOf(character, U"ゃゅょんっー");
    });
    const auto voicedAfterStop = [](char32_t stop, char32_t next) {
        return stop == U'っ' && isOneOf(next, U"がぎぐげござじずぜぞだぢづでどばびぶべぼ");
    };
    return morae >= 3 && kana.find_first_of(kOfLoanwords) == kana.npos &&
           std::adjacent_find(kana.begin(), kana.end(), voicedAfterStop) == kana.end();
}

struct Kana {
    std::u32string text;
    bool comesFirst;
};

std::optional<Kana> romajiOf(std::u32string_view word, bool isAmongKana) {
    auto kana = kanaOf(word);
    return kana ? std::optional(Kana{*kana, isAmongKana || looksJapanese(*kana)}) : std::nullopt;
}

// Neighbours of a word. A guess says how many syllables the one that was meant has.
std::vector<std::u32string> likelyNeighbours(const std::u32string& word, LyricReader& reader,
                                             const Syllables& guess, std::size_t most) {
    constexpr std::size_t kMostTried = 50;
    auto neighbours = knownNeighbours(word, reader, kMostTried);
    if (!guess.empty()) {
        const auto isUnlike = [&](const auto& neighbour) {
            return reader.syllablesOf(utf8Of(neighbour)).size() != guess.size();
        };
        neighbours.erase(std::remove_if(neighbours.begin(), neighbours.end(), isUnlike),
                         neighbours.end());
    }
    neighbours.resize(std::min(neighbours.size(), most));
    return neighbours;
}

} // namespace

std::vector<Proposal> proposalsFor(std::u32string_view word, LyricReader& reader,
                                   bool isAmongKana) {
    const std::u32string text(word);
    std::vector<Proposal> proposals;
    auto respellings = respellingsOf(word, reader.dictionary());
    respellings.resize(std::min(respellings.size(), kMostRespellings));
    for (auto& respelling : respellings) {
        proposals.push_back({text, std::move(respelling.syllables)});
    }
    const auto kana = romajiOf(word, isAmongKana);
    if (kana && kana->comesFirst) {
        proposals.push_back({kana->text, {}});
    }
    const auto guess = respellings.empty() ? guessOf(word, reader) : Syllables();
    const bool isKanaLast = kana && !kana->comesFirst;
    const auto room =
        kMostProposals - proposals.size() - (guess.empty() ? 0 : 1) - (isKanaLast ? 1 : 0);
    for (auto& neighbour : likelyNeighbours(text, reader, guess, room)) {
        proposals.push_back({std::move(neighbour), {}});
    }
    if (!guess.empty()) {
        proposals.push_back({text, guess, true});
    }
    if (isKanaLast) {
        proposals.push_back({kana->text, {}});
    }
    return proposals;
}

std::vector<Syllables> pronunciationsOf(std::u32string_view word, LyricReader& reader,
                                        bool isAmongKana) {
    std::vector<Syllables> pronunciations;
    for (auto& respelling : respellingsOf(word, reader.dictionary())) {
        pronunciations.push_back(std::move(respelling.syllables));
    }
    auto guess = guessOf(word, reader);
    if (!guess.empty()) {
        pronunciations.push_back(std::move(guess));
    }
    if (const auto kana = romajiOf(word, isAmongKana)) {
        const auto place = kana->comesFirst ? pronunciations.begin() : pronunciations.end();
        pronunciations.insert(place, reader.syllablesOf(utf8Of(kana->text)));
    }
    return pronunciations;
}

} // namespace wybeta::wysim::words
