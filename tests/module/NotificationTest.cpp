// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/HandMadeObject.h"
#include "tests/InterfaceIds.h"
#include "tests/ModuleFixture.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <tuple>

namespace wybeta {
namespace {

using namespace simulator;
using tests::callSlot;
using tests::HandMadeObject;
using tests::Slot;

// The arguments are hand-made objects, of which every call but those filled in fails the test.
class Notification : public tests::ExtensionFixture {
protected:
    void SetUp() override { extension->base().initialize(host->context()); }

    void* const notification = &extension->notification();
    void* const storage = &extension->storageNotification();
    void* const editHook = &extension->editHook();
    HandMadeObject argument;
};

TEST_F(Notification, IgnoresTheNewsOfSlots3And4And7And8) {
    const auto calls = state->calls.count();
    for (void* const news : {argument.address(), static_cast<void*>(nullptr)}) {
        callSlot<void(void*)>(notification, 3, news);
        callSlot<void(void*)>(notification, 4, news);
        EXPECT_EQ(callSlot<std::int32_t(void*)>(notification, 7, news), 0);
        callSlot<void(void*)>(notification, 8, news);
    }
    EXPECT_EQ(state->calls.count(), calls);
}

TEST_F(Notification, IgnoresTheNewsOfStorage) {
    const auto calls = state->calls.count();
    callSlot<void(void*)>(storage, 3, argument.address());
    callSlot<void(void*)>(storage, 3, nullptr);
    EXPECT_EQ(state->calls.count(), calls);
}

TEST_F(Notification, RegistersTheStorageFaceWithAnOpenedDocumentAndPassesItsResultOn) {
    for (const std::int32_t result : {0, 1, -2, 0x7654321}) {
        Slot<19, std::int32_t(void*)> slot(argument, [result](void*) { return result; });
        EXPECT_EQ(callSlot<std::int32_t(void*)>(notification, 5, argument.address()), result);
        EXPECT_EQ(slot.onlyCall(), std::tuple(storage));
    }
}

TEST_F(Notification, UnregistersTheStorageFaceFromAClosingDocumentAndPassesItsResultOn) {
    for (const std::int32_t result : {0, 1, -2, 0x7654321}) {
        Slot<20, std::int32_t(void*)> slot(argument, [result](void*) { return result; });
        EXPECT_EQ(callSlot<std::int32_t(void*)>(notification, 6, argument.address()), result);
        EXPECT_EQ(slot.onlyCall(), std::tuple(storage));
    }
}

TEST_F(Notification, TakesNoReferenceToADocument) {
    const auto document = host->openDocument();
    extension->notification().documentOpened(document.get());
    EXPECT_EQ(document->moduleReferences(), 0);
    EXPECT_EQ(document->sinks().size(), 1u);
    extension->notification().documentClosing(document.get());
    EXPECT_TRUE(document->sinks().empty());
}

TEST_F(Notification, FailsForANullDocument) {
    EXPECT_NE(callSlot<std::int32_t(void*)>(notification, 5, nullptr), 0);
    EXPECT_NE(callSlot<std::int32_t(void*)>(notification, 6, nullptr), 0);
}

TEST_F(Notification, IgnoresAChangeUnderNull) {
    callSlot<void(void*)>(notification, 9, nullptr);
}

TEST_F(Notification, IgnoresAChangeUnderAnObjectThatDoesNotAnswerIProjectNode) {
    callSlot<void(void*)>(notification, 9, argument.address());
    EXPECT_EQ(argument.references(), 0);
}

TEST_F(Notification, HooksNothingUnderNull) {
    HandMadeObject context;
    EXPECT_EQ(callSlot<std::int32_t(void*, void*)>(editHook, 3, nullptr, context.address()), 0);
    EXPECT_EQ(callSlot<std::int32_t(void*, void*)>(editHook, 3, nullptr, nullptr), 0);
}

TEST_F(Notification, HooksNothingUnderAnObjectThatDoesNotAnswerIProjectNode) {
    HandMadeObject context;
    EXPECT_EQ(
        callSlot<std::int32_t(void*, void*)>(editHook, 3, argument.address(), context.address()),
        0);
    EXPECT_EQ(argument.references(), 0);
    EXPECT_EQ(context.references(), 0);
}

TEST_F(Notification, ReturnsZeroFromTheHookWithAndWithoutAnEditContext) {
    Slot<28, void*()> children(argument, [] { return nullptr; });
    argument.answer(tests::kProjectNodeId, argument);
    HandMadeObject context;
    EXPECT_EQ(
        callSlot<std::int32_t(void*, void*)>(editHook, 3, argument.address(), context.address()),
        0);
    EXPECT_EQ(callSlot<std::int32_t(void*, void*)>(editHook, 3, argument.address(), nullptr), 0);
    EXPECT_EQ(argument.references(), 0);
}

} // namespace
} // namespace wybeta
