// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/IProjectHost.h"
#include "host/IProjectManager.h"
#include "tests/unit/host/SlotExpectations.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace wybeta::host {
namespace {

using tests::expectAnswer;

TEST(IProjectHost, HandsOverAnInterfaceInSlot3) {
    void* found = nullptr;
    expectAnswer<3, std::int32_t(const void*, void**)>(&IProjectHost::getInterface, 5,
                                                       IProjectManager::iid, &found);
}

} // namespace
} // namespace wybeta::host
