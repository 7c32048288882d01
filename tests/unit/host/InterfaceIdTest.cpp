// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/InterfaceId.h"
#include "host/IEditStep.h"
#include "host/IProjectEvent.h"
#include "host/IProjectHost.h"
#include "host/IProjectManager.h"
#include "host/IProjectNode.h"
#include "host/IProjectNotification.h"
#include "host/IProjectTrack.h"
#include "tests/InterfaceIds.h"

#include "pluginterfaces/base/ipluginbase.h"
#include "pluginterfaces/base/iupdatehandler.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>

namespace wybeta::host {
namespace {

tests::IdBytes bytesOf(const Steinberg::TUID id) {
    tests::IdBytes bytes;
    std::memcpy(bytes.data(), id, bytes.size());
    return bytes;
}

TEST(InterfaceId, IsThatOfTheHostInItsMemoryOrder) {
    EXPECT_EQ(bytesOf(IProjectHost::iid), tests::kProjectHostId);
    EXPECT_EQ(bytesOf(IProjectManager::iid), tests::kProjectManagerId);
    EXPECT_EQ(bytesOf(IProjectNode::iid), tests::kProjectNodeId);
    EXPECT_EQ(bytesOf(IProjectTrack::iid), tests::kProjectTrackId);
    EXPECT_EQ(bytesOf(IProjectPluginSlot::iid), tests::kProjectPluginSlotId);
    EXPECT_EQ(bytesOf(IVoiceSynthesizer::iid), tests::kVoiceSynthesizerId);
    EXPECT_EQ(bytesOf(IProjectEvent::iid), tests::kProjectEventId);
    EXPECT_EQ(bytesOf(IProjectNoteEvent::iid), tests::kProjectNoteEventId);
}

TEST(InterfaceId, IsTheOneThatTheHostAsksTheExtensionFor) {
    EXPECT_EQ(bytesOf(IProjectNotification::iid), tests::kProjectNotificationId);
    EXPECT_EQ(bytesOf(IProjectNotification2::iid), tests::kProjectNotification2Id);
    EXPECT_EQ(bytesOf(IProjectNotification3::iid), tests::kProjectNotification3Id);
    EXPECT_EQ(bytesOf(IProjectStorageNotification::iid), tests::kProjectStorageNotificationId);
    EXPECT_EQ(bytesOf(IProjectEditHook::iid), tests::kProjectEditHookId);
    EXPECT_EQ(bytesOf(IEditStep::iid), tests::kEditStepId);
}

TEST(InterfaceId, HasTheSameMemoryOrderInTheSdkOnEverySystem) {
    EXPECT_EQ(bytesOf(Steinberg::FUnknown::iid), tests::kUnknownId);
    EXPECT_EQ(bytesOf(Steinberg::IDependent::iid), tests::kDependentId);
    EXPECT_EQ(bytesOf(Steinberg::IPluginBase::iid), tests::kPluginBaseId);
}

TEST(InterfaceId, ComparesAllSixteenBytesWhereverTheyLie) {
    alignas(8) char memory[17] = {};
    std::memcpy(memory + 1, IProjectHost::iid, sizeof(Steinberg::TUID));
    EXPECT_TRUE(sameId(memory + 1, IProjectHost::iid));
    for (int i = 1; i <= 16; ++i) {
        ++memory[i];
        EXPECT_FALSE(sameId(memory + 1, IProjectHost::iid)) << "byte " << i - 1;
        --memory[i];
    }
}

TEST(ComAbi, HasTheSameResultCodesOnEverySystem) {
    EXPECT_EQ(static_cast<std::uint32_t>(Steinberg::kResultOk), 0u);
    EXPECT_EQ(static_cast<std::uint32_t>(Steinberg::kResultFalse), 1u);
    EXPECT_EQ(static_cast<std::uint32_t>(Steinberg::kNoInterface), 0x80004002u);
}

} // namespace
} // namespace wybeta::host
