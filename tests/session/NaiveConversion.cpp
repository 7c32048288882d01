// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/session/NaiveConversion.h"

#include <utf8cpp/utf8.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <regex>
#include <string_view>

namespace wybeta::tests {

namespace {

using Texts = std::vector<std::string>;

const std::map<std::u32string, std::string> kKana = {
    {U"ア", "a"},       {U"カ", "k a"},     {U"キ", "k i"},    {U"ク", "k u"},
    {U"サ", "s a"},     {U"ス", "s u"},     {U"ツ", "ts u"},   {U"テ", "t e"},
    {U"フ", "f u"},     {U"ラ", "r a"},     {U"ヴ", "v u"},    {U"ヲ", "wo"},
    {U"ン", "N"},       {U"ッ", "cl"},      {U"ー", "-"},      {U"ャ", "y a"},
    {U"ィ", "i"},       {U"キャ", "ky a"},  {U"テャ", "ty a"}, {U"フャ", "f y a"},
    {U"ヴャ", "v y a"}, {U"クィ", "k w i"}, {U"スィ", "s i"},  {U"ツィ", "ts i"},
    {U"ティ", "t i"},   {U"フィ", "f i"},   {U"ヴィ", "v i"},
};

struct Word {
    std::string phonemes;
    std::string spelling;
};

// Every syllable of these has a vowel.
const std::map<std::string, Word> kWords = {
    {"3d", {"th r iy . d iy", "3 . d"}},
    {"a", {"ah", "a"}},
    {"a(1)", {"ey", "a . (1)"}},
    {"abandon", {"ah . b ae n . d ah n", "a . ba . ndo . n"}},
    {"ceo", {"s iy . iy . ow", "ceo"}},
    {"don't", {"d ow n t", "do . n't"}},
    {"every", {"eh . v er . iy", "e . ve . ry"}},
    {"every(1)", {"eh v . r iy", "e . ve . ry . (1)"}},
    {"gorgeous", {"g ao r . jh ah s", "go . rgeous . s"}},
    {"hello", {"hh ah . l ow", "he . llo"}},
    {"idea", {"ay . d iy . ah", "i . de . a"}},
    {"love", {"l ah v", "lo . ve"}},
    {"mr.", {"m ih . s t er", "m . r."}},
    {"rhythm", {"r ih . dh ah m", "rhy . thm"}},
    {"the", {"dh ah", "the"}},
    {"world", {"w er l d", "wo . rld"}},
};

const Texts kVowels = {"ih", "eh", "ae", "aa", "ah", "uh", "iy", "uw",
                       "ao", "er", "ey", "ay", "oy", "ow", "aw"};

std::string trimmed(const std::string& text) {
    const auto first = text.find_first_not_of(" \t\n\v\f\r");
    if (first == std::string::npos) {
        return "";
    }
    return text.substr(first, text.find_last_not_of(" \t\n\v\f\r") + 1 - first);
}

Texts cut(const std::string& text, char delimiter) {
    Texts pieces(1);
    for (const char c : text) {
        if (c == delimiter) {
            pieces.emplace_back();
        } else {
            pieces.back() += c;
        }
    }
    for (auto& piece : pieces) {
        piece = trimmed(piece);
    }
    return pieces;
}

Texts symbolsOf(const std::string& syllable) {
    Texts symbols = cut(syllable, ' ');
    symbols.erase(std::remove(symbols.begin(), symbols.end(), ""), symbols.end());
    return symbols;
}

std::string joined(const Texts& pieces, std::size_t begin, std::size_t end) {
    std::string text;
    for (std::size_t i = begin; i < end; ++i) {
        text += (i > begin ? " " : "") + pieces[i];
    }
    return text;
}

std::string withoutHyphens(std::string text) {
    text.erase(std::remove(text.begin(), text.end(), '-'), text.end());
    return text;
}

void rest(Texts& items) {
    if (items.empty()) {
        items.push_back("sil");
        return;
    }
    const Texts symbols = symbolsOf(items.back());
    items.back() = symbols.size() < 2 ? "sil" : joined(symbols, 0, symbols.size() - 1);
}

// The written syllable that holds the letter; the first when none does.
std::size_t writtenSyllable(const Texts& written, int letter) {
    int end = 0;
    for (std::size_t k = 0; k < written.size(); ++k) {
        end += static_cast<int>(written[k].size());
        if (letter < end) {
            return k;
        }
    }
    return 0;
}

std::vector<int> countHyphens(const std::string& typed, const Word& word, std::size_t syllables) {
    const Texts written = cut(word.spelling, '.');
    std::vector<int> counts(syllables);
    int letter = -1;
    for (const char c : typed) {
        if (c == '-') {
            ++counts[std::min(writtenSyllable(written, letter), syllables - 1)];
        } else {
            ++letter;
        }
    }
    return counts;
}

void appendCut(Texts& items, const std::string& syllable, int hyphens) {
    const Texts symbols = symbolsOf(syllable);
    std::size_t end = 0;
    while (std::find(kVowels.begin(), kVowels.end(), symbols[end]) == kVowels.end()) {
        ++end;
    }
    ++end;
    items.push_back(joined(symbols, 0, end));
    items.insert(items.end(), static_cast<std::size_t>(hyphens), "-");
    items.back() += " " + joined(symbols, end, symbols.size());
}

void appendWord(Texts& items, const std::u32string& codePoints) {
    std::string typed = utf8::utf32to8(codePoints);
    for (char& c : typed) {
        if (c >= 'A' && c <= 'Z') {
            c = static_cast<char>(c - 'A' + 'a');
        }
    }
    if (typed == "0") {
        rest(items);
        return;
    }
    const auto word = kWords.find(withoutHyphens(typed));
    if (word == kWords.end()) {
        return;
    }
    const Texts syllables = cut(word->second.phonemes, '.');
    const auto hyphens = countHyphens(typed, word->second, syllables.size());
    for (std::size_t k = 0; k < syllables.size(); ++k) {
        if (hyphens[k] == 0) {
            items.push_back(syllables[k]);
        } else {
            appendCut(items, syllables[k], hyphens[k]);
        }
    }
}

// What the table has for the kana there, if they are `count` kana that it knows.
const std::string* findKana(const std::u32string& text, std::size_t position, std::size_t count) {
    std::u32string key = text.substr(position, count);
    for (char32_t& c : key) {
        if (c >= U'ぁ' && c <= U'ゔ') {
            c += U'ァ' - U'ぁ';
        }
    }
    const auto place = kKana.find(key);
    return key.size() == count && place != kKana.end() ? &place->second : nullptr;
}

Texts syllablesOf(const std::u32string& text) {
    Texts items;
    std::u32string word;
    const auto endWord = [&items, &word] {
        if (!word.empty()) {
            appendWord(items, word);
            word.clear();
        }
    };
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char32_t c = text[i];
        if (c == U' ') {
            endWord();
        } else if (const auto* const pair = findKana(text, i, 2)) {
            if (!word.empty()) {
                word += c;
            }
            endWord();
            items.push_back(*pair);
            ++i;
        } else if (const auto* const single = findKana(text, i, 1)) {
            endWord();
            items.push_back(*single);
        } else if (!word.empty() || (c >= 0x21 && c <= 0x7E)) {
            word += c;
        }
    }
    endWord();
    return items;
}

Texts wrapped(const std::string& head, const Texts& items) {
    Texts texts;
    for (const auto& item : items) {
        texts.push_back("[" + item + "]");
    }
    texts.front() = head + texts.front();
    return texts;
}

} // namespace

std::vector<std::string> naiveNoteLyrics(const std::string& lyric) {
    static const std::regex brackets("(.*)\\[(.*)\\]");
    std::smatch match;
    if (std::regex_search(lyric, match, brackets)) {
        return wrapped(match[1], cut(match[2], ','));
    }
    const Texts syllables = syllablesOf(utf8::utf8to32(lyric));
    return syllables.empty() ? Texts{lyric} : wrapped(lyric, syllables);
}

} // namespace wybeta::tests
