// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/model/NaiveConversion.h"

#include <utf8cpp/utf8.h>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <map>
#include <regex>
#include <sstream>

namespace wybeta::tests {

namespace {

using Texts = std::vector<std::string>;

const std::map<std::u32string, std::string> kKana = {
    {U"ァ", "a"},       {U"ア", "a"},       {U"ィ", "i"},       {U"イ", "i"},
    {U"ゥ", "u"},       {U"ウ", "u"},       {U"ェ", "e"},       {U"エ", "e"},
    {U"ォ", "o"},       {U"オ", "o"},       {U"カ", "k a"},     {U"ガ", "g a"},
    {U"キ", "k i"},     {U"ギ", "g i"},     {U"ク", "k u"},     {U"グ", "g u"},
    {U"ケ", "k e"},     {U"ゲ", "g e"},     {U"コ", "k o"},     {U"ゴ", "g o"},
    {U"サ", "s a"},     {U"ザ", "z a"},     {U"シ", "sh i"},    {U"ジ", "j i"},
    {U"ス", "s u"},     {U"ズ", "z u"},     {U"セ", "s e"},     {U"ゼ", "z e"},
    {U"ソ", "s o"},     {U"ゾ", "z o"},     {U"タ", "t a"},     {U"ダ", "d a"},
    {U"チ", "ch i"},    {U"ヂ", "j i"},     {U"ッ", "cl"},      {U"ツ", "ts u"},
    {U"ヅ", "z u"},     {U"テ", "t e"},     {U"デ", "d e"},     {U"ト", "t o"},
    {U"ド", "d o"},     {U"ナ", "n a"},     {U"ニ", "n i"},     {U"ヌ", "n u"},
    {U"ネ", "n e"},     {U"ノ", "n o"},     {U"ハ", "h a"},     {U"バ", "b a"},
    {U"パ", "p a"},     {U"ヒ", "h i"},     {U"ビ", "b i"},     {U"ピ", "p i"},
    {U"フ", "f u"},     {U"ブ", "b u"},     {U"プ", "p u"},     {U"ヘ", "h e"},
    {U"ベ", "b e"},     {U"ペ", "p e"},     {U"ホ", "h o"},     {U"ボ", "b o"},
    {U"ポ", "p o"},     {U"マ", "m a"},     {U"ミ", "m i"},     {U"ム", "m u"},
    {U"メ", "m e"},     {U"モ", "m o"},     {U"ャ", "y a"},     {U"ヤ", "y a"},
    {U"ュ", "y u"},     {U"ユ", "y u"},     {U"ョ", "y o"},     {U"ヨ", "y o"},
    {U"ラ", "r a"},     {U"リ", "r i"},     {U"ル", "r u"},     {U"レ", "r e"},
    {U"ロ", "r o"},     {U"ヮ", "w a"},     {U"ワ", "w a"},     {U"ヰ", "i"},
    {U"ヱ", "e"},       {U"ヲ", "wo"},      {U"ン", "N"},       {U"ヴ", "v u"},
    {U"ー", "-"},       {U"キャ", "ky a"},  {U"ギャ", "gy a"},  {U"キュ", "ky u"},
    {U"ギュ", "gy u"},  {U"キェ", "ky e"},  {U"ギェ", "gy e"},  {U"キョ", "ky o"},
    {U"ギョ", "gy o"},  {U"シャ", "sh a"},  {U"ジャ", "j a"},   {U"シュ", "sh u"},
    {U"ジュ", "j u"},   {U"シェ", "sh e"},  {U"ジェ", "j e"},   {U"ショ", "sh o"},
    {U"ジョ", "j o"},   {U"チャ", "ch a"},  {U"ヂャ", "j a"},   {U"チュ", "ch u"},
    {U"ヂュ", "j u"},   {U"チェ", "ch e"},  {U"ヂェ", "j e"},   {U"チョ", "ch o"},
    {U"ヂョ", "j o"},   {U"テャ", "ty a"},  {U"デャ", "dy a"},  {U"ティ", "t i"},
    {U"ディ", "d i"},   {U"テュ", "ty u"},  {U"デュ", "dy u"},  {U"テェ", "ty e"},
    {U"デェ", "dy e"},  {U"テョ", "ty o"},  {U"デョ", "dy o"},  {U"ニャ", "ny a"},
    {U"ニュ", "ny u"},  {U"ニェ", "ny e"},  {U"ニョ", "ny o"},  {U"ヒャ", "hy a"},
    {U"ビャ", "by a"},  {U"ピャ", "py a"},  {U"ヒュ", "hy u"},  {U"ビュ", "by u"},
    {U"ピュ", "py u"},  {U"ヒェ", "hy e"},  {U"ビェ", "by e"},  {U"ピェ", "py e"},
    {U"ヒョ", "hy o"},  {U"ビョ", "by o"},  {U"ピョ", "py o"},  {U"ミャ", "my a"},
    {U"ミュ", "my u"},  {U"ミェ", "my e"},  {U"ミョ", "my o"},  {U"リャ", "ry a"},
    {U"リュ", "ry u"},  {U"リェ", "ry e"},  {U"リョ", "ry o"},  {U"フャ", "f y a"},
    {U"ヴャ", "v y a"}, {U"フュ", "f y u"}, {U"ヴュ", "v y u"}, {U"クァ", "k w a"},
    {U"グァ", "g w a"}, {U"クィ", "k w i"}, {U"グィ", "g w i"}, {U"クゥ", "k w u"},
    {U"グゥ", "g w u"}, {U"クェ", "k w e"}, {U"グェ", "g w e"}, {U"クォ", "k w o"},
    {U"グォ", "g w o"}, {U"ブァ", "b w a"}, {U"ブィ", "b w i"}, {U"ブェ", "b w e"},
    {U"ブォ", "b w o"}, {U"プァ", "p w a"}, {U"プィ", "p w i"}, {U"プェ", "p w e"},
    {U"プォ", "p w o"}, {U"ウィ", "w i"},   {U"ウェ", "w e"},   {U"ウォ", "w o"},
    {U"スィ", "s i"},   {U"ズィ", "z i"},   {U"ツァ", "ts a"},  {U"ツィ", "ts i"},
    {U"ツェ", "ts e"},  {U"ツォ", "ts o"},  {U"ドゥ", "d u"},   {U"ファ", "f a"},
    {U"ヴァ", "v a"},   {U"フィ", "f i"},   {U"ヴィ", "v i"},   {U"フェ", "f e"},
    {U"ヴェ", "v e"},   {U"フォ", "f o"},   {U"ヴォ", "v o"},   {U"トゥ", "t u"},
    {U"ィェ", "y e"},   {U"イェ", "y e"},
};

const NaiveWords kWords = {
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

// A syllable is cut after the first symbol of the first group that has one of its symbols.
const std::vector<Texts> kNuclei = {{"ih", "eh", "ae", "aa", "ah", "uh", "ax", "iy",
                                     "uw", "ao", "er", "ey", "ay", "oy", "ow", "aw",
                                     "a",  "i",  "u",  "e",  "o",  "N"},
                                    {"w", "y", "m", "ng", "v", "z", "zh", "jh", "l"},
                                    {"f", "s", "th", "sh", "hh"}};

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
    std::istringstream stream(syllable);
    return {std::istream_iterator<std::string>(stream), std::istream_iterator<std::string>()};
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
        items.emplace_back("sil");
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

std::vector<int> countHyphens(const std::string& typed, const NaiveWord& word,
                              std::size_t syllables) {
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

std::size_t findNucleus(const Texts& symbols) {
    for (const auto& group : kNuclei) {
        for (std::size_t i = 0; i < symbols.size(); ++i) {
            for (const auto& member : group) {
                if (member.substr(0, symbols[i].size()) == symbols[i]) {
                    return i;
                }
            }
        }
    }
    return 0;
}

void appendCut(Texts& items, const std::string& syllable, int hyphens) {
    const Texts symbols = symbolsOf(syllable);
    const std::size_t end = std::min(findNucleus(symbols) + 1, symbols.size());
    items.push_back(joined(symbols, 0, end));
    items.insert(items.end(), static_cast<std::size_t>(hyphens), "-");
    items.back() += " " + joined(symbols, end, symbols.size());
}

void appendWord(Texts& items, const std::u32string& codePoints, const NaiveWords& words) {
    std::string typed = utf8::utf32to8(codePoints);
    for (char& c : typed) {
        if (c >= 'A' && c <= 'Z') {
            c = static_cast<char>(c - 'A' + 'a');
        }
    }
    if (typed == "0") {
        rest(items);
    }
    const auto word = words.find(withoutHyphens(typed));
    if (word == words.end()) {
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

Texts syllablesOf(const std::u32string& text, const NaiveWords& words) {
    Texts items;
    std::u32string word;
    const auto endWord = [&items, &word, &words] {
        if (!word.empty()) {
            appendWord(items, word, words);
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
    return naiveNoteLyrics(lyric, kWords);
}

std::vector<std::string> naiveNoteLyrics(const std::string& lyric, const NaiveWords& words) {
    static const std::regex brackets("(.*)\\[(.*)\\]");
    std::smatch match;
    if (std::regex_search(lyric, match, brackets)) {
        return wrapped(match[1], cut(match[2], ','));
    }
    const Texts syllables = syllablesOf(utf8::utf8to32(lyric), words);
    return syllables.empty() ? Texts{lyric} : wrapped(lyric, syllables);
}

} // namespace wybeta::tests
