// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/words/TextCheck.h"

#include "simulator/Editor.h"
#include "tests/wysim/EditorFixture.h"
#include "wysim/session/Proof.h"
#include "wysim/song/BadInput.h"
#include "wysim/terminal/Progress.h"
#include "wysim/words/CheckReport.h"
#include "wysim/words/LyricReader.h"
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

// "column word: reason: suggestion, suggestion" of each finding.
std::vector<std::string> described(const std::vector<Finding>& findings) {
    std::vector<std::string> lines;
    for (const auto& finding : findings) {
        auto& line = lines.emplace_back(std::to_string(finding.column) + " " + finding.word + ": " +
                                        nameOf(finding.reason));
        for (std::size_t i = 0; i < finding.suggestions.size(); ++i) {
            line += (i == 0 ? ": " : ", ") + finding.suggestions[i];
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
        CheckCase{"Unknown", "xyzzy", 0, {"1 xyzzy: unknown"}},
        CheckCase{"Digits", "7 q9", 0, {"1 7: unknown", "3 q9: unknown"}},
        CheckCase{"Accent", "café", 0, {"1 café: unknown: cafe"}},
        CheckCase{"LetterMissing", "helo", 0, {"1 helo: unknown: hello, hemlo, helot, delo, celo"}},
        CheckCase{"LettersSwapped", "teh", 0, {"1 teh: unknown: the, eh, th, te, tesh"}},
        CheckCase{"ApostropheMissing", "couldnt", 0, {"1 couldnt: unknown: couldn't"}},
        CheckCase{"LetterMissingInALongWord", "beutiful", 0, {"1 beutiful: unknown: beautiful"}},
        CheckCase{"LetterMissingAmongHyphens", "beu-tiful", 0, {"1 beu-tiful: unknown: beautiful"}},
        CheckCase{
            "HyphenBetweenWords", "twenty-one", 0, {"1 twenty-one: hyphen-joins: twenty one"}}),
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
    text.checkLyric("love!");
    EXPECT_EQ(proved, (Proved{{"love!", {}}}));
}

TEST_F(SuggestionSearchTest, FindsTheLastNeighbourOfALongWord) {
    const WordInText word{U"", U"Antidisestablishmentarianizm", U""};
    EXPECT_EQ(SuggestionSearch(reader(), word).run().suggestions,
              (std::vector<std::u32string>{U"Antidisestablishmentarianism"}));
}

TEST_F(SuggestionSearchTest, ProposesOnlyWhatIsSungWhereTheWordIs) {
    const WordInText word{U"さ", U"helo", U"ちゃ"};
    const auto diagnosis = SuggestionSearch(reader(), word).run();
    ASSERT_EQ(diagnosis.suggestions.size(), SuggestionSearch::kMaxSuggestions);
    EXPECT_EQ(diagnosis.suggestions.front(), U"hello ");
}

} // namespace

} // namespace wybeta::tests
