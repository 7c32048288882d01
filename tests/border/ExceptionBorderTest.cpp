// SPDX-License-Identifier: GPL-3.0-or-later
//
// Exceptions cross the border of the built module, as docs/hosts.md tells: out of it when memory
// ends, and through it when the host throws in a call that the extension makes.
#include "simulator/ExtensionInstance.h"
#include "simulator/LoadedModule.h"
#include "simulator/RunningModule.h"
#include "tests/Options.h"
#include "tests/border/FailingMalloc.h"
#include "tests/border/StructuredCall.h"
#include "tests/faults/FaultTest.h"
#include "tests/faults/Scenario.h"

#include "pluginterfaces/base/smartpointer.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <new>
#include <string>

namespace wybeta::tests {
namespace {

using Work = std::function<void()>;

constexpr unsigned long kGccThrow = 0x20474343;

class ExceptionBorder : public FaultTest, public testing::WithParamInterface<Scenario> {
protected:
    // Takes each allocation of the module away in turn. `isThrown` does the work within a handler
    // of its kind, and tells whether that caught something.
    static void failAtEachAllocation(const std::function<bool(const Work&)>& isThrown) {
        FailingMalloc memory(modulePath());
        const auto places = playAtEachPlace(GetParam(), [&](Play& play, std::uint64_t number) {
            memory.failAt(number);
            const bool hasFailed = isThrown([&play] { play.act(); });
            const bool isReached = memory.stop();
            EXPECT_EQ(hasFailed, isReached);
            expectAllOrNothing(play, isReached);
            return isReached;
        });
        EXPECT_EQ(places > 0, GetParam().memory == Memory::OfTheExtension);
    }
};

TEST_P(ExceptionBorder, IsCrossedByBadAllocToAHostOfTheSameCompiler) {
    failAtEachAllocation([](const Work& work) {
        try {
            work();
            return false;
        } catch (const std::bad_alloc&) {
            return true;
        }
    });
}

TEST_P(ExceptionBorder, IsCrossedByAStructuredExceptionToAHostOfAnotherCompiler) {
    failAtEachAllocation([](const Work& work) {
        const auto code =
            callStructured([](void* context) { (*static_cast<const Work*>(context))(); },
                           const_cast<Work*>(&work));
        EXPECT_TRUE(code == 0 || code == kGccThrow) << code;
        return code != 0;
    });
}

TEST_P(ExceptionBorder, IsCrossedByWhatAHostOfTheSameCompilerThrows) {
    struct HostGivesUp {};
    throwAtEachCall(GetParam(), HostGivesUp());
}

INSTANTIATE_TEST_SUITE_P(In, ExceptionBorder, testing::ValuesIn(scenarios()), nameOf);

TEST(ExceptionBorderOfTheFactory, IsCrossedAtEachAllocationAndTheNextFactoryHasItsClass) {
    const simulator::LoadedModule module(modulePath());
    FailingMalloc memory(modulePath());
    std::uint64_t number = 1;
    for (bool isReached = true; isReached; ++number) {
        SCOPED_TRACE("at allocation " + std::to_string(number));
        bool isThrown = false;
        memory.failAt(number);
        try {
            Steinberg::owned(module.getPluginFactory());
        } catch (const std::bad_alloc&) {
            isThrown = true;
        }
        isReached = memory.stop();
        EXPECT_EQ(isThrown, isReached);
        EXPECT_EQ(Steinberg::owned(module.getPluginFactory())->countClasses(), 1);
    }
    EXPECT_GT(number, 2U);
}

TEST(ExceptionBorderOfTheFactory, IsCrossedWhenAnExtensionLacksMemoryForAllButItself) {
    const simulator::RunningModule module(modulePath());
    const auto makeExtension = [&module] { simulator::ExtensionInstance{module.factory()}; };
    makeExtension(); // what the SDK allocates only once is there then
    FailingMalloc memory(modulePath());
    std::uint64_t number = 2; // the first allocation is for the extension itself
    for (bool isReached = true; isReached; ++number) {
        SCOPED_TRACE("at allocation " + std::to_string(number));
        bool isThrown = false;
        memory.failAt(number);
        try {
            makeExtension();
        } catch (const std::bad_alloc&) {
            isThrown = true;
        }
        isReached = memory.stop();
        EXPECT_EQ(isThrown, isReached);
        EXPECT_NO_THROW(makeExtension());
    }
    EXPECT_GT(number, 3U);
}

} // namespace
} // namespace wybeta::tests
