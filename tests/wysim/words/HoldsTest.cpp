// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/words/Holds.h"

#include "wysim/words/LyricReader.h"

#include <gtest/gtest.h>

#include <optional>
#include <vector>

namespace wybeta::tests {

namespace {

using namespace wysim::words;

const Syllables kHello = {"hh ah", "l ow"};
const Syllables kKatta = {"k a", "cl", "t a", "-"};

TEST(Holds, GiveEachSyllableTheNotesOfTheScore) {
    EXPECT_EQ(holdsFor(kHello, {1, 3}), (Holds{0, 2}));
    EXPECT_EQ(holdsFor(kHello, {}), std::nullopt);
    EXPECT_EQ(holdsFor(kHello, {2}), std::nullopt);
    EXPECT_EQ(holdsFor({}, {}), std::nullopt);
}

TEST(Holds, TakeALongVowelForPartOfTheSyllableBeforeIt) {
    EXPECT_EQ(holdsFor(kKatta, {1, 1, 1, 2}), (Holds{0, 0, 0, 1}));
    EXPECT_EQ(holdsFor(kKatta, {1, 2, 3}), (Holds{0, 1, 0, 1}));
    EXPECT_EQ(holdsFor(kKatta, {1, 1, 1}), std::nullopt);
}

TEST(Holds, AreWrittenAsHyphensBehindTheSyllable) {
    EXPECT_EQ(withHolds(kHello, {1, 2}), (Syllables{"hh ah", "-", "l ow", "-", "-"}));
}

TEST(Holds, SpreadSyllablesOverAnyNumberOfNotes) {
    EXPECT_EQ(spread(kHello, 3), (Syllables{"hh ah", "l ow", "-"}));
    EXPECT_EQ(spread(kHello, 2), kHello);
    EXPECT_EQ(spread(kHello, 1), Syllables{"hh ah l ow"});
    EXPECT_EQ(spread(kKatta, 3), (Syllables{"k a", "cl", "t a"}));
}

} // namespace

} // namespace wybeta::tests
