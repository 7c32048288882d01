// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/words/Respelling.h"

#include "lyrics/LyricConversion.h"
#include "tests/unit/dictionary/LoadedDictionary.h"
#include "tests/wysim/words/DictionaryWords.h"
#include "wysim/words/Sounds.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <ostream>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace wybeta::tests {

namespace {

using wysim::words::Respelling;
using wysim::words::respellingsOf;
using wysim::words::symbolsOf;

std::string joined(const std::vector<std::string>& texts, const char* separator) {
    std::string all;
    for (const auto& text : texts) {
        all += (all.empty() ? "" : separator) + text;
    }
    return all;
}

// "syllable,syllable < word word"
std::string described(const Respelling& respelling) {
    return joined(respelling.syllables, ",") + " < " + joined(respelling.words, " ");
}

std::vector<std::string> allOf(std::u32string_view word) {
    std::vector<std::string> all;
    for (const auto& respelling : respellingsOf(word, realDictionary())) {
        all.push_back(described(respelling));
    }
    return all;
}

std::string firstOf(std::u32string_view word,
                    const dictionary::PronunciationDictionary& dictionary = realDictionary()) {
    const auto respellings = respellingsOf(word, dictionary);
    return respellings.empty() ? "none" : described(respellings.front());
}

struct WordCase {
    const char* name;
    const char32_t* word;
    const char* first;
};

void PrintTo(const WordCase& example, std::ostream* out) {
    *out << example.name;
}

class FirstRespelling : public testing::TestWithParam<WordCase> {};

TEST_P(FirstRespelling, IsTheLikeliest) {
    EXPECT_EQ(firstOf(GetParam().word), GetParam().first);
}

const auto nameOfWord = [](const auto& test) { return std::string(test.param.name); };

INSTANTIATE_TEST_SUITE_P(
    Plain, FirstRespelling,
    testing::Values(WordCase{"CapitalLetters", U"LOVE", "l ah v < love"},
                    WordCase{"TypographicApostrophe", U"don’t", "d ow n t < don't"},
                    WordCase{"Accent", U"café", "k ah,f ey < cafe"},
                    WordCase{"Dash", U"to–day", "t ah,d ey < today"},
                    WordCase{"NonBreakingHyphen", U"to‑day", "t ah,d ey < today"},
                    WordCase{"HyphenBetweenWords", U"good-night", "g uh d,n ay t < goodnight"},
                    WordCase{"DashBetweenWords", U"bye—and—bye", "b ay,ah n d,b ay < bye and bye"},
                    WordCase{"HyphenBetweenDerivedWords", U"dew-pearlèd",
                             "d uw,p er,l ih d < dew pearl"}),
    nameOfWord);

INSTANTIATE_TEST_SUITE_P(
    LeftOut, FirstRespelling,
    testing::Values(WordCase{"Vowel", U"heav'n", "hh eh v n < heaven"},
                    WordCase{"VowelBeforeAPossessive", U"heav’n's", "hh eh v n z < heaven's"},
                    WordCase{"VowelOfTwoPronunciations", U"ev'ry", "eh v,r iy < every(1)"},
                    WordCase{"VowelOfAJoinedWord", U"ev'rywhere", "eh v,r iy,w eh r < everywhere"},
                    WordCase{"VowelThatTheDictionaryLeavesOut", U"ev'nings",
                             "iy v,n ih ng z < evenings"},
                    WordCase{"VowelAfterAVowel", U"pow'r", "p aw r < power"},
                    WordCase{"VowelOfFlower", U"Flow’r", "f l aw r < flower"},
                    WordCase{"VowelBeforeAnEnding", U"flow'ring", "f l aw,r ih ng < flowering"},
                    WordCase{"VowelBeforeR", U"glitt'ring", "g l ih,t r ih ng < glittering"},
                    WordCase{"VowelBeforeRAndY", U"mem'ries", "m eh m,r iy z < memories"},
                    WordCase{"VowelBeforeW", U"shad'wy", "sh ae,d w iy < shadowy"},
                    WordCase{"VowelBeforeI", U"glor'ous", "g l ao r,y ah s < glorious"},
                    WordCase{"VowelWithAGlide", U"pop'lar", "p aa,p l er < popular"},
                    WordCase{"VowelBeforeASilentE", U"def'nite", "d eh f,n ah t < definite"},
                    WordCase{"VowelOfADerivedWord", U"suff'rest", "s ah,f r ah s t < suffer"},
                    WordCase{"Syllable", U"o'er", "ao r < over"},
                    WordCase{"SyllableOfEver", U"e'er", "eh r < ever"},
                    WordCase{"SyllableOfNever", U"Ne’er", "n eh r < ne'er"},
                    WordCase{"SyllableOfWhenever", U"whene'er", "w eh,n eh r < whenever"},
                    WordCase{"SyllableOfEven", U"e'en", "iy n < even"},
                    WordCase{"SyllableOfTaken", U"ta'en", "t ey n < taken"},
                    WordCase{"VowelAfterQu", U"conqu'ring", "k aa ng,k r ih ng < conquering"},
                    WordCase{"TwoLetters", U"mys't'ry", "m ih,s t r iy < mystery"},
                    WordCase{"SilentL", U"wou'd", "w uh d < would"},
                    WordCase{"LastG", U"singin'", "s ih ng,ih n < singin'"},
                    WordCase{"LastGOfAnotherWord", U"burstin’", "b er,s t ih n < bursting"},
                    WordCase{"LastGWithoutAMark", U"burstin", "b er,s t ih n < bursting"},
                    WordCase{"LastT", U"almos'", "ao l,m ow s < almost"},
                    WordCase{"LastTh", U"wi'", "w ih < with"},
                    WordCase{"LastD", U"an'", "ah n < and"},
                    WordCase{"LastSilentLetters", U"thro'", "th r uw < through"},
                    WordCase{"FirstSyllable", U"'neath", "n iy th < beneath"},
                    WordCase{"FirstSyllableOfAgainst", U"'gainst", "g eh n s t < against"},
                    WordCase{"FirstSyllableWithoutAMark", U"neath", "n iy th < beneath"},
                    WordCase{"NothingInFront", U"'till", "t ih l < till"},
                    WordCase{"H", U"'appy", "ae,p iy < happy"}),
    nameOfWord);

INSTANTIATE_TEST_SUITE_P(
    BesideAnotherWord, FirstRespelling,
    testing::Values(WordCase{"TheBeforeAVowel", U"th'expanse", "dh ih k,s p ae n s < expanse"},
                    WordCase{"TheBeforeAnotherVowel", U"th’eternal", "dh ih,t er,n ah l < eternal"},
                    WordCase{"TheBeforeAConsonant", U"th'sea", "dh ah,s iy < sea"},
                    WordCase{"TheByItself", U"th'", "dh ah < the"},
                    WordCase{"It", U"'twould", "t w uh d < would"},
                    WordCase{"ItBehind", U"if't", "ih f t < if"},
                    WordCase{"ItBeforeAVowel", U"'tisn't", "t ih,z ah n t < isn't"},
                    WordCase{"Art", U"thou'rt", "dh aw r t < thou"},
                    WordCase{"Will", U"moon'll", "m uw,n ah l < moon"},
                    WordCase{"Have", U"winds've", "w ih n d,z ah v < winds"}),
    nameOfWord);

INSTANTIATE_TEST_SUITE_P(
    PastTense, FirstRespelling,
    testing::Values(
        WordCase{"Apostrophe", U"Kiss'd", "k ih s t < kissed"},
        WordCase{"ApostropheAfterAnE", U"chang'd", "ch ey n jh d < changed"},
        WordCase{"ApostropheAfterADoubledLetter", U"hopp'd", "hh aa p t < hopped"},
        WordCase{"ApostropheInALongerWord", U"wither'd", "w ih,dh er d < withered"},
        WordCase{"ApostropheAfterT", U"wanted'", "w ao n,t ih d < wanted"},
        WordCase{"ApostropheWhereNoOtherWayIsSung", U"want'd", "w ao n,t ih d < wanted"},
        WordCase{"Accent", U"reignèd", "r ey,n ih d < reign"},
        WordCase{"AccentOnAnotherWord", U"blessèd", "b l eh,s ih d < bless"},
        WordCase{"AccentAfterADroppedE", U"wakèd", "w ey,k ih d < wake"},
        WordCase{"AccentAfterAY", U"tarriéd", "t eh,r iy,ih d < tarry"},
        WordCase{"AccentThatTheDictionaryHears", U"sacrèd", "s ey,k r ah d < sacred"},
        WordCase{"AccentOnASecondPronunciation", U"learnèd", "l er,n ih d < learned(1)"},
        WordCase{"EndingAfterAVowel", U"daisied", "d ey,z iy d < daisy"},
        WordCase{"EndingAfterT", U"kilted", "k ih l,t ih d < kilt"},
        WordCase{"T", U"slipt", "s l ih p t < slip"},
        WordCase{"TAfterTwoLetters", U"drest", "d r eh s t < dress"}),
    nameOfWord);

INSTANTIATE_TEST_SUITE_P(
    OldVerb, FirstRespelling,
    testing::Values(WordCase{"Est", U"lovest", "l ah,v ah s t < love"},
                    WordCase{"Eth", U"loveth", "l ah,v ih th < love"},
                    WordCase{"EthAfterAVowel", U"goeth", "g ow,ih th < go"},
                    WordCase{"EthAfterADoubledLetter", U"admitteth", "ah d,m ih,t ih th < admit"},
                    WordCase{"EthAfterAnI", U"crieth", "k r ay,ih th < cry"},
                    WordCase{"EthAfterTwoE", U"seeth", "s iy,ih th < see"},
                    WordCase{"St", U"know'st", "n ow s t < know"},
                    WordCase{"StAfterNg", U"sing'st", "s ih ng s t < sing"},
                    WordCase{"StAfterADroppedE", U"gav'st", "g ey v s t < gave"},
                    WordCase{"StAfterASibilant", U"ris'st", "r ay,z ah s t < rise"},
                    WordCase{"StOfAnAuxiliary", U"wouldst", "w uh d s t < would"},
                    WordCase{"StOfAnAuxiliaryWithAMark", U"can'st", "k ae n s t < can"},
                    WordCase{"Saith", U"saith", "s eh th < says"}),
    nameOfWord);

INSTANTIATE_TEST_SUITE_P(
    Ending, FirstRespelling,
    testing::Values(WordCase{"PluralOfAVoicedSound", U"rills", "r ih l z < rill"},
                    WordCase{"PluralOfAVoicelessSound", U"cowslips", "k aw,s l ih p s < cowslip"},
                    WordCase{"PluralOfASibilant", U"cypresses", "s ay,p r ah,s ih z < cypress"},
                    WordCase{"PluralOfAY", U"tarries", "t eh,r iy z < tarry"},
                    WordCase{"PluralOfAYAfterAPrefix", U"middies", "m ih,d iy z < mid"},
                    WordCase{"PluralOfAnO", U"grottoes", "g r aa,t ow z < grotto"},
                    WordCase{"Possessive", U"wisdom’s", "w ih z,d ah m z < wisdom"},
                    WordCase{"PossessiveOfASibilant", U"finch's", "f ih n,ch ih z < finch"},
                    WordCase{"PossessiveOfAPlural", U"spirits'", "s p ih,r ih t s < spirits"},
                    WordCase{"Ing", U"cleaving", "k l iy,v ih ng < cleave"},
                    WordCase{"IngAfterASyllabicL", U"girdling", "g er d,l ih ng < girdle"},
                    WordCase{"Er", U"gleaner", "g l iy,n er < glean"},
                    WordCase{"Superlative", U"serenest", "s er,iy,n ah s t < serene"},
                    WordCase{"Less", U"dreamless", "d r iy m,l ah s < dream"},
                    WordCase{"Ness", U"loveliness", "l ah v,l iy,n ah s < lovely"},
                    WordCase{"Ful", U"doomful", "d uw m,f ah l < doom"},
                    WordCase{"Ly", U"fastly", "f ae s t,l iy < fast"},
                    WordCase{"LyAfterAnI", U"daintily", "d ey n,t ah,l iy < dainty"},
                    WordCase{"Like", U"angellike", "ey n,jh ah l,l ay k < angel"},
                    WordCase{"Ward", U"earthward", "er,th w er d < earth"},
                    WordCase{"Some", U"lovesome", "l ah v,s ah m < love"},
                    WordCase{"Hood", U"angelhood", "ey n,jh ah l,hh uh d < angel"},
                    WordCase{"Ship", U"minstrelship", "m ih n,s t r ah l,sh ih p < minstrel"},
                    WordCase{"Land", U"elfland", "eh l,f l ah n d < elf"},
                    WordCase{"Wise", U"anglewise", "ae ng,g ah l,w ay z < angle"},
                    WordCase{"N", U"silvern", "s ih l,v er n < silver"},
                    WordCase{"Y", U"brambly", "b r ae m,b l iy < bramble"},
                    WordCase{"Several", U"forgetfulness",
                             "f ao r,g eh t,f ah l,n ah s < forgetful"}),
    nameOfWord);

INSTANTIATE_TEST_SUITE_P(
    Beginning, FirstRespelling,
    testing::Values(WordCase{"Un", U"unguessed", "ah n,g eh s t < guessed"},
                    WordCase{"Re", U"rebloom", "r iy,b l uw m < bloom"},
                    WordCase{"Be", U"bestrew", "b ih,s t r uw < strew"},
                    WordCase{"A", U"athrill", "ah,th r ih l < thrill"},
                    WordCase{"AWithAHyphen", U"a-shearing", "ah,sh ih,r ih ng < a shearing"},
                    WordCase{"Over", U"overbrim", "ow,v er,b r ih m < brim"},
                    WordCase{"Under", U"underwing", "ah n,d er,w ih ng < wing"},
                    WordCase{"Out", U"outsoar", "aw t,s ao r < soar"},
                    WordCase{"Fore", U"foreknow", "f ao r,n ow < know"},
                    WordCase{"Mis", U"mislight", "m ih,s l ay t < light"},
                    WordCase{"Where", U"whereon", "w eh,r aa n < on"},
                    WordCase{"OfAWordWithAnEnding", U"beforgiven",
                             "b ih,f er,g ih,v ah n < forgiven"}),
    nameOfWord);

INSTANTIATE_TEST_SUITE_P(
    Spelling, FirstRespelling,
    testing::Values(WordCase{"Our", U"splendour", "s p l eh n,d er < splendor"},
                    WordCase{"OurInside", U"dishonourable",
                             "d ih,s aa,n er,ah,b ah l < dishonorable"},
                    WordCase{"OurWithAnEnding", U"colours", "k ah,l er z < colors"},
                    WordCase{"Ise", U"civilise", "s ih,v ah,l ay z < civilize"},
                    WordCase{"Yse", U"analyse", "ae,n ah,l ay z < analyze"},
                    WordCase{"OneL", U"fulfil", "f uh l,f ih l < fulfill"},
                    WordCase{"OneLInside", U"skilful", "s k ih l,f ah l < skillful"},
                    WordCase{"TwoL", U"carolled", "k ae,r ah l d < carol"},
                    WordCase{"Ae", U"mediæval", "m ih,d iy,v ah l < medieval"},
                    WordCase{"Oe", U"fœtus", "f iy,t ah s < fetus"},
                    WordCase{"Quer", U"chequer'd", "ch eh,k er d < checker"},
                    WordCase{"LastE", U"confesse", "k ah n,f eh s < confess"},
                    WordCase{"LastIe", U"countrie", "k ah n,t r iy < country"},
                    WordCase{"LastK", U"rhetorick", "r eh,t er,ih k < rhetoric"}),
    nameOfWord);

// The rules by themselves, for words that the whole dictionary has.
dictionary::PronunciationDictionary smallDictionary() {
    return loadDictionary("love\tl ah1 v\tlove\n"
                          "hop\thh aa1 p\thop\n"
                          "hope\thh ow1 p\tho . pe\n"
                          "smit\ts m ih1 t\tsmi . t\n"
                          "center\ts eh1 n . t er0\tce . nte . r\n"
                          "dialog\td ay1 . ah0 . l ao2 g\tdia . lo . g\n"
                          "esthetic\teh0 s . th eh1 . t ih0 k\te . sthe . ti . c\n"
                          "go\tg ow1\tgo\n"
                          "be\tb iy1\tbe\n"
                          "are\taa1 r\ta . re\n"
                          "bed\tb eh1 d\tbe . d\n"
                          "brave\tb r ey1 v\tbra . ve\n"
                          "bravest\tb r ey1 . v ah0 s t\tbra . ve . st\n"
                          "denot\td iy1 . n ah0 t\tde . no . t\n"
                          "denote\td ih0 . n ow1 t\tde . no . te\n"
                          "desire\td ih0 . z ay1 . er0\tde . si . re\n"
                          "judge\tjh ah1 jh\tju . dge\n"
                          "los\tl aa1 s\tlo . s\n"
                          "rise\tr ay1 z\tri . se\n"
                          "vie\tv ay1\tvie\n"
                          "lo\tl ow1\tlo\n"
                          "xtz\tz\txtz\n");
}

TEST(Respelling, DropsAnEDoublesAConsonantAndKnowsWhichIsMeant) {
    const auto dictionary = smallDictionary();
    EXPECT_EQ(firstOf(U"loving", dictionary), "l ah,v ih ng < love");
    EXPECT_EQ(firstOf(U"loves", dictionary), "l ah v z < love");
    EXPECT_EQ(firstOf(U"hoping", dictionary), "hh ow,p ih ng < hope");
    EXPECT_EQ(firstOf(U"hopping", dictionary), "hh aa,p ih ng < hop");
    EXPECT_EQ(firstOf(U"hopes", dictionary), "hh ow p s < hope");
    EXPECT_EQ(firstOf(U"denoting", dictionary), "d ih,n ow,t ih ng < denote");
    EXPECT_EQ(firstOf(U"desiring", dictionary), "d ih,z ay,r ih ng < desire");
    EXPECT_EQ(firstOf(U"vying", dictionary), "v ay,ih ng < vie");
    EXPECT_EQ(firstOf(U"smiting", dictionary), "none");
    EXPECT_EQ(firstOf(U"smitting", dictionary), "s m ih,t ih ng < smit");
}

TEST(Respelling, EndsInTheSoundThatGoesWithTheOneBefore) {
    const auto dictionary = smallDictionary();
    EXPECT_EQ(firstOf(U"hopped", dictionary), "hh aa p t < hop");
    EXPECT_EQ(firstOf(U"loved", dictionary), "l ah v d < love");
    EXPECT_EQ(firstOf(U"hopedly", dictionary), "hh ow,p ih d,l iy < hope");
    EXPECT_EQ(firstOf(U"judges", dictionary), "jh ah,jh ih z < judge");
    EXPECT_EQ(firstOf(U"braves'", dictionary), "b r ey v z < brave");
    EXPECT_EQ(firstOf(U"loss", dictionary), "none");
    EXPECT_EQ(firstOf(U"hopt", dictionary), "hh aa p t < hop");
    EXPECT_EQ(firstOf(U"rist", dictionary), "none")
        << "only a sound without voice has a t after it";
    EXPECT_EQ(firstOf(U"b'd", dictionary), "b eh d < bed");
}

TEST(Respelling, IsTheAmericanSpellingOfABritishOne) {
    const auto dictionary = smallDictionary();
    EXPECT_EQ(firstOf(U"centre", dictionary), "s eh n,t er < center");
    EXPECT_EQ(firstOf(U"dialogue", dictionary), "d ay,ah,l ao g < dialog");
    EXPECT_EQ(firstOf(U"aesthetic", dictionary), "eh s,th eh,t ih k < esthetic");
}

TEST(Respelling, IsNotGuessedFromShortPartsOrPartsWithoutAVowel) {
    const auto dictionary = smallDictionary();
    for (const auto* const word :
         {U"lor", U"ungo", U"bego", U"beless", U"xtzness", U"unxtz", U"beare", U"aare"}) {
        EXPECT_EQ(firstOf(word, dictionary), "none");
    }
    EXPECT_EQ(firstOf(U"lovehope", dictionary), "none") << "a joined word has a prefix or suffix";
}

TEST(Respelling, IsNoneOfWordsWithHardlyAnyPhonemes) {
    const auto dictionary = loadDictionary("void\t\tvoi . d\n"
                                           "all\tl\tall\n"
                                           "medical\tah0 l\tme . di . ca . l\n");
    EXPECT_EQ(firstOf(U"void", dictionary), "none");
    EXPECT_EQ(firstOf(U"voidless", dictionary), "none");
    EXPECT_EQ(firstOf(U"ally", dictionary), "l iy < all");
    EXPECT_EQ(firstOf(U"medically", dictionary), "ah l,l iy < medical");
    EXPECT_EQ(firstOf(U"'all", dictionary), "none") << "a consonant alone is not sung";
}

TEST(Respelling, IsEachOfSeveralOnceAndFiveAtMost) {
    using Lines = std::vector<std::string>;
    EXPECT_EQ(allOf(U"throned"), (Lines{"th r ow n d < throne", "th r ow,n ih d < throne"}));
    EXPECT_EQ(allOf(U"ask'd"), (Lines{"ae s k t < asked", "ae s t < asked(1)"}));
    EXPECT_EQ(allOf(U"a-shearing"), (Lines{"ah,sh ih,r ih ng < a shearing"}));
    EXPECT_EQ(allOf(U"e'er"), (Lines{"eh r < ever"}));
    EXPECT_EQ(allOf(U"s'amyed").size(), 5U);
}

TEST(Respelling, IsNoneForWhatIsNoWord) {
    for (const auto* const word :
         {U"",      U"'",          U"-",         U"''''",   U"--",         U"7",
          U"q9",    U"lo\u0007ve", U"Привет",    U"さくら", U"桜",         U"love me",
          U"xyzzy", U"brrrt",      U"tle",       U"nae",    U"good-xyzzy", U"reinsten",
          U"love!", U"\u0300",     U"\U0010FFFF"}) {
        EXPECT_EQ(respellingsOf(word, realDictionary()).size(), 0U);
    }
}

TEST(Respelling, OfEndlessWordsIsNone) {
    std::u32string endings;
    std::u32string apostrophes;
    while (endings.size() < 10'000) {
        endings += U"less";
        apostrophes += U"o'";
    }
    for (const std::size_t size : {10'000U, 65U, 64U, 63U}) {
        EXPECT_EQ(respellingsOf(endings.substr(0, size), realDictionary()).size(), 0U);
        EXPECT_EQ(respellingsOf(apostrophes.substr(0, size), realDictionary()).size(), 0U);
        EXPECT_EQ(respellingsOf(std::u32string(size, U'a'), realDictionary()).size(), 0U);
        EXPECT_EQ(respellingsOf(std::u32string(size, U'-'), realDictionary()).size(), 0U);
    }
}

TEST(Respelling, HasOnlySymbolsOfTheDictionary) {
    std::set<std::string, std::less<>> symbols;
    for (const auto line : dictionaryLines()) {
        const auto entry = realDictionary().find(wordOf(line));
        for (const auto& symbol : symbolsOf(entry ? std::string(entry->phonemes) : "")) {
            symbols.insert(symbol);
        }
    }
    EXPECT_EQ(symbols.size(), 39U);
    for (const auto* const word :
         {U"o'er", U"shad'wy", U"glor'ous", U"reignèd", U"moon'll", U"th'sea", U"slipt", U"whereon",
          U"tarries", U"saith", U"wi'", U"unguessed", U"forgetfulness"}) {
        for (const auto& respelling : respellingsOf(word, realDictionary())) {
            for (const auto& symbol : symbolsOf(joined(respelling.syllables, " "))) {
                EXPECT_EQ(symbols.count(symbol), 1U) << symbol;
            }
        }
    }
}

// A dictionary that lacks every tenth of its words, and those words.
struct Thinned {
    dictionary::PronunciationDictionary dictionary;
    std::vector<std::string_view> missing;
};

Thinned thinnedDictionary() {
    const auto isLetter = [](char letter) { return letter >= 'a' && letter <= 'z'; };
    std::string text;
    std::vector<std::string_view> missing;
    for (std::size_t i = 0; i < dictionaryLines().size(); ++i) {
        const auto line = dictionaryLines()[i];
        const auto word = wordOf(line);
        if (i % 10 == 0 && std::all_of(word.begin(), word.end(), isLetter)) {
            missing.push_back(word);
        } else {
            text.append(line).append("\n");
        }
    }
    return {loadDictionary(text), std::move(missing)};
}

// 4,096 of the words are found, many names among the others, and 3,971 of them agree.
TEST(Respelling, HasTheSyllablesOfMostWordsThatWereTakenOutOfTheDictionary) {
    const auto thinned = thinnedDictionary();
    std::size_t found = 0;
    std::size_t agreeing = 0;
    for (const auto word : thinned.missing) {
        const std::u32string written(word.begin(), word.end());
        const auto respellings = respellingsOf(written, thinned.dictionary);
        const auto syllables = lyrics::lyricToSyllables(word, realDictionary()).size();
        if (!respellings.empty()) {
            ++found;
            agreeing += respellings.front().syllables.size() == syllables ? 1U : 0U;
        }
    }
    RecordProperty("found", static_cast<int>(found));
    RecordProperty("agreeing", static_cast<int>(agreeing));
    EXPECT_GE(found * 100, thinned.missing.size() * 35) << found;
    EXPECT_GE(agreeing * 100, found * 96) << agreeing << " of " << found;
}

} // namespace

} // namespace wybeta::tests
