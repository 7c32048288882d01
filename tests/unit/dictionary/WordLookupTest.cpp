// SPDX-License-Identifier: GPL-3.0-or-later
#include "dictionary/WordLookup.h"

#include "dictionary/PronunciationDictionary.h"
#include "tests/unit/dictionary/LoadedDictionary.h"

#include <gtest/gtest.h>
#include <utf8cpp/utf8.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace wybeta::dictionary {
namespace {

using tests::loadDictionary;
using tests::realDictionary;

using Items = std::vector<std::string>;

// What the items become when the whole lyric is one word.
Items convert(const PronunciationDictionary& dictionary, std::u32string_view lyric,
              Items items = {}) {
    convertEnglishWord(dictionary, lyric, 0, static_cast<std::int32_t>(lyric.size()), items);
    return items;
}

Items convert(std::u32string_view lyric, Items items = {}) {
    return convert(realDictionary(), lyric, std::move(items));
}

TEST(WordLookup, AppendsOneItemForEachSyllable) {
    EXPECT_EQ(convert(U"abandon"), (Items{"ah", "b ae n", "d ah n"}));
    EXPECT_EQ(convert(U"a"), Items{"ah"});
}

TEST(WordLookup, TakesCapitalsAsSmallLetters) {
    EXPECT_EQ(convert(U"Abandon"), convert(U"abandon"));
    EXPECT_EQ(convert(U"ABANDON"), convert(U"abandon"));
}

TEST(WordLookup, TakesNoOtherLettersAsSmallOnes) {
    const auto dictionary =
        loadDictionary("\xC3\x89z\tey1 z\t\xC3\x89z\n"); // LATIN CAPITAL LETTER E WITH ACUTE
    EXPECT_EQ(convert(dictionary, U"\u00C9Z"), Items{"ey z"});
    EXPECT_EQ(convert(dictionary, U"\u00E9z"), Items{});
}

TEST(WordLookup, TrimsASyllableWithoutItsStressDigits) {
    const auto dictionary = loadDictionary("a\t1 ah . 0 2. b 2 d1 0 \v. ae 1\ta\n");
    EXPECT_EQ(convert(dictionary, U"a"), (Items{"ah", "", "b  d", "ae"}));
    EXPECT_EQ(convert(dictionary, U"a-"), (Items{"ah", "- ", "", "b  d", "ae"}));
}

TEST(WordLookup, LooksUpCharactersBehindAsciiInUtf8) {
    const auto dictionary = loadDictionary("a\xC2\x80\tah\ta\n"
                                           "b\x7F\tb\tb\n");
    EXPECT_EQ(convert(dictionary, U"a\u0080"), Items{"ah"});
    EXPECT_EQ(convert(dictionary, U"b\u007F"), Items{"b"});
}

TEST(WordLookup, AppendsBehindTheItemsThatAreThere) {
    EXPECT_EQ(convert(U"a", {"k a"}), (Items{"k a", "ah"}));
    EXPECT_EQ(convert(U"lo-ve", {"k a"}), (Items{"k a", "l ah", "- v"}));
}

TEST(WordLookup, AppendsNothingForAnUnknownWord) {
    EXPECT_EQ(convert(U"xyzzy"), Items{});
    EXPECT_EQ(convert(U"xyzzy", {"k a", "ah"}), (Items{"k a", "ah"}));
}

TEST(WordLookup, ChoosesAnAlternativeByItsSuffixOnly) {
    EXPECT_EQ(convert(U"a(1)"), Items{"ey"});
    EXPECT_EQ(convert(U"the(2)"), Items{"dh iy"});
    EXPECT_EQ(convert(U"the"), Items{"dh ah"});
}

TEST(WordLookup, KeepsEveryMarkButTheHyphen) {
    EXPECT_EQ(convert(U"don't"), Items{"d ow n t"});
    EXPECT_EQ(convert(U"'bout"), Items{"b aw t"});
    EXPECT_EQ(convert(U"love."), Items{});
}

TEST(WordLookup, ReadsItsRangeOfTheLyricOnly) {
    Items items;
    convertEnglishWord(realDictionary(), U"my love!", 3, 7, items);
    EXPECT_EQ(items, Items{"l ah v"});
}

TEST(WordLookup, DoesNotFindAWordWithAKanaAtItsEnd) {
    EXPECT_EQ(convert(U"love\u30AD", {"k a"}), Items{"k a"});
}

TEST(WordLookup, DoesNothingForARangeThatIsEmptyOrNotInTheLyric) {
    constexpr auto kLeast = std::numeric_limits<std::int32_t>::min();
    constexpr auto kGreatest = std::numeric_limits<std::int32_t>::max();
    const std::pair<std::int32_t, std::int32_t> ranges[] = {
        {0, 0}, {4, 4}, {3, 1}, {-1, 4}, {0, 5}, {5, 6}, {kLeast, kGreatest}, {kGreatest, kLeast}};
    for (const auto& [begin, end] : ranges) {
        Items items{"k a"};
        convertEnglishWord(realDictionary(), U"love", begin, end, items);
        EXPECT_EQ(items, Items{"k a"}) << begin << ".." << end;
    }
}

TEST(WordLookup, RaisesOnWhatIsNoCodePointAndLeavesTheItems) {
    for (const char32_t invalid : {0xD800u, 0xDFFFu, 0x110000u, 0xFFFFFFFFu}) {
        Items items{"k a"};
        const std::u32string lyric{U'a', invalid};
        EXPECT_THROW(convertEnglishWord(realDictionary(), lyric, 0, 2, items),
                     utf8::invalid_code_point);
        EXPECT_EQ(items, Items{"k a"});
    }
}

TEST(WordLookup, MakesZeroARestAtTheBeginning) {
    EXPECT_EQ(convert(U"0"), Items{"sil"});
}

TEST(WordLookup, MakesALoneSymbolARestForZero) {
    EXPECT_EQ(convert(U"0", {"k a", "a"}), (Items{"k a", "sil"}));
    EXPECT_EQ(convert(U"0", {"- "}), Items{"sil"});
    EXPECT_EQ(convert(U"0", {""}), Items{"sil"});
    EXPECT_EQ(convert(U"0", {"sil"}), Items{"sil"});
}

TEST(WordLookup, TakesTheLastSymbolOffForZero) {
    EXPECT_EQ(convert(U"0", {"b ae n"}), Items{"b ae"});
    EXPECT_EQ(convert(U"0", {"k a", "k a"}), (Items{"k a", "k"}));
    EXPECT_EQ(convert(U"0", {"- n"}), Items{"-"});
    EXPECT_EQ(convert(U"0", {" b \t ae  n "}), Items{"b ae"});
}

TEST(WordLookup, TakesNoOtherWordForZero) {
    for (const auto word : {U"00", U"0-", U"-0", U"\uFF10"}) {
        EXPECT_EQ(convert(word, {"b ae n"}), Items{"b ae n"});
    }
}

TEST(WordLookup, MakesRoomForZeroBeforeItLooksItUp) {
    EXPECT_EQ(convert(loadDictionary("0\tz iy1 . r ow0\tze . ro\n"), U"0", {"b ae n"}),
              (Items{"b ae", "z iy", "r ow"}));
}

TEST(WordLookup, CutsTheSyllableOfAHyphenBehindItsVowel) {
    EXPECT_EQ(convert(U"lo-ve"), (Items{"l ah", "- v"}));
}

TEST(WordLookup, KeepsTheSpaceOfAHyphenWithNothingBehindTheVowel) {
    EXPECT_EQ(convert(U"hel-lo"), (Items{"hh ah", "l ow", "- "}));
}

TEST(WordLookup, AppendsOneItemForEachHyphen) {
    EXPECT_EQ(convert(U"lo--ve"), (Items{"l ah", "-", "- v"}));
    EXPECT_EQ(convert(U"-l-o-v-e-"), (Items{"l ah", "-", "-", "-", "-", "- v"}));
}

TEST(WordLookup, CountsAHyphenAtEitherEnd) {
    EXPECT_EQ(convert(U"-love"), (Items{"l ah", "- v"}));
    EXPECT_EQ(convert(U"love-"), (Items{"l ah", "- v"}));
    EXPECT_EQ(convert(U"-abandon"), (Items{"ah", "- ", "b ae n", "d ah n"}));
}

TEST(WordLookup, CountsAHyphenOnTheWrittenSyllableOfTheLetterBefore) {
    EXPECT_EQ(convert(U"a-bandon"), (Items{"ah", "- ", "b ae n", "d ah n"}));
    EXPECT_EQ(convert(U"ab-andon"), (Items{"ah", "b ae", "- n", "d ah n"}));
    EXPECT_EQ(convert(U"aba-ndon"), (Items{"ah", "b ae", "- n", "d ah n"}));
    EXPECT_EQ(convert(U"aban-don"), (Items{"ah", "b ae n", "d ah", "- n"}));
    EXPECT_EQ(convert(U"a-ban--don"), (Items{"ah", "- ", "b ae n", "d ah", "-", "- n"}));
}

TEST(WordLookup, FoldsWrittenSyllablesOntoTheLastSpokenOne) {
    EXPECT_EQ(convert(U"abandon-"), (Items{"ah", "b ae n", "d ah", "- n"}));
}

TEST(WordLookup, CountsAHyphenBehindAllWrittenLettersOnTheFirstSyllable) {
    const auto dictionary = loadDictionary("abc\tey1 b . s iy1\ta . b\n");
    EXPECT_EQ(convert(dictionary, U"ab-c"), (Items{"ey b", "s iy", "- "}));
    EXPECT_EQ(convert(dictionary, U"abc-"), (Items{"ey", "- b", "s iy"}));
    EXPECT_EQ(convert(dictionary, U"ab-c-"), (Items{"ey", "- b", "s iy", "- "}));
}

TEST(WordLookup, CountsBytesNotCharacters) {
    const auto dictionary = loadDictionary("\xC3\xA9z\tey1 . z iy1\t\xC3\xA9 . z\n");
    EXPECT_EQ(convert(dictionary, U"\u00E9-z"), (Items{"ey", "- ", "z iy"}));
    EXPECT_EQ(convert(dictionary, U"\u00E9z-"), (Items{"ey", "z iy", "- "}));
}

TEST(WordLookup, FindsTheWordWithoutItsHyphens) {
    EXPECT_EQ(convert(U"3-d"), (Items{"th r iy", "- ", "d iy"}));
    EXPECT_EQ(convert(U"!exclamation-point"), Items{});
}

TEST(WordLookup, AppendsNothingForHyphensAlone) {
    EXPECT_EQ(convert(U"-"), Items{});
    EXPECT_EQ(convert(U"---", {"k a"}), Items{"k a"});
}

TEST(WordLookup, CutsASyllableWithoutANucleusBehindItsFirstSymbol) {
    EXPECT_EQ(convert(loadDictionary("kp\tk p\tkp\n"), U"k-p"), (Items{"k", "- p"}));
}

TEST(WordLookup, CutsBehindASymbolThatBeginsAMember) {
    EXPECT_EQ(convert(loadDictionary("kt\tk t\tkt\n"), U"k-t"), (Items{"k t", "- "}));
}

TEST(WordLookup, TakesOddEntriesAsTheyAre) {
    const auto dictionary = loadDictionary("none\t\tnone\n"
                                           "dots\t..\t.\n"
                                           "wide\t b   ae\v. n \twide\n");
    EXPECT_EQ(convert(dictionary, U"none"), Items{""});
    EXPECT_EQ(convert(dictionary, U"no-ne"), (Items{"", "- "}));
    EXPECT_EQ(convert(dictionary, U"dots"), (Items{"", "", ""}));
    EXPECT_EQ(convert(dictionary, U"-dots-"), (Items{"", "-", "- ", "", ""}));
    EXPECT_EQ(convert(dictionary, U"wide"), (Items{"b   ae", "n"}));
    EXPECT_EQ(convert(dictionary, U"w-ide"), (Items{"b ae", "- ", "n"}));
}

TEST(WordLookup, TakesAMillionLettersAndHyphens) {
    constexpr std::size_t kMillion = 1000000;
    EXPECT_EQ(convert(std::u32string(kMillion, U'a')), Items{});
    EXPECT_EQ(convert(std::u32string(kMillion, U'-')), Items{});

    const Items items = convert(U"lo" + std::u32string(kMillion, U'-') + U"ve");
    ASSERT_EQ(items.size(), kMillion + 1);
    EXPECT_EQ(items.front(), "l ah");
    EXPECT_EQ(items.at(1), "-");
    EXPECT_EQ(items.back(), "- v");
}

TEST(WordLookup, TakesAHyphenBehindEachOfManySyllables) {
    constexpr std::size_t kSyllables = 100000;
    std::string word;
    std::string phonemes;
    std::string spelling;
    std::u32string typed;
    for (std::size_t i = 0; i < kSyllables; ++i) {
        word += "a";
        phonemes += i == 0 ? "ah" : " . ah";
        spelling += i == 0 ? "a" : " . a";
        typed += U"a-";
    }
    const Items items = convert(loadDictionary(word + '\t' + phonemes + '\t' + spelling), typed);
    ASSERT_EQ(items.size(), 2 * kSyllables);
    for (std::size_t i = 0; i < items.size(); i += 2) {
        ASSERT_EQ(items[i], "ah") << i;
        ASSERT_EQ(items[i + 1], "- ") << i;
    }
}

std::u32string widened(std::string_view text) {
    return {text.begin(), text.end()};
}

bool hasHyphen(std::string_view text) {
    return text.find('-') != std::string_view::npos;
}

std::string without(std::string text, std::string_view part) {
    for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at)) {
        text.erase(at, part.size());
    }
    return text;
}

std::string joinedBy(std::string_view separator, const Items& items) {
    std::string text;
    for (const auto& item : items) {
        text += text.empty() ? "" : separator;
        text += item;
    }
    return text;
}

TEST(WordLookup, GivesTheSyllablesOfEveryWordWithoutAHyphen) {
    Items items;
    for (std::size_t i = 0; i < realDictionary().size(); ++i) {
        const auto item = realDictionary().line(i);
        if (!hasHyphen(item.word)) {
            const auto lyric = widened(item.word);
            items.clear();
            convertEnglishWord(realDictionary(), lyric, 0, static_cast<std::int32_t>(lyric.size()),
                               items);
            ASSERT_EQ(joinedBy(" . ", items), withoutStressDigits(item.phonemes)) << item.word;
        }
    }
}

TEST(WordLookup, GivesTheSyllablesOfEveryWordInCapitals) {
    Items items;
    for (std::size_t i = 0; i < realDictionary().size(); ++i) {
        const auto item = realDictionary().line(i);
        if (!hasHyphen(item.word)) {
            auto lyric = widened(item.word);
            for (char32_t& letter : lyric) {
                letter = letter >= U'a' && letter <= U'z' ? letter - U'a' + U'A' : letter;
            }
            items.clear();
            convertEnglishWord(realDictionary(), lyric, 0, static_cast<std::int32_t>(lyric.size()),
                               items);
            ASSERT_EQ(joinedBy(" . ", items), withoutStressDigits(item.phonemes)) << item.word;
        }
    }
}

TEST(WordLookup, NeverReachesAnEntryWithAHyphen) {
    int words = 0;
    for (std::size_t i = 0; i < realDictionary().size(); ++i) {
        const auto item = realDictionary().line(i);
        if (hasHyphen(item.word)) {
            ++words;
            const bool hasTwin =
                realDictionary().find(without(std::string(item.word), "-")).has_value();
            EXPECT_EQ(convert(widened(item.word)).empty(), !hasTwin) << item.word;
        }
    }
    EXPECT_EQ(words, 1007);
}

// The phonemes that the items spell, with the "-" items joined back on.
void spell(const Items& items, std::string& phonemes) {
    phonemes.clear();
    for (const std::string_view item : items) {
        const std::string_view symbols = item.front() == '-' ? item.substr(2) : item;
        if (!symbols.empty()) {
            phonemes += phonemes.empty() ? "" : " ";
            phonemes += symbols;
        }
    }
}

TEST(WordLookup, KeepsThePhonemesOfEveryWordWithAHyphenAtEveryPlaceInside) {
    Items items;
    std::string spelled;
    for (std::size_t i = 0; i < realDictionary().size(); ++i) {
        const auto item = realDictionary().line(i);
        if (hasHyphen(item.word)) {
            continue;
        }
        const auto phonemes = without(withoutStressDigits(item.phonemes), " .");
        const auto syllables = std::count(item.phonemes.begin(), item.phonemes.end(), '.') + 1;
        auto lyric = U'-' + widened(item.word);
        for (std::size_t place = 1; place < item.word.size(); ++place) {
            std::swap(lyric[place - 1], lyric[place]); // the hyphen goes one letter on
            items.clear();
            convertEnglishWord(realDictionary(), lyric, 0, static_cast<std::int32_t>(lyric.size()),
                               items);
            spell(items, spelled);
            ASSERT_EQ(spelled, phonemes) << item.word << " at " << place;
            ASSERT_EQ(items.size(), static_cast<std::size_t>(syllables) + 1) << item.word;
        }
    }
}

std::vector<std::string> wordsOf(const std::vector<WordEntry>& entries) {
    std::vector<std::string> words;
    for (const auto& entry : entries) {
        words.push_back(entry.word);
    }
    return words;
}

TEST(WordEntries, AreThePlainOneAndThoseWithASuffix) {
    const Items our = {"our", "our(1)", "our(2)"};
    EXPECT_EQ(wordsOf(findWordEntries(realDictionary(), "our")), our);
    EXPECT_EQ(wordsOf(findWordEntries(realDictionary(), "Ou-r(2)")), our);
    EXPECT_EQ(wordsOf(findWordEntries(realDictionary(), "gloria")), Items{"gloria"});
    EXPECT_EQ(wordsOf(findWordEntries(realDictionary(), "xyzzy")), Items{});
    EXPECT_EQ(wordsOf(findWordEntries(realDictionary(), "")), Items{});
    EXPECT_EQ(wordsOf(findWordEntries(realDictionary(), "(1)")), Items{});
}

TEST(WordEntries, AreThereWithoutThePlainOne) {
    const auto dictionary = loadDictionary("ab(1)\tah1\tab(1)\nab(3)\tey1\tab(3)\n");
    EXPECT_EQ(wordsOf(findWordEntries(dictionary, "ab")), (Items{"ab(1)", "ab(3)"}));
}

TEST(WordEntries, HaveTheirSyllablesAsSpokenAndAsWritten) {
    const auto fiasco = findWordEntries(realDictionary(), "fiasco").at(0);
    EXPECT_EQ(fiasco.syllables, (Items{"f iy", "ae", "s k ow"}));
    EXPECT_EQ(fiasco.written, (Items{"fia", "sco"}));
}

TEST(WordEntries, SayAfterWhichLettersAHyphenHoldsEachSyllable) {
    using Holds = std::vector<std::vector<std::size_t>>;
    EXPECT_EQ(findWordEntries(realDictionary(), "gloria").at(0).holds,
              (Holds{{0, 1, 2, 3}, {4, 5}, {6}}));
    // Three syllables are spoken and two written: no letter belongs to the third.
    EXPECT_EQ(findWordEntries(realDictionary(), "fiasco").at(0).holds,
              (Holds{{0, 1, 2, 3}, {4, 5, 6}, {}}));
    // Two are written and one is spoken.
    EXPECT_EQ(findWordEntries(realDictionary(), "love").at(0).holds, (Holds{{0, 1, 2, 3, 4}}));
}

TEST(WordEntries, SayThatAHyphenPastTheSpellingHoldsTheFirstSyllable) {
    const auto dictionary = loadDictionary("abc\tah1 . b iy1\ta . b\n");
    using Holds = std::vector<std::vector<std::size_t>>;
    EXPECT_EQ(findWordEntries(dictionary, "abc").at(0).holds, (Holds{{0, 1, 3}, {2}}));
}

// The conversion of the word of an entry with a hyphen after so many letters.
Items withHyphen(const WordEntry& entry, std::size_t letters) {
    std::u32string typed(entry.word.begin(), entry.word.end());
    return convert(typed.insert(letters, 1, U'-'));
}

// What the entry says of each place of a hyphen.
void expectHeldAsSaid(const WordEntry& entry) {
    std::size_t places = 0;
    for (std::size_t held = 0; held < entry.syllables.size(); ++held) {
        for (const auto letters : entry.holds[held]) {
            Items expected(entry.syllables.begin(),
                           entry.syllables.begin() + static_cast<std::ptrdiff_t>(held));
            appendHeld(expected, entry.syllables[held], 1);
            expected.insert(expected.end(),
                            entry.syllables.begin() + static_cast<std::ptrdiff_t>(held) + 1,
                            entry.syllables.end());
            ASSERT_EQ(withHyphen(entry, letters), expected) << entry.word << " at " << letters;
            ++places;
        }
    }
    EXPECT_EQ(places, entry.word.size() + 1) << entry.word;
}

TEST(WordEntries, SayOfEveryHyphenWhatTheConversionDoes) {
    const auto& dictionary = realDictionary();
    for (std::size_t i = 0; i < dictionary.size(); i += 17) {
        const std::string word(dictionary.line(i).word);
        if (word.find('-') == std::string::npos) {
            for (const auto& entry : findWordEntries(dictionary, word)) {
                expectHeldAsSaid(entry);
            }
        }
    }
}

TEST(WordSuffix, BeginsAtTheBracketOfItsNumber) {
    EXPECT_EQ(suffixStart("read(1)"), 4u);
    EXPECT_EQ(suffixStart("(1)"), 0u);
    EXPECT_EQ(suffixStart("read"), 4u);
    EXPECT_EQ(suffixStart("read(12)"), 8u);
    EXPECT_EQ(suffixStart("read(a)"), 7u);
    EXPECT_EQ(suffixStart("(9"), 2u);
    EXPECT_EQ(suffixStart(""), 0u);
}

TEST(WordLookupNucleus, IsTheFirstVowel) {
    EXPECT_EQ(findSyllableNucleus({"b", "ae", "n"}), 1);
    EXPECT_EQ(findSyllableNucleus({"ah"}), 0);
    EXPECT_EQ(findSyllableNucleus({"s", "t", "r", "eh", "ng", "k", "th", "s"}), 3);
    EXPECT_EQ(findSyllableNucleus({"ow", "er"}), 0);
}

TEST(WordLookupNucleus, KnowsEveryMember) {
    for (const auto member : {"ih", "eh", "ae", "aa", "ah", "uh", "ax", "iy", "uw", "ao", "er",
                              "ey", "ay", "oy", "ow", "aw", "a",  "i",  "u",  "e",  "o",  "N"}) {
        EXPECT_EQ(findSyllableNucleus({"w", "f", member}), 2) << member;
    }
    for (const auto member : {"w", "y", "m", "ng", "v", "z", "zh", "jh", "l"}) {
        EXPECT_EQ(findSyllableNucleus({"k", "f", member}), 2) << member;
    }
    for (const auto member : {"f", "s", "th", "sh", "hh"}) {
        EXPECT_EQ(findSyllableNucleus({"k", "p", member}), 2) << member;
    }
}

TEST(WordLookupNucleus, PrefersAnEarlierGroupToAnEarlierSymbol) {
    EXPECT_EQ(findSyllableNucleus({"s", "m", "ah"}), 2);
    EXPECT_EQ(findSyllableNucleus({"s", "hh", "m"}), 2);
}

TEST(WordLookupNucleus, TakesASymbolForEveryMemberItBegins) {
    EXPECT_EQ(findSyllableNucleus({"k", "n"}), 1);   // as "ng"
    EXPECT_EQ(findSyllableNucleus({"k", "t"}), 1);   // as "th"
    EXPECT_EQ(findSyllableNucleus({"t", "n"}), 1);   // "ng" before "th"
    EXPECT_EQ(findSyllableNucleus({"k", "j"}), 1);   // as "jh"
    EXPECT_EQ(findSyllableNucleus({"k", "h"}), 1);   // as "hh"
    EXPECT_EQ(findSyllableNucleus({"k", "ahx"}), 0); // a member begins it
    EXPECT_EQ(findSyllableNucleus({"k", "nh", "s"}), 2);
}

TEST(WordLookupNucleus, IsTheFirstSymbolWhenNoneIsKnown) {
    EXPECT_EQ(findSyllableNucleus({"k", "p"}), 0);
    EXPECT_EQ(findSyllableNucleus({"k", "b", "d", "g", "p", "r", "ch", "dh"}), 0);
    EXPECT_EQ(findSyllableNucleus({}), 0);
}

TEST(WordLookupNucleus, TakesAnEmptySymbolForAVowel) {
    EXPECT_EQ(findSyllableNucleus({"k", ""}), 1);
    EXPECT_EQ(findSyllableNucleus({"k", std::string_view()}), 1);
}

} // namespace
} // namespace wybeta::dictionary
