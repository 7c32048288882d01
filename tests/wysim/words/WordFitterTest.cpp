// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/words/WordFitter.h"

#include "simulator/Editor.h"
#include "tests/wysim/EditorFixture.h"
#include "wysim/session/Fitting.h"
#include "wysim/session/Proof.h"
#include "wysim/song/Song.h"
#include "wysim/terminal/Progress.h"
#include "wysim/words/FittedWord.h"
#include "wysim/words/LyricReader.h"
#include "wysim/words/SongWords.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <map>
#include <numeric>
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

namespace wybeta::tests {

namespace {

using namespace wysim::session;
using namespace wysim::words;

// A word of a score that gives its syllables so many notes.
SongWord divided(const std::string& text, const std::vector<std::size_t>& notes) {
    return {1, 1, text, std::accumulate(notes.begin(), notes.end(), std::size_t{0}), notes};
}

// A word of which nothing but the number of notes is known.
SongWord counted(const std::string& text, std::size_t notes) {
    return {1, 1, text, notes, {}};
}

// "3+1+1" are the notes of each syllable, "=4" their number alone.
SongWord wordOf(const std::string& text, const std::string& notes) {
    if (notes.front() == '=') {
        return counted(text, std::stoul(notes.substr(1)));
    }
    std::vector<std::size_t> ofSyllables;
    std::istringstream numbers(notes);
    for (std::string number; std::getline(numbers, number, '+');) {
        ofSyllables.push_back(std::stoul(number));
    }
    return divided(text, ofSyllables);
}

std::string described(Outcome outcome) {
    static const std::map<Outcome, std::string> names = {
        {Outcome::AsItIs, "as it is"},
        {Outcome::Hyphens, "hyphens"},
        {Outcome::OtherEntry, "other entry"},
        {Outcome::Brackets, "brackets"},
        {Outcome::Guess, "guess"},
        {Outcome::Unknown, "unknown"},
        {Outcome::DividedOtherwise, "divided otherwise"},
        {Outcome::NotReached, "not reached"},
    };
    return names.at(outcome);
}

// How it is fitted, the text, what the notes carry, and the reason why not.
std::string described(const FittedWord& fitted, std::size_t notes) {
    std::string text = described(fitted.outcome) + ": " + fitted.text;
    for (std::size_t i = 0; i < std::min(notes, fitted.syllables.size()); ++i) {
        text += " [" + fitted.syllables[i] + "]";
    }
    return text + (fitted.reason.empty() ? "" : ": " + fitted.reason);
}

struct FitCase {
    const char* name;
    const char* word;
    const char* notes;
    const char* answer;
    WaysToFit ways = {};
};

void PrintTo(const FitCase& example, std::ostream* out) {
    *out << example.name;
}

// Fits words, and has the module sing what they are fitted by.
template <class Base>
class FitterTest : public EditorTest<Base> {
protected:
    static FittedWord fit(const SongWord& word, WaysToFit ways = {}) {
        const auto fitted = WordFitter(reader(), ways).fit(word);
        EditorTest<Base>::useEditor([&](simulator::Editor& editor) {
            EXPECT_NO_THROW(Proof(editor).sung(fitted.text, fitted.syllables));
        });
        return fitted;
    }

    static LyricReader& reader() {
        static LyricReader shared;
        return shared;
    }
};

class WordFitterAnswer : public FitterTest<testing::TestWithParam<FitCase>> {};
class WordFitterTest : public FitterTest<testing::Test> {};

TEST_P(WordFitterAnswer, IsWhatToType) {
    const auto& example = GetParam();
    const auto word = wordOf(example.word, example.notes);
    EXPECT_EQ(described(fit(word, example.ways), word.notes), example.answer);
}

constexpr WaysToFit kWithBrackets = {true, false};
constexpr WaysToFit kWithGuesses = {false, true};

INSTANTIATE_TEST_SUITE_P(
    Fitted, WordFitterAnswer,
    testing::Values(
        FitCase{"SyllablesOnTheirNotes", "hello", "1+1", "as it is: hello [hh ah] [l ow]"},
        FitCase{"KanaOnTheirNotes", "さくら", "1+1+1", "as it is: さくら [s a] [k u] [r a]"},
        FitCase{"LongVowelOfOneSyllable", "カー", "2", "as it is: カー [k a] [-]"},
        FitCase{"LongVowelOfTwoSyllables", "カー", "1+1", "as it is: カー [k a] [-]"},
        FitCase{"AsManyAsNotes", "hello", "=2", "as it is: hello [hh ah] [l ow]"},
        FitCase{"TypedHyphenThatIsCounted", "lo-ve", "=2", "as it is: lo-ve [l ah] [- v]"},
        FitCase{"TypedHyphenThatIsRight", "lo-ve", "2", "as it is: lo-ve [l ah] [- v]"},
        FitCase{"TypedBrackets", "la[l a,l a]", "=2", "as it is: la[l a,l a] [l a] [l a]",
                kWithBrackets},
        FitCase{"DividedAsNoEntryIs", "hello", "2", "as it is: hello [hh ah] [l ow]"},

        FitCase{"FirstSyllableHeld", "Gloria", "3+1+1",
                "hyphens: Glo--ria [g l ao] [-] [- ] [r iy] [ah]"},
        FitCase{"TwoSyllablesHeld", "abandon", "1+2+3",
                "hyphens: aba-ndon-- [ah] [b ae] [- n] [d ah] [-] [- n]"},
        FitCase{"KanaHeld", "さくら", "1+3+1", "hyphens: さくーーら [s a] [k u] [-] [-] [r a]"},
        FitCase{"KanaPairHeld", "きょう", "2+1", "hyphens: きょーう [ky o] [-] [u]"},
        FitCase{"LongVowelHeld", "カー", "1+2", "hyphens: カーー [k a] [-] [-]"},
        FitCase{"BothHeld", "loveソ", "2+2", "hyphens: love-ソー [l ah] [- v] [s o] [-]"},
        FitCase{"TypedHyphenTooMany", "hel-lo", "1+1", "hyphens: hello [hh ah] [l ow]"},
        FitCase{"WordsOfWhichTheLastIsHeld", "go on", "1+2", "hyphens: go on- [g ow] [aa] [- n]"},
        FitCase{"TypedSuffix", "read(1)", "2", "hyphens: read-(1) [r iy] [- d]"},
        FitCase{"MoreNotesThanSyllables", "Gloria", "=4",
                "hyphens: Gloria- [g l ao] [r iy] [ah] [- ]"},
        FitCase{"OneSyllableInTheScore", "hello", "3", "hyphens: hello- [hh ah] [l ow] [- ]"},
        FitCase{"LastSyllableOutOfReach", "fiasco", "=4",
                "hyphens: fiasco- [f iy] [ae] [- ] [s k ow]"},

        FitCase{"OneSyllableByAnotherEntry", "our", "1", "other entry: our(1) [aw r]"},
        FitCase{"AnotherEntryHeld", "our", "3", "other entry: our--(1) [aw] [-] [- r]"},
        FitCase{"TwoSyllablesByAnotherEntry", "prayer", "1+1",
                "other entry: prayer(1) [p r ey] [er]"},
        FitCase{"EntryWithoutTheSuffix", "our(1)", "1+1", "other entry: our [aw] [er]"},
        FitCase{"AnotherEntryOfOneOfTwoWords", "our love", "1+2",
                "other entry: our(1) love- [aw r] [l ah] [- v]"},
        FitCase{"FewerNotesThanSyllables", "our", "=1", "other entry: our(1) [aw r]",
                kWithBrackets},

        FitCase{"SyllableOutOfReach", "fiasco", "1+1+3",
                "brackets: fiasco[f iy,ae,s k ow,-,-] [f iy] [ae] [s k ow] [-] [-]", kWithBrackets},
        FitCase{"TwoSyllablesOnOneNote", "Tokyo", "1+1",
                "brackets: Tokyo[t ow,k iy ow] [t ow] [k iy ow]", kWithBrackets},
        FitCase{"WordsThatShareANote", "going away", "1+1+1",
                "brackets: going away[g ow,ih ng ah,w ey] [g ow] [ih ng ah] [w ey]", kWithBrackets},
        FitCase{"LongVowelOnOneNote", "カッター", "=3",
                "brackets: カッター[k a,cl,t a] [k a] [cl] [t a]", kWithBrackets},
        FitCase{"TypedBracketsThatAreTooShort", "la[l a]", "=2", "brackets: la[l a,-] [l a] [-]",
                kWithBrackets}),
    [](const auto& test) { return std::string(test.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Guessed, WordFitterAnswer,
    testing::Values(
        FitCase{"WordByAnotherSpelling", "heav'n", "2",
                "guess: heav'n[hh eh v n,-] [hh eh v n] [-]", kWithGuesses},
        FitCase{"WordByItsLetters", "yeet", "1", "guess: yeet[y iy t] [y iy t]", kWithGuesses},
        FitCase{"PronunciationThatTheScoreDivides", "fringed", "1+1",
                "guess: fringed[f r ih n,jh ih d] [f r ih n] [jh ih d]", kWithGuesses},
        FitCase{"WordAmongOthers", "love yeet", "1+1",
                "guess: love yeet[l ah v,y iy t] [l ah v] [y iy t]", kWithGuesses},
        FitCase{"Romaji", "kokoro", "1+1+1", "guess: kokoro[k o,k o,r o] [k o] [k o] [r o]",
                kWithGuesses},
        FitCase{"MarkAtTheWord", "love!", "2", "guess: love![l ah v,-] [l ah v] [-]", kWithGuesses},
        FitCase{"KnownWordAsWithoutGuesses", "Gloria", "3+1+1",
                "hyphens: Glo--ria [g l ao] [-] [- ] [r iy] [ah]", kWithGuesses},
        FitCase{"KanjiWithoutAReading", "桜", "2", "unknown: 桜: \"桜\" is not sung", kWithGuesses},
        FitCase{"DigitsAlone", "99", "1", "unknown: 99: \"99\" is not sung", kWithGuesses}),
    [](const auto& test) { return std::string(test.param.name); });

INSTANTIATE_TEST_SUITE_P(
    NotFitted, WordFitterAnswer,
    testing::Values(FitCase{"UnknownWord", "xyzzy", "2", "unknown: xyzzy: \"xyzzy\" is not sung",
                            kWithBrackets},
                    FitCase{"UnknownWordAmongOthers", "love xyzzy", "1+1",
                            "unknown: love xyzzy [l ah v]: \"xyzzy\" is not sung", kWithBrackets},
                    FitCase{"DividedOtherwise", "Tokyo", "1+1",
                            "divided otherwise: Tokyo [t ow] [k iy]: 3 syllables for 2 notes"},
                    FitCase{"TooFewNotes", "hello", "=1",
                            "divided otherwise: hello [hh ah]: 2 syllables for 1 note"},
                    FitCase{"NotReached", "fiasco", "1+1+2",
                            "not reached: fiasco [f iy] [ae] [s k ow]: no hyphen holds syllable 3: "
                            "the dictionary divides the word as fia-sco"},
                    FitCase{"NotReachedInTheMiddle", "fiasco love", "1+1+2+1",
                            "not reached: fiasco love [f iy] [ae] [s k ow] [l ah v]: no hyphen "
                            "holds syllable 3: the dictionary divides the word as fia-sco"},
                    FitCase{"NotReachedAsAZeroDropsIt", "カ0", "2",
                            "not reached: カ0 [k]: no hyphen holds syllable 1: a 0 drops its "
                            "sound"},
                    FitCase{"NotReachedAsItIsARest", "0 love", "2+1",
                            "not reached: 0 love [sil] [l ah v]: no hyphen holds syllable 1: a "
                            "rest is not held"},
                    FitCase{
                        "BracketsThatAreTooShort", "la[l a]", "=2",
                        "not reached: la[l a] [l a]: its brackets give 1 syllable for 2 notes"}),
    [](const auto& test) { return std::string(test.param.name); });

std::string repeated(const std::string& text, std::size_t count) {
    std::string all;
    for (std::size_t i = 0; i < count; ++i) {
        all += text;
    }
    return all;
}

std::size_t conversionsOf(const SongWord& word, WaysToFit ways = {}) {
    LyricReader reader;
    WordFitter(reader, ways).fit(word);
    return reader.conversions();
}

TEST_F(WordFitterTest, ReadsAWordOnceForEachOfItsEntries) {
    EXPECT_EQ(conversionsOf(divided("Gloria", {1, 1, 1})), 1u);
    EXPECT_EQ(conversionsOf(divided("Gloria", {3, 1, 1})), 1u);
    EXPECT_EQ(conversionsOf(counted("Gloria", 9)), 1u);
    EXPECT_EQ(conversionsOf(divided("our", {3})), 3u);
    EXPECT_EQ(conversionsOf(counted("our", 5)), 3u);
    EXPECT_EQ(conversionsOf(divided("fiasco", {1, 1, 3}), kWithBrackets), 1u);
    EXPECT_EQ(conversionsOf(counted(repeated("か ", 400), 401)), 1u);
}

TEST_F(WordFitterTest, ReadsAWordWithHyphensOnceMore) {
    EXPECT_EQ(conversionsOf(divided("lo-ve", {3})), 2u);
}

TEST_F(WordFitterTest, FitsAWordOfManySyllables) {
    const auto fitted = fit(counted(repeated("か ", 400), 401));
    EXPECT_EQ(fitted.outcome, Outcome::Hyphens);
    EXPECT_EQ(fitted.text, repeated("か ", 399) + "かー ");
}

TEST_F(WordFitterTest, SearchesForNothingLongerThanAWord) {
    const auto expectTooLong = [](const SongWord& word) {
        const auto fitted = fit(word, kWithBrackets);
        EXPECT_EQ(fitted.outcome, Outcome::NotReached);
        EXPECT_EQ(fitted.reason, "it is longer than a search goes");
        EXPECT_EQ(fitted.text, word.text);
    };
    expectTooLong(counted(repeated("か", 1001), 1));
    expectTooLong(counted("か", 1001));
    EXPECT_EQ(fit(counted(repeated("か", 999), 1000)).outcome, Outcome::Hyphens);
    EXPECT_EQ(fit(counted(repeated("か", 1001), 1001)).outcome, Outcome::AsItIs);
}

TEST_F(WordFitterTest, SearchesOnceForEachWordAndDivision) {
    LyricReader reader;
    WordFitter fitter(reader, {});
    const auto& first = fitter.fit(divided("Gloria", {3, 1, 1}));
    const auto conversions = reader.conversions();
    EXPECT_EQ(&fitter.fit(divided("Gloria", {3, 1, 1})), &first);
    EXPECT_EQ(reader.conversions(), conversions);
    EXPECT_EQ(fitter.fit(divided("Gloria", {1, 3, 1})).text, "Glori--a");
    EXPECT_EQ(first.text, "Glo--ria");
}

TEST_F(WordFitterTest, LeavesItsOwnAnswersAsTheyAre) {
    for (const auto& word :
         {divided("Gloria", {3, 1, 1}), divided("our", {3}), divided("fiasco", {1, 1, 3})}) {
        const auto fitted = fit(word, kWithBrackets);
        const auto again = fit(counted(fitted.text, word.notes), kWithBrackets);
        EXPECT_EQ(again.outcome, Outcome::AsItIs);
        EXPECT_EQ(again.syllables, fitted.syllables);
    }
}

TEST_F(WordFitterTest, HasEachTextTypedOnceIntoTheModule) {
    useEditor([](simulator::Editor& editor) {
        wysim::song::Song song;
        song.tracks = {{"", {}}};
        for (const bool isTyped : {true, false, true, false, true}) {
            const auto start = static_cast<double>(song.tracks[0].notes.size());
            song.tracks[0].notes.push_back({start, 1, 60, isTyped ? "love" : "", isTyped, false});
        }
        wysim::terminal::Progress progress;
        const auto words = fitWords(editor, reader(), song, {}, progress);
        ASSERT_EQ(words.size(), 3u);
        EXPECT_EQ(words[0].fitted.text, "love-");
        EXPECT_EQ(words[0].carried, (Syllables{"l ah", "- v"}));
        EXPECT_EQ(words[2].carried, Syllables{"l ah v"});
    });
}

} // namespace

} // namespace wybeta::tests
