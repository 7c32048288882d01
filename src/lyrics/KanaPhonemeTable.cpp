// SPDX-License-Identifier: GPL-3.0-or-later
#include "lyrics/KanaPhonemeTable.h"

#include <cstdint>
#include <stdexcept>

namespace wybeta::lyrics {

namespace {

// clang-format off: the tables are laid out like a syllabary chart.

constexpr std::array<KanaEntry, KanaPhonemeTable::kSingleCount> kSingles{{
    {U'ァ', 0, "a"},    {U'ア', 0, "a"},   {U'ィ', 0, "i"},    {U'イ', 0, "i"},   {U'ゥ', 0, "u"},
    {U'ウ', 0, "u"},    {U'ェ', 0, "e"},   {U'エ', 0, "e"},    {U'ォ', 0, "o"},   {U'オ', 0, "o"},

    {U'カ', 0, "k a"},  {U'ガ', 0, "g a"}, {U'キ', 0, "k i"},  {U'ギ', 0, "g i"}, {U'ク', 0, "k u"},
    {U'グ', 0, "g u"},  {U'ケ', 0, "k e"}, {U'ゲ', 0, "g e"},  {U'コ', 0, "k o"}, {U'ゴ', 0, "g o"},

    {U'サ', 0, "s a"},  {U'ザ', 0, "z a"}, {U'シ', 0, "sh i"}, {U'ジ', 0, "j i"}, {U'ス', 0, "s u"},
    {U'ズ', 0, "z u"},  {U'セ', 0, "s e"}, {U'ゼ', 0, "z e"},  {U'ソ', 0, "s o"}, {U'ゾ', 0, "z o"},

    {U'タ', 0, "t a"},  {U'ダ', 0, "d a"}, {U'チ', 0, "ch i"}, {U'ヂ', 0, "j i"}, {U'ッ', 0, "cl"},
    {U'ツ', 0, "ts u"}, {U'ヅ', 0, "z u"}, {U'テ', 0, "t e"},  {U'デ', 0, "d e"}, {U'ト', 0, "t o"},
    {U'ド', 0, "d o"},

    {U'ナ', 0, "n a"},  {U'ニ', 0, "n i"}, {U'ヌ', 0, "n u"},  {U'ネ', 0, "n e"}, {U'ノ', 0, "n o"},

    {U'ハ', 0, "h a"},  {U'バ', 0, "b a"}, {U'パ', 0, "p a"},  {U'ヒ', 0, "h i"}, {U'ビ', 0, "b i"},
    {U'ピ', 0, "p i"},  {U'フ', 0, "f u"}, {U'ブ', 0, "b u"},  {U'プ', 0, "p u"}, {U'ヘ', 0, "h e"},
    {U'ベ', 0, "b e"},  {U'ペ', 0, "p e"}, {U'ホ', 0, "h o"},  {U'ボ', 0, "b o"}, {U'ポ', 0, "p o"},

    {U'マ', 0, "m a"},  {U'ミ', 0, "m i"}, {U'ム', 0, "m u"},  {U'メ', 0, "m e"}, {U'モ', 0, "m o"},

    {U'ャ', 0, "y a"},  {U'ヤ', 0, "y a"}, {U'ュ', 0, "y u"},  {U'ユ', 0, "y u"}, {U'ョ', 0, "y o"},
    {U'ヨ', 0, "y o"},

    {U'ラ', 0, "r a"},  {U'リ', 0, "r i"}, {U'ル', 0, "r u"},  {U'レ', 0, "r e"}, {U'ロ', 0, "r o"},

    {U'ヮ', 0, "w a"},  {U'ワ', 0, "w a"}, {U'ヰ', 0, "i"},    {U'ヱ', 0, "e"},   {U'ヲ', 0, "wo"},

    {U'ン', 0, "N"},    {U'ヴ', 0, "v u"}, {U'ー', 0, "-"},
}};

constexpr std::array<KanaEntry, KanaPhonemeTable::kPairCount> kPairs{{
    {U'キ', U'ャ', "ky a"},  {U'ギ', U'ャ', "gy a"},  {U'キ', U'ュ', "ky u"},
    {U'ギ', U'ュ', "gy u"},  {U'キ', U'ェ', "ky e"},  {U'ギ', U'ェ', "gy e"},
    {U'キ', U'ョ', "ky o"},  {U'ギ', U'ョ', "gy o"},

    {U'シ', U'ャ', "sh a"},  {U'ジ', U'ャ', "j a"},   {U'シ', U'ュ', "sh u"},
    {U'ジ', U'ュ', "j u"},   {U'シ', U'ェ', "sh e"},  {U'ジ', U'ェ', "j e"},
    {U'シ', U'ョ', "sh o"},  {U'ジ', U'ョ', "j o"},

    {U'チ', U'ャ', "ch a"},  {U'ヂ', U'ャ', "j a"},   {U'チ', U'ュ', "ch u"},
    {U'ヂ', U'ュ', "j u"},   {U'チ', U'ェ', "ch e"},  {U'ヂ', U'ェ', "j e"},
    {U'チ', U'ョ', "ch o"},  {U'ヂ', U'ョ', "j o"},

    {U'テ', U'ャ', "ty a"},  {U'デ', U'ャ', "dy a"},  {U'テ', U'ィ', "t i"},
    {U'デ', U'ィ', "d i"},   {U'テ', U'ュ', "ty u"},  {U'デ', U'ュ', "dy u"},
    {U'テ', U'ェ', "ty e"},  {U'デ', U'ェ', "dy e"},  {U'テ', U'ョ', "ty o"},
    {U'デ', U'ョ', "dy o"},

    {U'ニ', U'ャ', "ny a"},  {U'ニ', U'ュ', "ny u"},  {U'ニ', U'ェ', "ny e"},
    {U'ニ', U'ョ', "ny o"},

    {U'ヒ', U'ャ', "hy a"},  {U'ビ', U'ャ', "by a"},  {U'ピ', U'ャ', "py a"},
    {U'ヒ', U'ュ', "hy u"},  {U'ビ', U'ュ', "by u"},  {U'ピ', U'ュ', "py u"},
    {U'ヒ', U'ェ', "hy e"},  {U'ビ', U'ェ', "by e"},  {U'ピ', U'ェ', "py e"},
    {U'ヒ', U'ョ', "hy o"},  {U'ビ', U'ョ', "by o"},  {U'ピ', U'ョ', "py o"},

    {U'ミ', U'ャ', "my a"},  {U'ミ', U'ュ', "my u"},  {U'ミ', U'ェ', "my e"},
    {U'ミ', U'ョ', "my o"},

    {U'リ', U'ャ', "ry a"},  {U'リ', U'ュ', "ry u"},  {U'リ', U'ェ', "ry e"},
    {U'リ', U'ョ', "ry o"},

    {U'フ', U'ャ', "f y a"}, {U'ヴ', U'ャ', "v y a"}, {U'フ', U'ュ', "f y u"},
    {U'ヴ', U'ュ', "v y u"},

    {U'ク', U'ァ', "k w a"}, {U'グ', U'ァ', "g w a"}, {U'ク', U'ィ', "k w i"},
    {U'グ', U'ィ', "g w i"}, {U'ク', U'ゥ', "k w u"}, {U'グ', U'ゥ', "g w u"},
    {U'ク', U'ェ', "k w e"}, {U'グ', U'ェ', "g w e"}, {U'ク', U'ォ', "k w o"},
    {U'グ', U'ォ', "g w o"},

    {U'ブ', U'ァ', "b w a"}, {U'ブ', U'ィ', "b w i"}, {U'ブ', U'ェ', "b w e"},
    {U'ブ', U'ォ', "b w o"}, {U'プ', U'ァ', "p w a"}, {U'プ', U'ィ', "p w i"},
    {U'プ', U'ェ', "p w e"}, {U'プ', U'ォ', "p w o"},

    {U'ウ', U'ィ', "w i"},   {U'ウ', U'ェ', "w e"},   {U'ウ', U'ォ', "w o"},

    {U'ス', U'ィ', "s i"},   {U'ズ', U'ィ', "z i"},

    {U'ツ', U'ァ', "ts a"},  {U'ツ', U'ィ', "ts i"},  {U'ツ', U'ェ', "ts e"},
    {U'ツ', U'ォ', "ts o"},

    {U'ド', U'ゥ', "d u"},

    {U'フ', U'ァ', "f a"},   {U'ヴ', U'ァ', "v a"},   {U'フ', U'ィ', "f i"},
    {U'ヴ', U'ィ', "v i"},   {U'フ', U'ェ', "f e"},   {U'ヴ', U'ェ', "v e"},
    {U'フ', U'ォ', "f o"},   {U'ヴ', U'ォ', "v o"},

    {U'ト', U'ゥ', "t u"},   {U'ド', U'ゥ', "d u"},

    {U'ィ', U'ェ', "y e"},   {U'イ', U'ェ', "y e"},
}};

// clang-format on

// A lost row would leave empty entries at the end.
static_assert(!kSingles.back().phonemes.empty() && !kPairs.back().phonemes.empty());

// What the charts may hold: the katakana of a range, and the mark.
constexpr char32_t kFirstKatakana = U'ァ';
constexpr char32_t kLastKatakana = U'ヴ';
constexpr char32_t kLongVowelMark = U'ー';
constexpr char32_t kHiraganaToKatakana = U'ァ' - U'ぁ';

constexpr bool isKatakana(char32_t character) {
    return character >= kFirstKatakana && character <= kLastKatakana;
}

// The stored form of a kana; 0 for every other code point.
constexpr char32_t foldKana(char32_t input) {
    if (isKatakana(input + kHiraganaToKatakana)) {
        return input + kHiraganaToKatakana;
    }
    return isKatakana(input) || input == kLongVowelMark ? input : 0;
}

constexpr std::size_t kSlots = kLastKatakana - kFirstKatakana + 3;

// The place of a stored kana in the tables below; 0 for none.
constexpr std::size_t slotOf(char32_t stored) {
    if (stored == 0 || stored == kLongVowelMark) {
        return stored == 0 ? 0 : kSlots - 1;
    }
    return isKatakana(stored) ? stored - kFirstKatakana + 1 : throw std::out_of_range("katakana");
}

// Where a chart has its first entry of each two kana: its position plus one, 0 where it has none.
using Positions = std::array<std::array<std::uint8_t, kSlots>, kSlots>;

// A row without its kana, or with one out of range, throws and so ends the build.
template <std::size_t Size>
constexpr Positions positionsIn(const std::array<KanaEntry, Size>& chart, bool arePairs) {
    static_assert(Size < 256);
    Positions positions{};
    for (std::size_t i = Size; i-- > 0;) {
        if (chart[i].first == 0 || (chart[i].second != 0) != arePairs) {
            throw std::invalid_argument("row");
        }
        positions[slotOf(chart[i].first)][slotOf(chart[i].second)] =
            static_cast<std::uint8_t>(i + 1);
    }
    return positions;
}

constexpr Positions kSinglePositions = positionsIn(kSingles, false);
constexpr Positions kPairPositions = positionsIn(kPairs, true);

} // namespace

const std::array<KanaEntry, KanaPhonemeTable::kSingleCount>& KanaPhonemeTable::singles() {
    return kSingles;
}

const std::array<KanaEntry, KanaPhonemeTable::kPairCount>& KanaPhonemeTable::pairs() {
    return kPairs;
}

bool kanaEquals(char32_t input, char32_t stored) {
    return stored != 0 && foldKana(input) == stored;
}

const KanaEntry* findKanaPair(std::u32string_view text, std::size_t i) {
    if (text.size() < 2 || i > text.size() - 2) {
        return nullptr;
    }
    const auto position = kPairPositions[slotOf(foldKana(text[i]))][slotOf(foldKana(text[i + 1]))];
    return position != 0 ? &kPairs[position - 1] : nullptr;
}

const KanaEntry* findKanaSingle(std::u32string_view text, std::size_t i) {
    const auto kana = i < text.size() ? foldKana(text[i]) : 0;
    const auto position = kSinglePositions[slotOf(kana)][0];
    return position != 0 ? &kSingles[position - 1] : nullptr;
}

} // namespace wybeta::lyrics
