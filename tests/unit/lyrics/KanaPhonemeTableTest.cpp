// SPDX-License-Identifier: GPL-3.0-or-later
#include "lyrics/KanaPhonemeTable.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace wybeta::lyrics {
namespace {

constexpr std::string_view kNone = "(none)";

std::string_view phonemesOf(const KanaEntry* entry) {
    return entry ? entry->phonemes : kNone;
}

std::string_view pairPhonemes(std::u32string_view text, std::size_t i = 0) {
    return phonemesOf(findKanaPair(text, i));
}

std::string_view singlePhonemes(std::u32string_view text, std::size_t i = 0) {
    return phonemesOf(findKanaSingle(text, i));
}

using Syllables = std::vector<std::string>;

// The syllables of a text when a pair is tried first at each position, as the lyric scan does.
Syllables syllables(std::u32string_view text) {
    Syllables result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (const KanaEntry* const pair = findKanaPair(text, i)) {
            result.emplace_back(pair->phonemes);
            ++i;
        } else if (const KanaEntry* const single = findKanaSingle(text, i)) {
            result.emplace_back(single->phonemes);
        }
    }
    return result;
}

// The hiragana for a katakana, if there is one: the long-vowel mark has none.
std::optional<char32_t> hiraganaOf(char32_t katakana) {
    const char32_t hiragana = katakana - 0x60;
    if (hiragana < 0x3041 || hiragana > 0x3094) {
        return std::nullopt;
    }
    return hiragana;
}

std::vector<char32_t> spellingsOf(char32_t katakana) {
    std::vector<char32_t> spellings{katakana};
    if (const auto hiragana = hiraganaOf(katakana)) {
        spellings.push_back(*hiragana);
    }
    return spellings;
}

bool isKanaOfTheTable(char32_t c) {
    return (c >= 0x3041 && c <= 0x3094) || (c >= 0x30A1 && c <= 0x30F4) || c == 0x30FC;
}

constexpr char32_t kSweepEnd = 0x10400;

// One line of a second, independently ordered chart: a consonant and its kana for one vowel each.
struct ChartLine {
    std::string_view consonant;
    std::u32string_view kana;
    std::string_view vowels;
};

constexpr ChartLine kSingleChart[] = {
    {"", U"アイウエオ", "aiueo"},
    {"", U"ァィゥェォ", "aiueo"},
    {"k ", U"カキクケコ", "aiueo"},
    {"g ", U"ガギグゲゴ", "aiueo"},
    {"s ", U"サスセソ", "aueo"},
    {"sh ", U"シ", "i"},
    {"z ", U"ザズヅゼゾ", "auueo"},
    {"j ", U"ジヂ", "ii"},
    {"t ", U"タテト", "aeo"},
    {"ch ", U"チ", "i"},
    {"ts ", U"ツ", "u"},
    {"d ", U"ダデド", "aeo"},
    {"n ", U"ナニヌネノ", "aiueo"},
    {"h ", U"ハヒヘホ", "aieo"},
    {"f ", U"フ", "u"},
    {"b ", U"バビブベボ", "aiueo"},
    {"p ", U"パピプペポ", "aiueo"},
    {"m ", U"マミムメモ", "aiueo"},
    {"y ", U"ヤユヨャュョ", "auoauo"},
    {"r ", U"ラリルレロ", "aiueo"},
    {"w ", U"ワヮ", "aa"},
    {"", U"ヰヱ", "ie"},
    {"w", U"ヲ", "o"},
    {"v ", U"ヴ", "u"},
    {"", U"ンー", "N-"},
    {"c", U"ッ", "l"},
};

// The same for pairs: one leading kana and the small kana that may follow it.
struct PairChartLine {
    std::string_view consonant;
    char32_t first;
    std::u32string_view small;
};

constexpr PairChartLine kPairChart[] = {
    {"ky ", U'キ', U"ャュェョ"},    {"gy ", U'ギ', U"ャュェョ"},  {"sh ", U'シ', U"ャュェョ"},
    {"j ", U'ジ', U"ャュェョ"},     {"ch ", U'チ', U"ャュェョ"},  {"j ", U'ヂ', U"ャュェョ"},
    {"ty ", U'テ', U"ャュェョ"},    {"t ", U'テ', U"ィ"},         {"dy ", U'デ', U"ャュェョ"},
    {"d ", U'デ', U"ィ"},           {"ny ", U'ニ', U"ャュェョ"},  {"hy ", U'ヒ', U"ャュェョ"},
    {"by ", U'ビ', U"ャュェョ"},    {"py ", U'ピ', U"ャュェョ"},  {"my ", U'ミ', U"ャュェョ"},
    {"ry ", U'リ', U"ャュェョ"},    {"f y ", U'フ', U"ャュ"},     {"v y ", U'ヴ', U"ャュ"},
    {"f ", U'フ', U"ァィェォ"},     {"v ", U'ヴ', U"ァィェォ"},   {"k w ", U'ク', U"ァィゥェォ"},
    {"g w ", U'グ', U"ァィゥェォ"}, {"b w ", U'ブ', U"ァィェォ"}, {"p w ", U'プ', U"ァィェォ"},
    {"w ", U'ウ', U"ィェォ"},       {"s ", U'ス', U"ィ"},         {"z ", U'ズ', U"ィ"},
    {"ts ", U'ツ', U"ァィェォ"},    {"t ", U'ト', U"ゥ"},         {"d ", U'ド', U"ゥ"},
    {"y ", U'ィ', U"ェ"},           {"y ", U'イ', U"ェ"},
};

constexpr std::u32string_view kPairsInOrder =
    U"キャギャキュギュキェギェキョギョシャジャシュジュシェジェショジョ"
    U"チャヂャチュヂュチェヂェチョヂョテャデャティディテュデュテェデェテョデョ"
    U"ニャニュニェニョヒャビャピャヒュビュピュヒェビェピェヒョビョピョ"
    U"ミャミュミェミョリャリュリェリョフャヴャフュヴュ"
    U"クァグァクィグィクゥグゥクェグェクォグォブァブィブェブォプァプィプェプォ"
    U"ウィウェウォスィズィツァツィツェツォドゥファヴァフィヴィフェヴェフォヴォトゥドゥィェイェ";

char vowelOfSmallKana(char32_t kana) {
    constexpr std::u32string_view kSmallKana = U"ァィゥェォャュョ";
    return std::string_view("aiueoauo").at(kSmallKana.find(kana));
}

TEST(KanaPhonemeTable, HoldsEightyFiveSinglesAndAHundredAndTwoPairs) {
    EXPECT_EQ(KanaPhonemeTable::singles().size(), 85u);
    EXPECT_EQ(KanaPhonemeTable::pairs().size(), 102u);
}

TEST(KanaPhonemeTable, HoldsAsManyDistinctSyllablesAsTheChart) {
    std::set<std::string_view> singles;
    std::set<std::string_view> all;
    for (const KanaEntry& entry : KanaPhonemeTable::singles()) {
        singles.insert(entry.phonemes);
    }
    all = singles;
    for (const KanaEntry& entry : KanaPhonemeTable::pairs()) {
        all.insert(entry.phonemes);
    }
    EXPECT_EQ(singles.size(), 72u);
    EXPECT_EQ(all.size(), 168u);
}

TEST(KanaPhonemeTable, ListsTheSinglesInCodePointOrderWithTheLongVowelMarkLast) {
    const auto& singles = KanaPhonemeTable::singles();
    char32_t expected = 0x30A1;
    for (auto entry = singles.begin(); entry != singles.end() - 1; ++entry) {
        EXPECT_EQ(entry->first, expected++);
    }
    EXPECT_EQ(singles.back().first, char32_t{0x30FC});
}

TEST(KanaPhonemeTable, ListsThePairsInTheOrderOfSearch) {
    std::u32string listed;
    for (const KanaEntry& entry : KanaPhonemeTable::pairs()) {
        listed.append({entry.first, entry.second});
    }
    EXPECT_EQ(listed, kPairsInOrder);
}

TEST(KanaPhonemeTable, HasASmallKanaAsSecondKanaOfPairsOnly) {
    constexpr std::u32string_view kSmallKana = U"ァィゥェォャュョ";
    for (const KanaEntry& entry : KanaPhonemeTable::singles()) {
        EXPECT_EQ(entry.second, char32_t{0}) << entry.phonemes;
    }
    for (const KanaEntry& entry : KanaPhonemeTable::pairs()) {
        EXPECT_NE(kSmallKana.find(entry.second), kSmallKana.npos) << entry.phonemes;
    }
}

TEST(KanaPhonemeTable, WritesEverySyllableAsSymbolsJoinedByOneSpace) {
    const auto check = [](std::string_view phonemes) {
        ASSERT_FALSE(phonemes.empty());
        EXPECT_NE(phonemes.front(), ' ') << phonemes;
        EXPECT_NE(phonemes.back(), ' ') << phonemes;
        EXPECT_EQ(phonemes.find("  "), phonemes.npos) << phonemes;
        EXPECT_EQ(phonemes.find_first_of("[],"), phonemes.npos) << phonemes;
        EXPECT_TRUE(std::all_of(phonemes.begin(), phonemes.end(), [](char c) {
            return c >= 0x20 && c <= 0x7E;
        })) << phonemes;
    };
    for (const KanaEntry& entry : KanaPhonemeTable::singles()) {
        check(entry.phonemes);
    }
    for (const KanaEntry& entry : KanaPhonemeTable::pairs()) {
        check(entry.phonemes);
    }
}

TEST(KanaPhonemeTable, GivesTheSyllablesOfTheSingleChart) {
    std::size_t count = 0;
    for (const ChartLine& line : kSingleChart) {
        ASSERT_EQ(line.kana.size(), line.vowels.size()) << line.consonant;
        for (std::size_t i = 0; i < line.kana.size(); ++i, ++count) {
            EXPECT_EQ(singlePhonemes(line.kana, i), std::string(line.consonant) + line.vowels[i]);
        }
    }
    EXPECT_EQ(count, 85u);
}

TEST(KanaPhonemeTable, GivesTheSyllablesOfThePairChart) {
    std::size_t count = 0;
    for (const PairChartLine& line : kPairChart) {
        for (const char32_t small : line.small) {
            EXPECT_EQ(pairPhonemes(std::u32string{line.first, small}),
                      std::string(line.consonant) + vowelOfSmallKana(small));
            ++count;
        }
    }
    EXPECT_EQ(count, 101u); // one entry of the table is listed twice
}

TEST(KanaPhonemeTable, GivesEverySingleInBothScripts) {
    for (const KanaEntry& entry : KanaPhonemeTable::singles()) {
        for (const char32_t kana : spellingsOf(entry.first)) {
            EXPECT_EQ(singlePhonemes({&kana, 1}), entry.phonemes)
                << std::hex << std::uint32_t{kana};
        }
    }
}

TEST(KanaPhonemeTable, GivesEveryPairInBothScriptsAndInTheTwoMixedSpellings) {
    std::size_t spellings = 0;
    for (const KanaEntry& entry : KanaPhonemeTable::pairs()) {
        for (const char32_t first : spellingsOf(entry.first)) {
            for (const char32_t second : spellingsOf(entry.second)) {
                EXPECT_EQ(pairPhonemes(std::u32string{first, second}), entry.phonemes);
                ++spellings;
            }
        }
    }
    EXPECT_EQ(spellings, 4 * KanaPhonemeTable::kPairCount);
}

TEST(KanaPhonemeTable, RecognisesNoSingleOutsideTheTable) {
    for (char32_t c = 0; c < kSweepEnd; ++c) {
        ASSERT_EQ(findKanaSingle({&c, 1}, 0) != nullptr, isKanaOfTheTable(c))
            << std::hex << std::uint32_t{c};
    }
    for (const char32_t c : {char32_t{0x1B000}, char32_t{0x10FFFF}, char32_t{0x110000},
                             std::numeric_limits<char32_t>::max()}) {
        EXPECT_EQ(findKanaSingle({&c, 1}, 0), nullptr) << std::hex << std::uint32_t{c};
    }
}

TEST(KanaPhonemeTable, RecognisesNoPairWithAHalfOutsideTheTable) {
    std::set<char32_t> firsts;
    std::set<char32_t> seconds;
    for (const KanaEntry& entry : KanaPhonemeTable::pairs()) {
        for (const char32_t first : spellingsOf(entry.first)) {
            firsts.insert(first);
        }
        for (const char32_t second : spellingsOf(entry.second)) {
            seconds.insert(second);
        }
    }
    for (char32_t c = 0; c < kSweepEnd; ++c) {
        if (isKanaOfTheTable(c)) {
            continue;
        }
        for (const char32_t first : firsts) {
            const char32_t text[] = {first, c};
            ASSERT_EQ(findKanaPair({text, 2}, 0), nullptr) << std::hex << std::uint32_t{c};
        }
        for (const char32_t second : seconds) {
            const char32_t text[] = {c, second};
            ASSERT_EQ(findKanaPair({text, 2}, 0), nullptr) << std::hex << std::uint32_t{c};
        }
    }
}

TEST(KanaPhonemeTable, RecognisesNoPairOfKanaThatIsNotListed) {
    std::vector<char32_t> kana;
    for (char32_t c = 0; c < kSweepEnd; ++c) {
        if (isKanaOfTheTable(c)) {
            kana.push_back(c);
        }
    }
    std::size_t recognised = 0;
    for (const char32_t first : kana) {
        for (const char32_t second : kana) {
            const char32_t text[] = {first, second};
            recognised += findKanaPair({text, 2}, 0) != nullptr ? 1u : 0u;
        }
    }
    EXPECT_EQ(recognised, 4u * 101u);
}

TEST(KanaPhonemeTable, GivesTheSameSyllableForMixedScripts) {
    for (const auto text : {U"きゃ", U"キャ", U"キゃ", U"きャ"}) {
        EXPECT_EQ(syllables(text), Syllables{"ky a"});
    }
}

TEST(KanaPhonemeTable, GivesTwoSyllablesForAPairThatASpaceDivides) {
    EXPECT_EQ(syllables(U"キ ャ"), (Syllables{"k i", "y a"}));
    EXPECT_EQ(pairPhonemes(U"キ ャ"), kNone);
}

TEST(KanaPhonemeTable, GivesTwoSyllablesForASmallKanaThatFormsNoPair) {
    EXPECT_EQ(pairPhonemes(U"カャ"), kNone);
    EXPECT_EQ(syllables(U"カャ"), (Syllables{"k a", "y a"}));
}

TEST(KanaPhonemeTable, FoldsTheHiraganaVu) {
    EXPECT_EQ(singlePhonemes(U"\u3094"), "v u");
    EXPECT_EQ(pairPhonemes(U"\u3094ぁ"), "v a");
}

TEST(KanaPhonemeTable, GivesTheLongVowelMarkASyllableOfItsOwn) {
    EXPECT_EQ(syllables(U"ー"), Syllables{"-"});
    EXPECT_EQ(syllables(U"らー"), (Syllables{"r a", "-"}));
}

TEST(KanaPhonemeTable, GivesTheDoubledConsonantAndTheFinalNasalSyllablesOfTheirOwn) {
    EXPECT_EQ(syllables(U"っ"), Syllables{"cl"});
    EXPECT_EQ(syllables(U"ん"), Syllables{"N"});
    EXPECT_EQ(syllables(U"カッタン"), (Syllables{"k a", "cl", "t a", "N"}));
}

TEST(KanaPhonemeTable, DoesNotRecogniseTheKanaAndMarksBeyondItsRange) {
    constexpr char32_t kUnlisted[] = {0x3040, 0x3095, 0x3096, 0x3097, 0x309B, 0x309C, 0x309D,
                                      0x309E, 0x30A0, 0x30F5, 0x30F6, 0x30F7, 0x30F8, 0x30F9,
                                      0x30FA, 0x30FB, 0x30FD, 0x30FE, 0xFF71, 0xFF70};
    for (const char32_t c : kUnlisted) {
        EXPECT_EQ(findKanaSingle({&c, 1}, 0), nullptr) << std::hex << std::uint32_t{c};
    }
}

TEST(KanaPhonemeTable, WritesWoAsOneSymbolAndTheWoPairAsTwo) {
    EXPECT_EQ(singlePhonemes(U"ヲ"), "wo");
    EXPECT_EQ(pairPhonemes(U"ウォ"), "w o");
}

TEST(KanaPhonemeTable, SingsDiAndDuOfTheDRowLikeTheZRow) {
    EXPECT_EQ(singlePhonemes(U"ヂ"), "j i");
    EXPECT_EQ(singlePhonemes(U"ヅ"), "z u");
    for (const char32_t small : std::u32string_view(U"ャュェョ")) {
        EXPECT_EQ(pairPhonemes(std::u32string{U'ヂ', small}),
                  pairPhonemes(std::u32string{U'ジ', small}));
    }
}

TEST(KanaPhonemeTable, SingsTheOldKanaAsTheirModernSounds) {
    EXPECT_EQ(syllables(U"ヰ"), Syllables{"i"});
    EXPECT_EQ(syllables(U"ヱ"), Syllables{"e"});
    EXPECT_EQ(syllables(U"ヮ"), Syllables{"w a"});
}

TEST(KanaPhonemeTable, SingsSmallKanaStandingAloneLikeTheLargeOnes) {
    constexpr std::u32string_view kSmall = U"ァィゥェォャュョヮ";
    constexpr std::u32string_view kLarge = U"アイウエオヤユヨワ";
    for (std::size_t i = 0; i < kSmall.size(); ++i) {
        EXPECT_NE(singlePhonemes(kSmall, i), kNone);
        EXPECT_EQ(singlePhonemes(kSmall, i), singlePhonemes(kLarge, i));
    }
}

TEST(KanaPhonemeTable, KeepsThePlainConsonantForTiDiAndTuOnly) {
    EXPECT_EQ(pairPhonemes(U"ティ"), "t i");
    EXPECT_EQ(pairPhonemes(U"ディ"), "d i");
    EXPECT_EQ(pairPhonemes(U"トゥ"), "t u");
    EXPECT_EQ(syllables(U"テャテュテェテョ"), (Syllables{"ty a", "ty u", "ty e", "ty o"}));
    EXPECT_EQ(syllables(U"デャデュデェデョ"), (Syllables{"dy a", "dy u", "dy e", "dy o"}));
}

TEST(KanaPhonemeTable, WritesTheGlidesOfFVKGBAndPAsSymbolsOfTheirOwn) {
    EXPECT_EQ(syllables(U"フャヴャフュヴュ"), (Syllables{"f y a", "v y a", "f y u", "v y u"}));
    EXPECT_EQ(syllables(U"クァグィブェプォ"), (Syllables{"k w a", "g w i", "b w e", "p w o"}));
}

TEST(KanaPhonemeTable, FindsTheFirstOfTheTwoEntriesForDu) {
    const auto& pairs = KanaPhonemeTable::pairs();
    for (const std::size_t place : {89u, 99u}) {
        EXPECT_EQ(pairs.at(place).first, U'ド');
        EXPECT_EQ(pairs.at(place).second, U'ゥ');
        EXPECT_EQ(pairs.at(place).phonemes, "d u");
    }
    EXPECT_EQ(findKanaPair(U"ドゥ", 0), &pairs.at(89));
}

TEST(KanaPhonemeTable, ReadsTheTextAtTheGivenPosition) {
    constexpr std::u32string_view kText = U"サきゃク";
    EXPECT_EQ(pairPhonemes(kText, 0), kNone);
    EXPECT_EQ(pairPhonemes(kText, 1), "ky a");
    EXPECT_EQ(pairPhonemes(kText, 2), kNone);
    EXPECT_EQ(singlePhonemes(kText, 0), "s a");
    EXPECT_EQ(singlePhonemes(kText, 3), "k u");
}

TEST(KanaPhonemeTable, TriesTheLastCodePointAgainstTheSinglesOnly) {
    // The views end in the middle of a pair, so a look past their end would find it.
    constexpr std::u32string_view kText = U"アキャ";
    for (const std::u32string_view text : {kText.substr(0, 2), kText.substr(1, 1)}) {
        const std::size_t last = text.size() - 1;
        EXPECT_EQ(pairPhonemes(text, last), kNone);
        EXPECT_EQ(singlePhonemes(text, last), "k i");
    }
}

TEST(KanaPhonemeTable, GivesNoneForAPositionOutsideTheText) {
    constexpr std::size_t kHuge = std::numeric_limits<std::size_t>::max();
    constexpr std::u32string_view kLonger = U"キャキャ";
    for (std::size_t size = 0; size <= 2; ++size) {
        const auto text = kLonger.substr(0, size);
        for (const std::size_t i : {size, size + 1, kHuge - 1, kHuge}) {
            EXPECT_EQ(findKanaPair(text, i), nullptr);
            EXPECT_EQ(findKanaSingle(text, i), nullptr);
        }
    }
}

TEST(KanaPhonemeTableEquality, FoldsHiraganaOntoTheKatakanaOfTheSamePlace) {
    for (char32_t hiragana = 0x3041; hiragana <= 0x3094; ++hiragana) {
        EXPECT_TRUE(kanaEquals(hiragana, hiragana + 0x60));
        EXPECT_FALSE(kanaEquals(hiragana, hiragana + 0x61));
        EXPECT_FALSE(kanaEquals(hiragana, hiragana));
    }
}

TEST(KanaPhonemeTableEquality, TakesKatakanaAndTheLongVowelMarkAsTheyAre) {
    for (char32_t katakana = 0x30A1; katakana <= 0x30F4; ++katakana) {
        EXPECT_TRUE(kanaEquals(katakana, katakana));
        EXPECT_FALSE(kanaEquals(katakana, katakana + 1));
        EXPECT_FALSE(kanaEquals(katakana, 0x30FC));
    }
    EXPECT_TRUE(kanaEquals(0x30FC, 0x30FC));
    EXPECT_FALSE(kanaEquals(0x309C, 0x30FC));
    EXPECT_FALSE(kanaEquals(0x30FC, 0x30A2));
}

TEST(KanaPhonemeTableEquality, NeverHoldsForAnyOtherInputNotEvenForItself) {
    for (char32_t c = 0; c < kSweepEnd; ++c) {
        if (isKanaOfTheTable(c)) {
            continue;
        }
        ASSERT_FALSE(kanaEquals(c, c)) << std::hex << std::uint32_t{c};
        ASSERT_FALSE(kanaEquals(c, c + 0x60)) << std::hex << std::uint32_t{c};
        ASSERT_FALSE(kanaEquals(c, 0)) << std::hex << std::uint32_t{c};
    }
}

} // namespace
} // namespace wybeta::lyrics
