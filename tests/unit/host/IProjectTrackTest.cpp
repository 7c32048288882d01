// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/IProjectTrack.h"
#include "tests/HandMadeObject.h"
#include "tests/unit/host/SlotExpectations.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace wybeta::host {
namespace {

using tests::expectAnswer;
using tests::HandMadeObject;

TEST(IProjectTrack, GivesItsDeviceElementInSlot7) {
    HandMadeObject device;
    expectAnswer<7, void*()>(&IProjectTrack::deviceElement, device.address());
}

TEST(IProjectElement, NamesItsTypeInSlot3) {
    expectAnswer<3, const char*()>(&IProjectElement::typeName, "Slot");
}

TEST(IProjectElement, CountsItsElementsInSlot10) {
    expectAnswer<10, std::int32_t()>(&IProjectElement::countElements, -7);
}

TEST(IProjectElement, GivesAnElementInSlot11) {
    HandMadeObject element;
    expectAnswer<11, void*(std::int32_t)>(&IProjectElement::element, element.address(), 0x12345678);
}

TEST(IProjectPluginSlot, GivesItsPluginInSlot3) {
    HandMadeObject plugin;
    expectAnswer<3, void*()>(&IProjectPluginSlot::plugin, plugin.address());
}

} // namespace
} // namespace wybeta::host
