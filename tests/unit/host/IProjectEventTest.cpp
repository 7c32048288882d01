// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/IProjectEvent.h"
#include "tests/HandMadeObject.h"
#include "tests/unit/host/SlotExpectations.h"

#include "pluginterfaces/base/fvariant.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <cstring>
#include <tuple>

namespace wybeta::host {
namespace {

using Steinberg::FUnknown;
using Steinberg::FVariant;
using tests::expectAnswer;
using tests::HandMadeObject;

TEST(IPartEvent, TellsItsFlagInSlot12) {
    expectAnswer<12, bool()>(&IPartEvent::isFlagged, true);
    expectAnswer<12, bool()>(&IPartEvent::isFlagged, false);
}

TEST(IPartEvent, GivesItsStartInSlot20) {
    HandMadeObject context;
    expectAnswer<20, double(void*)>(&IPartEvent::start, -0.1, context.as<FUnknown>());
}

TEST(IPartEvent, GivesItsLengthInSlot24) {
    HandMadeObject context;
    expectAnswer<24, double(void*)>(&IPartEvent::length, 1e300, context.as<FUnknown>());
}

TEST(IProjectEvent, GivesItsValueInSlot6) {
    expectAnswer<6, std::int32_t()>(&IProjectEvent::value, -7);
}

TEST(IProjectNoteEvent, SetsAnAttributeInSlot5WithTwoZerosThatAreNullPointersToTheHost) {
    FVariant value;
    HandMadeObject object;
    tests::Slot<5, std::int32_t(const char*, void*, void*, void*)> slot(object,
                                                                        [](auto...) { return 5; });

    const char* const key = "lyrics";
    EXPECT_EQ(object.as<IProjectNoteEvent>()->setAttribute(key, &value, 0, 0), 5);
    EXPECT_EQ(slot.onlyCall(), std::tuple(key, &value, nullptr, nullptr));
}

TEST(IProjectNoteEvent, GetsAnAttributeInSlot6) {
    FVariant value;
    expectAnswer<6, std::int32_t(const char*, void*)>(&IProjectNoteEvent::getAttribute, 5, "lyrics",
                                                      &value);
}

TEST(IProjectNoteEvent, SeesATextWithItsTypeInTheFirstTwoBytesAndItsAddressInTheLastEight) {
    const char16_t text[] = u"la";
    const FVariant value(text);

    std::array<unsigned char, sizeof(value)> bytes{};
    std::memcpy(bytes.data(), static_cast<const void*>(&value), sizeof(value));
    const char16_t* address = nullptr;
    std::memcpy(&address, bytes.data() + 8, sizeof(address));
    EXPECT_EQ(sizeof(value), 16u);
    EXPECT_EQ(bytes[0], 0x20);
    EXPECT_EQ(bytes[1], 0);
    EXPECT_EQ(address, text);
}

} // namespace
} // namespace wybeta::host
