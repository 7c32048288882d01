// SPDX-License-Identifier: GPL-3.0-or-later
//
// The host throws, at every call that the extension makes in turn.
#include "tests/faults/FaultTest.h"
#include "tests/faults/Scenario.h"

#include <gtest/gtest.h>

#include <new>

namespace wybeta::tests {
namespace {

class ThrowingHost : public FaultTest, public testing::WithParamInterface<Scenario> {};

TEST_P(ThrowingHost, HasItsLackOfMemoryPassedOnAndNothingHalfDone) {
    throwAtEachCall(GetParam(), std::bad_alloc());
}

TEST_P(ThrowingHost, HasAnythingElsePassedOnAndNothingHalfDone) {
    throwAtEachCall(GetParam(), 42);
}

INSTANTIATE_TEST_SUITE_P(In, ThrowingHost, testing::ValuesIn(scenarios()), nameOf);

} // namespace
} // namespace wybeta::tests
