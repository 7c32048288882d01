// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/IProjectNotification.h"
#include "host/IEditStep.h"
#include "host/IProjectDocument.h"
#include "tests/HandMadeObject.h"
#include "tests/unit/host/SlotExpectations.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace wybeta::host {
namespace {

using Steinberg::FUnknown;
using tests::expectAnswer;
using tests::expectCall;
using tests::HandMadeObject;

TEST(IProjectNotification, HasIgnoredNewsInSlots3And4) {
    HandMadeObject argument;
    expectCall<3, void(void*)>(&IProjectNotification::ignored3, argument.address());
    expectCall<4, void(void*)>(&IProjectNotification::ignored4, argument.address());
}

TEST(IProjectNotification, TellsOfAnOpenedDocumentInSlot5) {
    HandMadeObject document;
    expectAnswer<5, std::int32_t(void*)>(&IProjectNotification::documentOpened, 5,
                                         document.as<IProjectDocument>());
}

TEST(IProjectNotification, TellsOfAClosingDocumentInSlot6) {
    HandMadeObject document;
    expectAnswer<6, std::int32_t(void*)>(&IProjectNotification::documentClosing, 5,
                                         document.as<IProjectDocument>());
}

TEST(IProjectNotification2, HasIgnoredNewsInSlots7And8) {
    HandMadeObject argument;
    expectAnswer<7, std::int32_t(void*)>(&IProjectNotification2::ignored7, 5, argument.address());
    expectCall<8, void(void*)>(&IProjectNotification2::ignored8, argument.address());
}

TEST(IProjectNotification3, TellsOfAChangedProjectInSlot9) {
    HandMadeObject node;
    expectCall<9, void(void*)>(&IProjectNotification3::projectChanged, node.as<FUnknown>());
}

TEST(IProjectStorageNotification, TellsOfStorageInSlot3) {
    HandMadeObject argument;
    expectCall<3, void(void*)>(&IProjectStorageNotification::storageChanged, argument.address());
}

TEST(IProjectEditHook, HooksAnEditInSlot3) {
    HandMadeObject node;
    HandMadeObject context;
    expectAnswer<3, std::int32_t(void*, void*)>(&IProjectEditHook::hookEdit, 5, node.as<FUnknown>(),
                                                context.as<IProjectEditContext>());
}

} // namespace
} // namespace wybeta::host
