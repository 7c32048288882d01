// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/IProjectDocument.h"
#include "host/IProjectNotification.h"
#include "tests/HandMadeObject.h"
#include "tests/unit/host/SlotExpectations.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace wybeta::host {
namespace {

using tests::expectAnswer;
using tests::HandMadeObject;

TEST(IProjectDocument, TakesASinkInSlot19) {
    HandMadeObject sink;
    expectAnswer<19, std::int32_t(void*)>(&IProjectDocument::addStorageNotification, 5,
                                          sink.as<IProjectStorageNotification>());
}

TEST(IProjectDocument, DropsASinkInSlot20) {
    HandMadeObject sink;
    expectAnswer<20, std::int32_t(void*)>(&IProjectDocument::removeStorageNotification, 5,
                                          sink.as<IProjectStorageNotification>());
}

} // namespace
} // namespace wybeta::host
