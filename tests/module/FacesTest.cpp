// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/HandMadeObject.h"
#include "tests/InterfaceIds.h"
#include "tests/ModuleFixture.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace wybeta {
namespace {

using tests::callSlot;
using tests::faceOf;
using tests::IdBytes;

constexpr std::uint32_t kNoSuchInterface = 0x80004002;

// Asks a face of an object for another one. Returns null when there is none; a face that is found
// comes with a reference.
void* ask(void* face, const IdBytes& id) {
    void* found = face;
    const auto result = callSlot<std::uint32_t(const void*, void**)>(face, 0, id.data(), &found);
    EXPECT_EQ(result, found != nullptr ? 0 : kNoSuchInterface);
    return found;
}

std::uint32_t addRef(void* face) {
    return callSlot<std::uint32_t()>(face, 1);
}

std::uint32_t release(void* face) {
    return callSlot<std::uint32_t()>(face, 2);
}

class Faces : public tests::ExtensionFixture {
protected:
    void* const base = &extension->base();
    void* const dependent = faceOf(base, tests::kDependentId);
    void* const notification = faceOf(base, tests::kProjectNotification3Id);
    void* const storage = faceOf(base, tests::kProjectStorageNotificationId);
    void* const editHook = faceOf(base, tests::kProjectEditHookId);
};

TEST_F(Faces, LieInTheOrderInWhichTheExtensionDeclaresThem) {
    EXPECT_LT(base, dependent);
    EXPECT_LT(dependent, notification);
    EXPECT_LT(notification, storage);
    EXPECT_LT(storage, editHook);
}

TEST_F(Faces, AreTheSameForAllThreeNotificationIds) {
    EXPECT_EQ(faceOf(base, tests::kProjectNotificationId), notification);
    EXPECT_EQ(faceOf(base, tests::kProjectNotification2Id), notification);
}

struct alignas(8) AtOddAddress {
    std::uint8_t before;
    IdBytes id;
};

TEST_F(Faces, AreFoundByAnIdAtAnyAddress) {
    for (const IdBytes& id :
         {tests::kDependentId, tests::kPluginBaseId, tests::kProjectEditHookId}) {
        const AtOddAddress odd{0, id};
        EXPECT_EQ(faceOf(base, odd.id), faceOf(base, id));
    }
}

TEST_F(Faces, AllAnswerTheSame) {
    for (void* const face : {base, dependent, notification, storage, editHook}) {
        EXPECT_EQ(faceOf(face, tests::kPluginBaseId), base);
        EXPECT_EQ(faceOf(face, tests::kProjectNotificationId), notification);
        EXPECT_EQ(faceOf(face, tests::kProjectNotification2Id), notification);
        EXPECT_EQ(faceOf(face, tests::kProjectNotification3Id), notification);
        EXPECT_EQ(faceOf(face, tests::kProjectStorageNotificationId), storage);
        EXPECT_EQ(faceOf(face, tests::kProjectEditHookId), editHook);
        EXPECT_EQ(faceOf(face, tests::kDependentId), dependent);
        EXPECT_EQ(faceOf(face, tests::kUnknownId), dependent);
    }
}

TEST_F(Faces, AnswerNoOtherId) {
    auto almost = tests::kProjectEditHookId;
    ++almost.back();
    for (void* const face : {base, dependent, notification, storage, editHook}) {
        EXPECT_EQ(ask(face, almost), nullptr);
        EXPECT_EQ(ask(face, tests::kProjectHostId), nullptr);
        EXPECT_EQ(ask(face, tests::kEditStepId), nullptr);
    }
}

TEST_F(Faces, ShareOneReferenceCount) {
    const std::uint32_t before = addRef(base) - 1;
    EXPECT_EQ(addRef(dependent), before + 2);
    EXPECT_EQ(addRef(notification), before + 3);
    EXPECT_EQ(addRef(storage), before + 4);
    EXPECT_EQ(addRef(editHook), before + 5);
    EXPECT_EQ(release(base), before + 4);
    EXPECT_EQ(release(editHook), before + 3);
    EXPECT_EQ(release(storage), before + 2);
    EXPECT_EQ(release(notification), before + 1);
    EXPECT_EQ(release(dependent), before);
}

TEST_F(Faces, ComeWithOneReferenceEach) {
    const std::uint32_t before = addRef(base);
    for (const auto& id :
         {tests::kPluginBaseId, tests::kProjectNotificationId, tests::kProjectStorageNotificationId,
          tests::kProjectEditHookId, tests::kDependentId, tests::kUnknownId}) {
        ask(base, id);
        EXPECT_EQ(release(base), before);
    }
    release(base);
}

} // namespace
} // namespace wybeta
