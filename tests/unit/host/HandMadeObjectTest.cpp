// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/HandMadeObject.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <stdexcept>
#include <tuple>

namespace wybeta::tests {
namespace {

TEST(HandMadeObject, FailsTheTestWhenASlotIsCalledThatNothingFills) {
    HandMadeObject object;
    EXPECT_NONFATAL_FAILURE(callSlot<void*()>(object.address(), 17), "slot 17 was called");
}

TEST(HandMadeObject, CountsTheReferencesThatAreTakenAndGivenBack) {
    HandMadeObject object;
    EXPECT_EQ(callSlot<std::uint32_t()>(object.address(), 1), 1u);
    EXPECT_EQ(callSlot<std::uint32_t()>(object.address(), 1), 2u);
    EXPECT_EQ(callSlot<std::uint32_t()>(object.address(), 2), 1u);
    EXPECT_EQ(object.references(), 1);
}

TEST(HandMadeObject, RefusesToSayWhatItsOnlyCallWasWhenThereWasAnother) {
    HandMadeObject object;
    Slot<3, void(int)> slot(object, [](int) {});
    EXPECT_THROW(slot.onlyCall(), std::runtime_error);
    callSlot<void(int)>(object.address(), 3, 1);
    EXPECT_EQ(slot.onlyCall(), std::tuple(1));
    callSlot<void(int)>(object.address(), 3, 2);
    EXPECT_THROW(slot.onlyCall(), std::runtime_error);
}

} // namespace
} // namespace wybeta::tests
