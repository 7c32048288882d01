// SPDX-License-Identifier: GPL-3.0-or-later
//
// The host throws, at every call that the extension makes in turn.
#include "simulator/CallInterceptor.h"
#include "tests/unit/faults/FaultTest.h"
#include "tests/unit/faults/Scenario.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <new>

namespace wybeta::tests {
namespace {

using simulator::Answer;
using simulator::HostCall;

class ThrowingHost : public FaultTest {
protected:
    template <class Exception>
    static void throwAtEachCall(const Exception& exception) {
        const auto calls = playAtEachPlace([&exception](Play& play, std::uint64_t number) {
            bool isReached = false;
            bool isThrown = false;
            play.session.interceptFrom(number, [&](const HostCall&) -> Answer {
                EXPECT_FALSE(isReached) << "the host is called while the exception is under way";
                isReached = true;
                throw exception;
            });
            try {
                act(play);
            } catch (const Exception&) {
                isThrown = true;
            }
            EXPECT_EQ(isThrown, isReached);
            expectAllOrNothing(play, isReached);
            return isReached;
        });
        EXPECT_GT(calls, 0u);
    }
};

TEST_P(ThrowingHost, HasItsLackOfMemoryPassedOnAndNothingHalfDone) {
    throwAtEachCall(std::bad_alloc());
}

TEST_P(ThrowingHost, HasAnythingElsePassedOnAndNothingHalfDone) {
    throwAtEachCall(42);
}

INSTANTIATE_TEST_SUITE_P(In, ThrowingHost, testing::ValuesIn(scenarios()), nameOf);

} // namespace
} // namespace wybeta::tests
