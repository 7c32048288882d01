// SPDX-License-Identifier: GPL-3.0-or-later
//
// Memory runs out, at every allocation in turn. The host's own allocations count as well: a host
// that runs out of memory in the middle of a call is one that throws.
#include "dictionary/PronunciationDictionary.h"
#include "tests/faults/FaultTest.h"
#include "tests/faults/Scenario.h"
#include "tests/unit/faults/FailingAllocation.h"

#include "pluginterfaces/base/ipluginbase.h"
#include "pluginterfaces/base/smartpointer.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <new>
#include <string>
#include <vector>

namespace wybeta::tests {
namespace {

using Extent = FailingAllocation::Extent;

struct Outcome {
    bool isReached; // there was an allocation of that number
    bool isThrown;
};

// Does the work without the n-th allocation.
template <class Work>
Outcome workWithout(std::uint64_t number, Extent extent, const Work& work) {
    const FailingAllocation failure(number, extent);
    bool isThrown = false;
    try {
        work();
    } catch (const std::bad_alloc&) {
        isThrown = true;
    }
    return {FailingAllocation::isReached(), isThrown};
}

class AllocationFailure : public FaultTest, public testing::WithParamInterface<Scenario> {
protected:
    static void failAtEachAllocation(Extent extent) {
        const auto places = playAtEachPlace(GetParam(), [extent](Play& play, std::uint64_t number) {
            const auto [isReached, isThrown] = workWithout(number, extent, [&play] { play.act(); });
            EXPECT_EQ(isThrown, isReached);
            expectAllOrNothing(play, isReached);
            return isReached;
        });
        EXPECT_EQ(places > 0, GetParam().memory != Memory::OfNobody);
    }
};

TEST_P(AllocationFailure, LeavesTheCallAndNothingHalfDone) {
    failAtEachAllocation(Extent::One);
}

TEST_P(AllocationFailure, LeavesTheCallAndNothingHalfDoneWhileThereIsNoMemoryAtAll) {
    failAtEachAllocation(Extent::AllFromThere);
}

INSTANTIATE_TEST_SUITE_P(In, AllocationFailure, testing::ValuesIn(scenarios()), nameOf);

// Creates an extension without the n-th allocation and gives it back. Returns false when it was
// created with fewer allocations.
bool createWithout(std::uint64_t number, Extent extent) {
    const auto factory = Steinberg::owned(GetPluginFactory());
    Steinberg::PClassInfo info;
    factory->getClassInfo(0, &info);
    void* object = nullptr;
    const auto [isReached, isThrown] = workWithout(number, extent, [&] {
        factory->createInstance(info.cid, Steinberg::IPluginBase_iid, &object);
    });
    // Without memory for the object itself, the factory does not throw.
    EXPECT_EQ(object == nullptr, isThrown || number == 1);
    EXPECT_TRUE(object != nullptr || isReached);
    if (object != nullptr) {
        static_cast<Steinberg::IPluginBase*>(object)->release();
    }
    return isReached;
}

TEST(AllocationFailureInConstruction, KeepsTheDictionaryOfTheExtensionBefore) {
    const auto& dictionary = dictionary::pronunciationDictionary();
    createWithout(~std::uint64_t(0), Extent::One);
    const auto size = dictionary.size();
    for (const auto extent : {Extent::One, Extent::AllFromThere}) {
        for (std::uint64_t number = 1; createWithout(number, extent); ++number) {
            SCOPED_TRACE("at allocation " + std::to_string(number));
            EXPECT_EQ(dictionary.size(), size);
            EXPECT_TRUE(dictionary.find("abandon"));
        }
    }
}

// Makes the factory without the n-th allocation. Returns false when it was made with fewer.
bool makeFactoryWithout(std::uint64_t number, Extent extent) {
    Steinberg::IPtr<Steinberg::IPluginFactory> factory;
    const auto [isReached, isThrown] =
        workWithout(number, extent, [&factory] { factory = Steinberg::owned(GetPluginFactory()); });
    EXPECT_EQ(isThrown, isReached);
    EXPECT_EQ(Steinberg::owned(GetPluginFactory())->countClasses(), 1);
    return isReached;
}

TEST(AllocationFailureOfTheFactory, LeavesTheCallAndTheNextOneMakesAFactoryWithItsClass) {
    for (const auto extent : {Extent::One, Extent::AllFromThere}) {
        std::uint64_t number = 1;
        while (makeFactoryWithout(number, extent)) {
            ++number;
        }
        EXPECT_GT(number, 1U);
    }
}

TEST(FailingAllocation, FailsAtItsNumber) {
    const auto allocate = [] { return std::make_unique<std::vector<int>>(1); };
    const FailingAllocation failure(2, Extent::One);
    EXPECT_FALSE(FailingAllocation::isReached());
    EXPECT_THROW(allocate(), std::bad_alloc);
    EXPECT_TRUE(FailingAllocation::isReached());
    EXPECT_NO_THROW(allocate());
}

TEST(FailingAllocation, FailsFromItsNumberOn) {
    bool isReached = false;
    int failures = 0;
    {
        const FailingAllocation failure(2, Extent::AllFromThere);
        for (int i = 0; i < 3; ++i) {
            // Called by name, since a compiler may leave out a new whose memory nobody needs.
            void* const memory = operator new(1, std::nothrow);
            failures += memory == nullptr ? 1 : 0;
            operator delete(memory, std::nothrow);
        }
        isReached = FailingAllocation::isReached();
    }
    EXPECT_TRUE(isReached);
    EXPECT_EQ(failures, 2);
}

} // namespace
} // namespace wybeta::tests
