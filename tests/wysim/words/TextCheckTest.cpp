// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/words/TextCheck.h"

#include "simulator/Editor.h"
#include "tests/wysim/EditorFixture.h"
#include "wysim/session/Proof.h"
#include "wysim/song/BadInput.h"
#include "wysim/terminal/Progress.h"
#include "wysim/words/CheckReport.h"
#include "wysim/words/LyricReader.h"
#include "wysim/words/Neighbours.h"
#include "wysim/words/Proposals.h"
#include "wysim/words/SuggestionSearch.h"
#include "wysim/words/TextFinding.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace wybeta::tests {

namespace {

using namespace wysim::session;
using namespace wysim::words;
using wysim::song::BadInput;

// "column word: reason: suggestion, suggestion for all of the lyric, guess?" of each finding.
std::vector<std::string> described(const std::vector<Finding>& findings) {
    std::vector<std::string> lines;
    for (const auto& finding : findings) {
        auto& line = lines.emplace_back(std::to_string(finding.column) + " " + finding.word + ": " +
                                        nameOf(finding.reason));
        for (std::size_t i = 0; i < finding.suggestions.size(); ++i) {
            const auto& [text, isForLyric, isGuess] = finding.suggestions[i];
            line += (i == 0 ? ": " : ", ") + text + (isForLyric ? " for all" : "") +
                    (isGuess ? "?" : "");
        }
    }
    return lines;
}

using Lines = std::vector<std::string>;

struct CheckCase {
    const char* name;
    const char* lyric;
    std::size_t syllables;
    Lines findings;
};

void PrintTo(const CheckCase& example, std::ostream* out) {
    *out << example.name;
}

template <class Base>
class CheckTest : public EditorTest<Base> {
protected:
    // Has the module sing what is counted and suggested.
    static CheckedLyric check(const std::string& lyric) { return checkLines({lyric}).front(); }

    static std::vector<CheckedLyric> checkLines(const std::vector<std::string>& lines) {
        std::vector<CheckedLyric> checked;
        EditorTest<Base>::useEditor([&](simulator::Editor& editor) {
            Proof proof(editor);
            wysim::terminal::Progress progress;
            checked = TextCheck(reader(), proof.prover()).checkLines(lines, progress);
        });
        return checked;
    }

    static LyricReader& reader() {
        static LyricReader shared;
        return shared;
    }

    static std::string refusalOf(const std::string& lyric) {
        try {
            check(lyric);
            return {};
        } catch (const BadInput& error) {
            return error.what();
        }
    }
};

class TextCheckAnswer : public CheckTest<testing::TestWithParam<CheckCase>> {};
class TextCheckTest : public CheckTest<testing::Test> {};
class SuggestionSearchTest : public CheckTest<testing::Test> {};

TEST_P(TextCheckAnswer, HasTheSyllablesAndWhatIsFound) {
    const auto checked = check(GetParam().lyric);
    EXPECT_EQ(checked.syllables, GetParam().syllables);
    EXPECT_EQ(described(checked.findings), GetParam().findings);
    EXPECT_EQ(checked.text, GetParam().lyric);
}

const auto nameOfCase = [](const auto& test) { return std::string(test.param.name); };

INSTANTIATE_TEST_SUITE_P(
    AllSung, TextCheckAnswer,
    testing::Values(CheckCase{"Nothing", "", 0, {}}, CheckCase{"Blanks", "   ", 0, {}},
                    CheckCase{"Words", "Amazing grace", 4, {}},
                    CheckCase{"KanaWithMarks", "さくら、さいた", 6, {}},
                    CheckCase{"WordBeforeKana", "loveソング", 4, {}},
                    CheckCase{"BlankBeforeAPair", "hello ちゃん", 4, {}},
                    CheckCase{"MarksAlone", "love - me ... !", 2, {}},
                    CheckCase{"MarksOfWords", "don't read(1) 'tis", 3, {}},
                    CheckCase{"WideBlankBehindKana", "「さくら」　love", 4, {}},
                    CheckCase{"QuotationMarkInFront", "“love", 1, {}},
                    CheckCase{"LettersThatAreNotHeard", "whole colour", 3, {}},
                    CheckCase{"Bracket", "さくら[s a,k u,r a]", 3, {}},
                    CheckCase{"BracketForTwoWords", "good morning[g uh d,m ao r,n ih ng]", 3, {}},
                    CheckCase{"BracketAlone", "[l a]", 1, {}},
                    CheckCase{"UnknownWordBeforeABracket", "xyzzy la[z iy]", 1, {}},
                    CheckCase{"MarksBehindABracket", "la[l a], ", 1, {}}),
    nameOfCase);

INSTANTIATE_TEST_SUITE_P(
    Mark, TextCheckAnswer,
    testing::Values(CheckCase{"Behind", "Hello, world", 1, {"1 Hello,: mark: Hello"}},
                    CheckCase{"Around", "say (love)", 1, {"5 (love): mark: love"}},
                    CheckCase{"Several", "“Hello!”", 0, {"2 Hello!”: mark: Hello"}},
                    CheckCase{"BehindASuffix", "read(1),", 0, {"1 read(1),: mark: read(1)"}},
                    CheckCase{"Within", "well,then", 0, {"1 well,then: mark: well then"}},
                    CheckCase{"QuotationMarks", "'love'", 0, {"1 'love': mark: love"}},
                    CheckCase{"HalfABracket", "love[", 0, {"1 love[: mark: love"}},
                    CheckCase{"Symbol", "love♪", 0, {"1 love♪: mark: love"}},
                    CheckCase{
                        "BeforeAKanaPair", "Hello,ちゃん", 2, {"1 Hello,ちゃ: mark: Hello ちゃ"}}),
    nameOfCase);

INSTANTIATE_TEST_SUITE_P(
    Characters, TextCheckAnswer,
    testing::Values(
        CheckCase{"TypographicApostrophe", "don’t", 0, {"1 don’t: apostrophe: don't"}},
        CheckCase{"ApostropheAndMark", "singin’,", 0, {"1 singin’,: apostrophe: singin'"}},
        CheckCase{"WideBlank", "love　さくら", 3, {"1 love　さく: blank: love さく"}},
        CheckCase{"WideBlankWithin", "love　me", 0, {"1 love　me: blank: love me"}},
        CheckCase{"Tab", "\tlove\tme", 0, {"2 love\tme: blank: love me"}},
        CheckCase{"FullWidth", "ｈｅｌｌｏ！", 0, {"1 ｈｅｌｌｏ！: full-width: hello"}},
        CheckCase{"HalfWidthKana", "ｻｸﾗ", 0, {"1 ｻｸﾗ: half-width-kana: サクラ"}},
        CheckCase{"VoicedHalfWidthKana", "ﾊﾟﾝさ", 1, {"1 ﾊﾟﾝ: half-width-kana: パン"}},
        CheckCase{"Kanji", "桜がさく", 3, {"1 桜: kanji"}},
        CheckCase{"KanjiBeforeAWord", "桜love", 1, {"1 桜: kanji"}},
        CheckCase{"KanjiBehindAWord", "love桜", 0, {"1 love桜: kanji"}},
        CheckCase{"KanaThatIsNotSung", "さヵさ", 2, {"2 ヵ: other-character"}},
        CheckCase{"OtherScript", "love Привет", 1, {"6 Привет: other-character"}}),
    nameOfCase);

INSTANTIATE_TEST_SUITE_P(
    Word, TextCheckAnswer,
    testing::Values(
        CheckCase{"BeforeAKanaPair", "loveキャンディ", 3, {"1 loveキャ: kana-pair: love キャ"}},
        CheckCase{"BetweenKana", "さhelloちゃん", 3, {"2 helloちゃ: kana-pair: hello ちゃ"}},
        CheckCase{"Unknown", "xyzzy", 0, {"1 xyzzy: unknown: xyzzy[z ih,z iy]?"}},
        CheckCase{"Digits", "7 q9", 0, {"1 7: unknown", "3 q9: unknown"}},
        CheckCase{"Accent", "café", 0, {"1 café: unknown: café[k ah,f ey], cafe"}},
        CheckCase{"LetterMissing",
                  "helo",
                  0,
                  {"1 helo: unknown: hello, hemlo, helot, delo, helo[hh eh,l ow]?"}},
        CheckCase{"LettersSwapped", "teh", 0, {"1 teh: unknown: the, eh, te, tesh, teh[t eh]?"}},
        CheckCase{"ApostropheMissing",
                  "couldnt",
                  0,
                  {"1 couldnt: unknown: couldn't, couldnt[k uh,d ah n t]?"}},
        CheckCase{"LetterMissingInALongWord",
                  "beutiful",
                  0,
                  {"1 beutiful: unknown: beautiful, beutiful[b uw,t ah,f ah l]?"}},
        CheckCase{"LetterMissingAmongHyphens",
                  "beu-tiful",
                  0,
                  {"1 beu-tiful: unknown: beautiful, beu-tiful[b uw,t ih,f ah l]?"}},
        CheckCase{"HyphenBetweenWords",
                  "twenty-one",
                  0,
                  {"1 twenty-one: hyphen-joins: twenty one, twenty-one[t w eh n,t iy,w ah n]"}}),
    nameOfCase);

INSTANTIATE_TEST_SUITE_P(
    Proposed, TextCheckAnswer,
    testing::Values(
        CheckCase{"ElidedEnding", "kiss'd", 0, {"1 kiss'd: unknown: kiss'd[k ih s t], kissed"}},
        CheckCase{
            "TypographicElision", "heav’n", 0, {"1 heav’n: unknown: heav’n[hh eh v n], heaven"}},
        CheckCase{
            "AccentThatIsSung", "reignèd", 0, {"1 reignèd: unknown: reignèd[r ey,n ih d], reign"}},
        CheckCase{"BritishEnding",
                  "splendour",
                  0,
                  {"1 splendour: unknown: splendour[s p l eh n,d er], splendor"}},
        CheckCase{
            "HyphenOfAnotherKind", "to‑day", 0, {"1 to‑day: mark: to‑day[t ah,d ey], to day"}},
        CheckCase{"AccentInFront", "École", 1, {"1 École: unknown: École[ih,k ow l], ecole"}},
        CheckCase{"SlipOfTheKeyboard", "chior", 0, {"1 chior: unknown: choir, chior[ch iy,er]?"}},
        CheckCase{"Slang", "yeet", 0, {"1 yeet: unknown: yet, yee, teet, neet, yeet[y iy t]?"}},
        CheckCase{"WordAmongOthers",
                  "I say skrrtling",
                  2,
                  {"7 skrrtling: unknown: I say skrrtling[ay,s ey,s k er t,l ih ng] for all?"}},
        CheckCase{"TwoWords",
                  "kiss'd xyzzy",
                  0,
                  {"1 kiss'd: unknown: kiss'd xyzzy[k ih s t,z ih,z iy] for all?, kissed",
                   "8 xyzzy: unknown: kiss'd xyzzy[k ih s t,z ih,z iy] for all?"}},
        CheckCase{
            "WordAmongSomeWithoutAProposal", "xyzzy 桜", 0, {"1 xyzzy: unknown", "7 桜: kanji"}},
        CheckCase{"Digits", "99", 0, {"1 99: unknown"}},
        CheckCase{"ClippedWord", "th'", 0, {"1 th': unknown: th'[dh ah], the"}},
        CheckCase{"DrawnOutLetters", "yeahhhh", 0, {"1 yeahhhh: unknown: yeahhhh[y ae], yeah"}},
        CheckCase{"TheSameWordTwice",
                  "skrrt skrrt",
                  0,
                  {"1 skrrt: unknown: skirt, skrrt skrrt[s k er t,s k er t] for all?",
                   "7 skrrt: unknown: skirt, skrrt skrrt[s k er t,s k er t] for all?"}},
        CheckCase{"WordBeforeAZero",
                  "xyzzy 0",
                  1,
                  {"1 xyzzy: unknown: xyzzy 0[z ih,z] for all?", "7 0: zero: zero"}},
        CheckCase{
            "RomajiWithMarks",
            "kimi, yume",
            0,
            {"1 kimi,: unknown: きみ, simi, mimi, jimi, kimi, yume[k iy,m iy,y u,m e] for all?",
             "7 yume: unknown: ゆめ, yue, yum, hume, kimi, yume[k i,m i,y uw m] for all?"}},
        CheckCase{
            "Romaji", "kokoro", 0, {"1 kokoro: unknown: こころ, kokomo, kokoro[k ah,k ao,r ow]?"}},
        CheckCase{"ShortRomajiAlone",
                  "kine",
                  0,
                  {"1 kine: unknown: kin, kaine, kline, kine[k ay n]?, きね"}},
        CheckCase{"ShortRomajiAmongKana",
                  "yume さ",
                  1,
                  {"1 yume: unknown: ゆめ, yue, yum, hume, yume さ[y uw m,s a] for all?"}}),
    nameOfCase);

INSTANTIATE_TEST_SUITE_P(
    Japanese, TextCheckAnswer,
    testing::Values(
        CheckCase{"Reading", "桜(さくら)が", 4, {"1 桜(さくら): kanji: さくら"}},
        CheckCase{"ReadingInWideBrackets", "桜（さくら）", 3, {"1 桜（さくら）: kanji: さくら"}},
        CheckCase{"ReadingInDoubleBrackets", "桜《さくら》", 3, {"1 桜《さくら》: kanji: さくら"}},
        CheckCase{"ReadingAfterABar", "｜桜《さくら》", 3, {"1 ｜桜《さくら》: kanji: さくら"}},
        CheckCase{"TwoReadings",
                  "桜(さくら)と花(はな)",
                  6,
                  {"1 桜(さくら): kanji: さくら", "8 花(はな): kanji: はな"}},
        CheckCase{"WordAfterAReading",
                  "桜(さくら)xyzzy",
                  3,
                  {"1 桜(さくら): kanji: さくら",
                   "7 xyzzy: unknown: 桜(さくら)xyzzy[s a,k u,r a,z ih,z iy] for all?"}},
        CheckCase{"WordBeforeAReading",
                  "Oh桜(さくら)",
                  3,
                  {"1 Oh: mark: Oh ", "3 桜(さくら): kanji: さくら"}},
        CheckCase{"ReadingWithTheKanaOfItsEnd",
                  "食べる(たべる) xyzzy",
                  5,
                  {"1 食べる(たべる): kanji: たべる",
                   "10 xyzzy: unknown: 食べる(たべる) xyzzy[t a,b e,r u,z ih,z iy] for all?"}},
        CheckCase{"BlankBeforeOneKana",
                  "love　ス０",
                  1,
                  {"1 love　: blank: love ", "6 ス０: long-mark: ス0"}},
        CheckCase{"WaveAfterKana", "ら～ら", 2, {"1 ら～: long-mark: らー"}},
        CheckCase{"DashAfterKana", "ラ―", 1, {"1 ラ―: long-mark: ラー"}},
        CheckCase{"HyphenAfterKana", "ら-", 1, {"1 ら-: long-mark: らー"}},
        CheckCase{"WideZeroAfterKana", "カ０", 1, {"1 カ０: long-mark: カ0"}},
        CheckCase{"HyphenAfterHalfWidthKana", "ﾗ-", 0, {"1 ﾗ-: half-width-kana: ラー"}},
        CheckCase{"BracketOfOneSyllable",
                  "桜[s a k u r a]",
                  1,
                  {"1 桜[s a k u r a]: one-syllable: 桜[s a,k u,r a]"}},
        CheckCase{"BracketAlone", "[s a k u]", 1, {"1 [s a k u]: one-syllable: [s a,k u]"}},
        CheckCase{"BracketWithACoda", "[s a N]", 1, {}}),
    nameOfCase);

INSTANTIATE_TEST_SUITE_P(
    SungOtherwise, TextCheckAnswer,
    testing::Values(CheckCase{"Hyphens", "A-ma-zing", 5, {"1 A-ma-zing: hyphen-holds: Amazing"}},
                    CheckCase{"HyphenAndZero",
                              "light- 0",
                              2,
                              {"1 light-: hyphen-holds: light", "8 0: zero: zero"}},
                    CheckCase{"Zero", "light 0", 1, {"7 0: zero: zero"}},
                    CheckCase{"ZeroInFront", "0 love", 2, {"1 0: zero: zero"}},
                    CheckCase{"ZeroBehindKana", "ス0", 1, {"1 ス0: zero: ス"}},
                    CheckCase{"ZeroBetweenKana", "さア0さ", 3, {"2 ア0: zero: ア"}},
                    CheckCase{"ZeroBeforeKana", "0さ", 2, {"1 0: zero"}}),
    nameOfCase);

INSTANTIATE_TEST_SUITE_P(
    Bracket, TextCheckAnswer,
    testing::Values(
        CheckCase{"TextBehind", "la[l a] hello", 1, {"9 hello: outside-bracket"}},
        CheckCase{"SeveralBrackets",
                  "la[l a] hello la[l i]",
                  1,
                  {"1 la[l a]: outside-bracket", "9 hello: outside-bracket"}},
        CheckCase{"OtherWordInFront", "hello さくら[s a]", 1, {"1 hello: outside-bracket"}},
        CheckCase{"Empty", "love[]", 1, {"1 love[]: empty-bracket: love"}},
        CheckCase{"EmptyAmongOtherWords",
                  "hello love []",
                  1,
                  {"1 hello: outside-bracket", "7 love []: empty-bracket: love"}},
        CheckCase{"EmptyBehindAnUnknownWord", "xyzzy[,]", 2, {"1 xyzzy[,]: empty-bracket"}}),
    nameOfCase);

TEST_F(TextCheckTest, CountsColumnsInCharactersAndNumbersLines) {
    const auto lines = checkLines({"love", "", "さ 𠮷さ love!"});
    ASSERT_EQ(lines.size(), 3u);
    EXPECT_EQ(described(lines[2].findings), (Lines{"3 𠮷: kanji", "6 love!: mark: love"}));
    for (const auto& finding : lines[2].findings) {
        EXPECT_EQ(finding.line, 3u);
    }
}

TEST_F(TextCheckTest, TellsTheSyllablesThatAWordHasAsItIs) {
    EXPECT_EQ(check("Hello, A-ma-zing").findings.at(0).syllables, 0u);
    EXPECT_EQ(check("Hello, A-ma-zing").findings.at(1).syllables, 5u);
}

TEST_F(TextCheckTest, FindsTheSameInAWordThatComesAgain) {
    const auto findings = described(check("love! love! さ").findings);
    EXPECT_EQ(findings, (Lines{"1 love!: mark: love", "7 love!: mark: love"}));
}

TEST_F(TextCheckTest, RefusesWhatIsNoLineOfText) {
    EXPECT_EQ(refusalOf(std::string(1000, 'x')), "");
    EXPECT_EQ(refusalOf(std::string(1001, 'x')),
              "expected a line of at most 1000 characters, found one of 1001 at line 1");
    const auto noText = "expected a text of one line in UTF-8, found control characters or other "
                        "bytes at line 1";
    EXPECT_EQ(refusalOf("love\xFF"), noText);
    EXPECT_EQ(refusalOf("love\nme"), noText);
    try {
        checkLines({"love", std::string(2000, 'x')});
        FAIL();
    } catch (const BadInput& error) {
        EXPECT_STREQ(error.what(), "expected a line of at most 1000 characters, found one of 2000 "
                                   "at line 2");
    }
}

TEST_F(TextCheckTest, HasEachLineAndEachSuggestionSungOnce) {
    using Proved = std::vector<std::pair<std::string, Syllables>>;
    Proved proved;
    TextCheck text(reader(), [&proved](const std::string& lyric, const Syllables& syllables) {
        proved.emplace_back(lyric, syllables);
    });
    text.checkLyric("love! さ");
    EXPECT_EQ(proved, (Proved{{"love! さ", {"s a"}}, {"love", {"l ah v"}}}));
    proved.clear();
    text.checkLyric("さ love!");
    EXPECT_EQ(proved, (Proved{{"さ love!", {"s a"}}}));
}

TEST_F(SuggestionSearchTest, ProposesNothingForWhatIsNoWord) {
    for (const auto& word :
         {std::u32string(10'000, U'a'), std::u32string(65, U'q'), std::u32string(U"\u0001\u0002"),
          std::u32string(U"9"), std::u32string(U"''"), std::u32string()}) {
        EXPECT_TRUE(proposalsFor(word, reader(), true).empty()) << word.size();
        EXPECT_TRUE(pronunciationsOf(word, reader(), true).empty()) << word.size();
    }
}

TEST_F(SuggestionSearchTest, FindsTheLastNeighbourOfALongWord) {
    const auto neighbours = knownNeighbours(U"Antidisestablishmentarianizm", reader(), 5);
    EXPECT_EQ(neighbours, (std::vector<std::u32string>{U"Antidisestablishmentarianism"}));
}

TEST_F(SuggestionSearchTest, ProposesOnlyWhatIsSungWhereTheWordIs) {
    const WordInText word{U"さ", U"helo", U"ちゃ"};
    const auto proposals = SuggestionSearch(reader(), word, true).run().proposals;
    ASSERT_EQ(proposals.size(), kMostProposals);
    EXPECT_EQ(proposals.front().text, U"hello ");
}

} // namespace

} // namespace wybeta::tests
