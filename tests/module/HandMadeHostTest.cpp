// SPDX-License-Identifier: GPL-3.0-or-later
//
// Runs the module without the host's declarations, which it shares with the simulator: a slot that
// slips in one of them is found here.
#include "tests/module/HandMadeHost.h"
#include "tests/HandMadeObject.h"
#include "tests/InterfaceIds.h"
#include "tests/ModuleFixture.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <tuple>
#include <vector>

namespace wybeta {
namespace {

using tests::callSlot;
using tests::faceOf;
using tests::HandMadeObject;
using tests::Slot;

using GetInterface = tests::HandMadeHost::GetInterface;
using TakeSink = tests::HandMadeHost::TakeSink;

class HandMadeHost : public tests::ExtensionFixture {
protected:
    HandMadeHost() { context.answer(tests::kProjectHostId, handMade.projectHost); }

    void TearDown() override {
        for (const auto* const object : {&context, &handMade.projectHost, &handMade.manager}) {
            EXPECT_EQ(object->references(), 0);
        }
        ExtensionFixture::TearDown();
    }

    std::int32_t initialize() { return callSlot<std::int32_t(void*)>(base, 3, context.address()); }
    std::int32_t terminate() { return callSlot<std::int32_t()>(base, 4); }

    void* const base = &extension->base();
    tests::HandMadeHost handMade;
    HandMadeObject context;
};

TEST_F(HandMadeHost, SeesTheModuleRegisterAndUnregisterThroughTheRightSlots) {
    void* const notification = faceOf(base, tests::kProjectNotification3Id);
    void* const storage = faceOf(base, tests::kProjectStorageNotificationId);
    HandMadeObject document;
    Slot<19, TakeSink> addStorageNotification(document, [](void*) { return 0; });
    Slot<20, TakeSink> removeStorageNotification(document, [](void*) { return 0; });
    handMade.documents = {nullptr, document.address(), nullptr};

    EXPECT_EQ(initialize(), 0);
    EXPECT_EQ(handMade.addNotification.onlyCall(), std::tuple(notification));
    EXPECT_EQ(handMade.projectHost.references(), 1);
    EXPECT_EQ(handMade.manager.references(), 1);

    EXPECT_EQ(callSlot<TakeSink>(notification, 5, document.address()), 0);
    EXPECT_EQ(addStorageNotification.onlyCall(), std::tuple(storage));
    EXPECT_EQ(callSlot<TakeSink>(notification, 6, document.address()), 0);
    EXPECT_EQ(removeStorageNotification.onlyCall(), std::tuple(storage));

    EXPECT_EQ(terminate(), 0);
    EXPECT_EQ(handMade.removeNotification.onlyCall(), std::tuple(notification));
    EXPECT_EQ(handMade.getDocument.calls(), (std::vector<std::tuple<std::int32_t>>{{0}, {1}, {2}}));
    EXPECT_EQ(removeStorageNotification.calls().size(), 2u);
    EXPECT_EQ(document.references(), 0);
}

TEST_F(HandMadeHost, MayReportSuccessWithoutHandingAManagerOver) {
    Slot<3, GetInterface> getInterface(handMade.projectHost, [](auto...) { return 0u; });
    EXPECT_EQ(initialize(), 0);
    EXPECT_EQ(terminate(), 0);
    EXPECT_EQ(getInterface.calls().size(), 1u);
}

TEST_F(HandMadeHost, MayLeaveAPointerBehindWhenItHandsNoManagerOver) {
    Slot<3, GetInterface> getInterface(handMade.projectHost, [this](const void*, void** found) {
        *found = handMade.manager.address();
        return 1u;
    });
    EXPECT_EQ(initialize(), 0);
    EXPECT_EQ(terminate(), 0);
    EXPECT_TRUE(handMade.addNotification.calls().empty());
}

TEST_F(HandMadeHost, MayCountFewerThanNoDocuments) {
    Slot<3, std::int32_t()> countDocuments(handMade.manager, [] { return -1; });
    EXPECT_EQ(initialize(), 0);
    EXPECT_EQ(terminate(), 0);
    EXPECT_TRUE(handMade.getDocument.calls().empty());
}

TEST_F(HandMadeHost, MayTerminateTheExtensionWhenItIsGivenBack) {
    handMade.projectHost.whenGivenBack([this] { EXPECT_EQ(terminate(), 0); });
    handMade.manager.whenGivenBack([this] { EXPECT_EQ(terminate(), 0); });
    EXPECT_EQ(initialize(), 0);
    EXPECT_EQ(terminate(), 0);
    EXPECT_EQ(handMade.removeNotification.calls().size(), 1u);
}

TEST_F(HandMadeHost, MayTerminateTheExtensionWhenItIsGivenBackForAnotherHost) {
    handMade.projectHost.whenGivenBack([this] { EXPECT_EQ(terminate(), 0); });
    EXPECT_EQ(initialize(), 0);
    callSlot<std::int32_t(void*)>(base, 3, host->context());
    terminate();
    EXPECT_EQ(handMade.removeNotification.calls().size(), 1u);
    EXPECT_EQ(host->references(), 0);
}

} // namespace
} // namespace wybeta
