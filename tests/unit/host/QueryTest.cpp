// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/Query.h"
#include "host/IProjectNode.h"
#include "tests/HandMadeObject.h"
#include "tests/InterfaceIds.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace wybeta::host {
namespace {

using Steinberg::FUnknown;
using tests::HandMadeObject;
using tests::Slot;

using QueryInterface = std::uint32_t(const void*, void**);

TEST(Query, GivesTheFaceAndHoldsOneReferenceToIt) {
    HandMadeObject object;
    HandMadeObject face;
    object.answer(tests::kProjectNodeId, face);
    {
        const auto node = query<IProjectNode>(object.as<FUnknown>());
        EXPECT_EQ(node.get(), face.as<IProjectNode>());
        EXPECT_EQ(face.references(), 1);
    }
    EXPECT_EQ(face.references(), 0);
    EXPECT_EQ(object.references(), 0);
}

TEST(Query, GivesNullForAnObjectThatDoesNotAnswer) {
    HandMadeObject object;
    EXPECT_FALSE(query<IProjectNode>(object.as<FUnknown>()));
}

TEST(Query, GivesNullForNull) {
    EXPECT_FALSE(query<IProjectNode>(nullptr));
}

TEST(Query, GivesNullForSuccessWithoutAnObject) {
    HandMadeObject object;
    Slot<0, QueryInterface> slot(object, [](auto...) { return 0u; });
    EXPECT_FALSE(query<IProjectNode>(object.as<FUnknown>()));
    EXPECT_EQ(slot.calls().size(), 1u);
}

TEST(Query, NeitherUsesNorReleasesAnObjectThatAFailureLeavesBehind) {
    HandMadeObject object;
    Slot<0, QueryInterface> slot(object, [&](const void*, void** found) {
        *found = object.address();
        return 0x80004002u;
    });
    EXPECT_FALSE(query<IProjectNode>(object.as<FUnknown>()));
    EXPECT_EQ(object.references(), 0);
}

} // namespace
} // namespace wybeta::host
