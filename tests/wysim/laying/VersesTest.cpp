// SPDX-License-Identifier: GPL-3.0-or-later
//
// Songs in the public domain, as singers sing them.
#include "wysim/laying/LaidText.h"

#include "tests/wysim/SmallMelodies.h"
#include "wysim/words/LyricReader.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <ostream>
#include <string>

namespace wybeta::tests {

namespace {

using namespace wysim::laying;

struct Verse {
    const char* name;
    const char* melody;
    const char* text;
    const char* places; // "1:love 2:me", lines apart by "/"
};

void PrintTo(const Verse& verse, std::ostream* out) {
    *out << verse.name;
}

class VerseUnderItsMelody : public testing::TestWithParam<Verse> {};

std::string placesOf(const LaidText& laid) {
    std::string places;
    for (std::size_t i = 0; i < laid.words.size(); ++i) {
        const auto& word = laid.words[i];
        const bool isNextLine = i > 0 && laid.words[i - 1].line != word.line;
        places += i == 0 ? "" : isNextLine ? " / " : " ";
        places += word.note ? std::to_string(*word.note) + ":" + word.typed : "-:" + word.text;
    }
    return places;
}

TEST_P(VerseUnderItsMelody, IsLaidAsItIsSung) {
    wysim::words::LyricReader reader;
    const auto laid = TextLaying(reader, false)
                          .lay(linesOfText(GetParam().text), songOfMelody(GetParam().melody), 0);
    EXPECT_EQ(placesOf(laid), GetParam().places);
}

constexpr Verse kVerses[] = {
    {"Twinkle", "C4 C4 G4 G4 A4 A4 G4:2, F4 F4 E4 E4 D4 D4 C4:2,",
     "Twinkle, twinkle, little star,\nHow I wonder what you are!",
     "1:Twinkle 3:twinkle 5:little 7:star / 8:How 9:I 10:wonder 12:what 13:you 14:are"},
    {"AmazingGrace",
     "D4 G4:2 B4:0.5 ~G4:0.5 B4:2 A4 G4:2 E4 D4:2, D4 G4:2 B4:0.5 ~G4:0.5 B4:2 A4:0.5 ~B4:0.5 "
     "D5:3,",
     "Amazing grace! how sweet the sound\nThat saved a wretch like me!",
     "1:Amazing- 5:grace 6:how 7:sweet 8:the 9:sound / 10:That 11:saved 12:a- 14:wretch 15:like- "
     "17:me"},
    {"RowYourBoat",
     "C4:1.5 C4:1.5 C4 D4:0.5 E4:1.5 E4 D4:0.5 E4 F4:0.5 G4:3 C5:0.5 C5:0.5 C5:0.5 G4:0.5 G4:0.5 "
     "G4:0.5 E4:0.5 E4:0.5 E4:0.5 C4:0.5 C4:0.5 C4:0.5 G4 F4:0.5 E4 D4:0.5 C4:3",
     "Row, row, row your boat,\nGently down the stream.\nMerrily, merrily, merrily, merrily,\nLife "
     "is but a dream.",
     "1:Row 2:row 3:row 4:your 5:boat / 6:Gently 8:down 9:the 10:stream / 11:Merrily 14:merrily "
     "17:merrily 20:merrily / 23:Life 24:is 25:but 26:a 27:dream"},
    {"MaryHadALittleLamb", "E4 D4 C4 D4 E4 E4 E4:2, D4 D4 D4:2, E4 G4 G4:2,",
     "Mary had a little lamb,\nlittle lamb,\nlittle lamb",
     "1:Mary 3:had 4:a 5:little 7:lamb / 8:little 10:lamb / 11:little 13:lamb"},
    {"LondonBridge", "G4:1.5 A4:0.5 G4 F4 E4 F4 G4:2, D4 E4 F4:2, E4 F4 G4:2,",
     "London Bridge is falling down,\nfalling down, falling down,",
     "1:London 3:Bridge 4:is 5:falling 7:down / 8:falling 10:down 11:falling 13:down"},
    {"JoyToTheWorld",
     "D5:2 C#5:1.5 B4:0.5 A4:3 G4 F#4:2 E4:2 D4:3, A4 B4:3 B4 C#5:3 C#5 D5:3, D5 D5 ~C#5 B4 ~A4 "
     "A4:1.5 ~G4:0.5 ~F#4 D5 D5 ~C#5 B4 ~A4 A4:1.5 ~G4:0.5 ~F#4,",
     "Joy to the world! the Lord is come;\nLet earth receive her King;\nLet every heart prepare "
     "him room",
     "1:Joy 2:to 3:the 4:world 5:the 6:Lord 7:is 8:come / 9:Let 10:earth 11:receive 13:her 14:King "
     "/ 15:Let 16:e-very-(1) 20:heart-- 23:prepare- 26:him- 28:room--"},
    {"SilentNight", "G4:1.5 ~A4:0.5 G4 E4:3, G4:1.5 ~A4:0.5 G4 E4:3, D5:2 D5 B4:3, C5:2 C5 G4:3,",
     "Silent night! Holy night!\nAll is calm, all is bright",
     "1:Si-lent 4:night 5:Ho-ly 8:night / 9:All 10:is 11:calm 12:all 13:is 14:bright"},
    {"Sakura", "A4 A4 B4:2 A4 A4 B4:2 A4 B4 C5 B4 A4 B4:0.5 ~A4:0.5 F4:2,",
     "さくら さくら\nやよいのそらは", "1:さくら 4:さくら / 7:やよいのそらーは"},
    {"HotaruNoHikari", "C4 F4:1.5 F4:0.5 F4 A4 G4:1.5 F4:0.5 G4 A4 F4:1.5 ~F4:0.5 A4 ~C5 D5:3,",
     "ほたるのひかり まどのゆき", "1:ほたるのひかり 8:まどのーゆーき"},
    {"Chocho", "G4 E4 E4:2 F4 D4 D4:2 C4 D4 E4 F4 G4 G4 G4:2,",
     "ちょうちょ ちょうちょ\nなのはにとまれ", "1:ちょうちょ 4:ちょうちょ / 7:なのはにとまれ"},
    {"ScarboroughFair", "D4:2 D4 A4 A4 A4 E4:1.5 F4:0.5 E4 D4:3, A4 C5:2 D5 C5 A4 B4 G4 A4:3,",
     "Are you going to Scarborough Fair?\nParsley, sage, rosemary and thyme",
     "1:Are 2:you 3:going 5:to 6:Scarborough 9:Fair / 10:Parsley 12:sage 13:rosemary 16:and "
     "17:thyme"},
};

INSTANTIATE_TEST_SUITE_P(InThePublicDomain, VerseUnderItsMelody, testing::ValuesIn(kVerses),
                         [](const auto& verse) { return verse.param.name; });

} // namespace

} // namespace wybeta::tests
