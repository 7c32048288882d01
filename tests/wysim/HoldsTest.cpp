// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/session/Holds.h"

#include "wysim/session/ScratchTrack.h"

#include <gtest/gtest.h>

#include <optional>
#include <vector>

namespace wybeta::tests {

namespace {

using namespace wysim::session;
using namespace wysim::words;

const Syllables kHello = {"hh ah", "l ow"};
const Syllables kLight = {"l ay t"};
const Syllables kKatta = {"k a", "cl", "t a", "-"};

TEST(Holds, AreRecognizedBySyllable) {
    EXPECT_TRUE(carryHeld({"hh ah", "l ow"}, kHello, {0, 0}));
    EXPECT_TRUE(carryHeld({"hh ah", "- ", "l ow"}, kHello, {1, 0}));
    EXPECT_TRUE(carryHeld({"l ay", "-", "- t"}, kLight, {2}));
    EXPECT_TRUE(carryHeld({"l ay t", "-"}, kLight, {1}));
    EXPECT_TRUE(carryHeld({"k a", "cl", "t a", "-", "-"}, kKatta, {0, 0, 0, 1}));
}

TEST(Holds, AreNotRecognizedInAnythingElse) {
    EXPECT_FALSE(carryHeld({"hh ah", "l ow"}, kHello, {0, 1}));
    EXPECT_FALSE(carryHeld({"hh ah", "l ow", "- "}, kHello, {1, 0}));
    EXPECT_FALSE(carryHeld({"hh ah", "l ow", "-"}, kHello, {0, 0}));
    EXPECT_FALSE(carryHeld({"hh ah"}, kHello, {0, 0}));
    EXPECT_FALSE(carryHeld({"l ay", "- d"}, kLight, {1}));
    EXPECT_FALSE(carryHeld({"l ay", "t"}, kLight, {1}));
    EXPECT_FALSE(carryHeld({"-", "l ay t"}, kLight, {1}));
    EXPECT_FALSE(carryHeld({}, kLight, {0}));
}

TEST(Holds, TellWhichSyllableIsHeldOnce) {
    const std::vector<bool> any(4, true);
    EXPECT_EQ(heldOnce({"hh ah", "- ", "l ow"}, kHello, any), 0u);
    EXPECT_EQ(heldOnce({"hh ah", "l ow", "- "}, kHello, any), 1u);
    EXPECT_EQ(heldOnce({"l ay", "- t"}, kLight, any), 0u);
    EXPECT_EQ(heldOnce({"hh ah", "l ow"}, kHello, any), std::nullopt);
    EXPECT_EQ(heldOnce({"hh ah", "l ow", "m iy"}, kHello, any), std::nullopt);
    EXPECT_EQ(heldOnce({"-"}, {}, any), std::nullopt);
}

TEST(Holds, OfAHoldCountForTheSyllableThatIsWanted) {
    const Syllables carried = {"k a", "cl", "t a", "-", "-"};
    EXPECT_EQ(heldOnce(carried, kKatta, {true, true, true, true}), 2u);
    EXPECT_EQ(heldOnce(carried, kKatta, {true, true, false, true}), 3u);
    EXPECT_EQ(heldOnce(carried, kKatta, {true, true, false, false}), std::nullopt);
}

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
