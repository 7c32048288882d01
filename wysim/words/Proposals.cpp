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

// Whether kana may be meant though nothing around the word is Japanese: no sound that only
// loanwords have, no vowel three times.
bool mayBeJapanese(std::u32string_view kana) {
    constexpr std::u32string_view kOfLoanwords = U"ぁぃぅぇぉゔ";
    constexpr std::u32string_view kVoiced = U"がぎぐげござじずぜぞだぢづでどばびぶべぼ";
    for (std::size_t i = 0; i < kana.size(); ++i) {
        const bool isVoicedAfterStop = i > 0 && kana[i - 1] == U'っ' && isOneOf(kana[i], kVoiced);
        const bool isThirdVowel = i > 1 && kana[i] == kana[i - 1] && kana[i] == kana[i - 2];
        if (isVoicedAfterStop || isThirdVowel || isOneOf(kana[i], kOfLoanwords)) {
            return false;
        }
    }
    return true;
}

// Whether they are likelier than an English word: three morae or more, and no "ee" or "oo".
bool isProbablyJapanese(std::u32string_view word, std::u32string_view kana) {
    const auto morae = std::count_if(kana.begin(), kana.end(), [](char32_t character) {
        return !isOneOf(character, U"ゃゅょんっー");
    });
    return morae >= 3 && word.find(U"ee") == std::u32string_view::npos &&
           word.find(U"oo") == std::u32string_view::npos;
}

struct Kana {
    std::u32string text;
    bool comesFirst;
};

std::optional<Kana> romajiOf(std::u32string_view word, bool isAmongKana) {
    auto kana = kanaOf(word);
    return kana && (isAmongKana || mayBeJapanese(*kana))
               ? std::optional(Kana{*kana, isAmongKana || isProbablyJapanese(word, *kana)})
               : std::nullopt;
}

// The word with each letter that stands three times or more that often, "yeahhhh".
std::u32string shortened(std::u32string_view word, std::size_t times) {
    std::u32string text;
    for (std::size_t i = 0; i < word.size();) {
        const auto end = std::min(word.find_first_not_of(word[i], i), word.size());
        text.append(end - i < 3 ? end - i : times, word[i]);
        i = end;
    }
    return text;
}

// Respellings of the word, and of one whose letters are drawn out.
std::vector<Respelling> allRespellings(std::u32string_view word, LyricReader& reader) {
    std::vector<Respelling> respellings;
    for (const std::size_t times : {std::size_t{2}, std::size_t{1}}) {
        const auto text = shortened(word, times);
        if (text != word && word.size() <= kLongestGuessed && respellings.empty() &&
            reader.hasWord(utf8Of(text))) {
            respellings.push_back({reader.syllablesOf(utf8Of(text)), {utf8Of(text)}});
        }
    }
    auto more = respellingsOf(word, reader.dictionary());
    std::move(more.begin(), more.end(), std::back_inserter(respellings));
    return respellings;
}

// The words of the dictionary that respellings come from, where these are one word each.
std::vector<std::u32string> originsOf(const std::vector<Respelling>& respellings) {
    std::vector<std::u32string> origins;
    for (const auto& [syllables, words] : respellings) {
        const auto origin = words.size() == 1 ? charactersOf(words.front()) : std::u32string();
        if (!origin.empty() && origin.find(U'(') == std::u32string::npos &&
            std::find(origins.begin(), origins.end(), origin) == origins.end()) {
            origins.push_back(origin);
        }
    }
    return origins;
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
    auto respellings = allRespellings(word, reader);
    const auto kana = romajiOf(word, isAmongKana);
    const bool isKanaFirst = kana && kana->comesFirst && (isAmongKana || respellings.empty());
    if (isKanaFirst) {
        proposals.push_back({kana->text, {}});
    }
    respellings.resize(std::min(respellings.size(), kMostRespellings));
    for (const auto& respelling : respellings) {
        proposals.push_back({text, respelling.syllables});
    }
    const auto guess = respellings.empty() ? guessOf(word, reader) : Syllables();
    const auto room = kMostProposals - proposals.size() - (guess.empty() ? 0 : 1) -
                      (kana && !isKanaFirst ? 1 : 0);
    auto others =
        respellings.empty() ? likelyNeighbours(text, reader, guess, room) : originsOf(respellings);
    others.resize(std::min(others.size(), room));
    for (auto& other : others) {
        proposals.push_back({std::move(other), {}});
    }
    if (!guess.empty()) {
        proposals.push_back({text, guess, true});
    }
    if (kana && !isKanaFirst) {
        proposals.push_back({kana->text, {}});
    }
    return proposals;
}

std::vector<Pronunciation> pronunciationsOf(std::u32string_view word, LyricReader& reader,
                                            bool isAmongKana) {
    std::vector<Pronunciation> pronunciations;
    for (auto& proposal : proposalsFor(word, reader, isAmongKana)) {
        if (!proposal.syllables.empty()) {
            pronunciations.push_back({std::move(proposal.syllables), proposal.isGuess});
        }
    }
    if (const auto kana = romajiOf(word, isAmongKana)) {
        const bool isFirst = kana->comesFirst && (isAmongKana || pronunciations.empty() ||
                                                  pronunciations.front().isGuess);
        pronunciations.insert(isFirst ? pronunciations.begin() : pronunciations.end(),
                              {reader.syllablesOf(utf8Of(kana->text)), false});
    }
    return pronunciations;
}

} // namespace wybeta::wysim::words
