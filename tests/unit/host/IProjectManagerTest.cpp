// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/IProjectManager.h"
#include "host/IProjectNotification.h"
#include "tests/HandMadeObject.h"
#include "tests/unit/host/SlotExpectations.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace wybeta::host {
namespace {

using tests::expectAnswer;
using tests::HandMadeObject;

TEST(IProjectManager, CountsDocumentsInSlot3) {
    expectAnswer<3, std::int32_t()>(&IProjectManager::countDocuments, -7);
}

TEST(IProjectManager, GivesADocumentInSlot4) {
    HandMadeObject document;
    expectAnswer<4, void*(std::int32_t)>(&IProjectManager::getDocument, document.address(),
                                         0x12345678);
}

TEST(IProjectManager, TakesASinkInSlot6) {
    HandMadeObject sink;
    expectAnswer<6, std::int32_t(void*)>(&IProjectManager::addNotification, 5,
                                         sink.as<IProjectNotification3>());
}

TEST(IProjectManager, DropsASinkInSlot7) {
    HandMadeObject sink;
    expectAnswer<7, std::int32_t(void*)>(&IProjectManager::removeNotification, 5,
                                         sink.as<IProjectNotification3>());
}

} // namespace
} // namespace wybeta::host
