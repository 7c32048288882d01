// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/IEditStep.h"
#include "host/IProjectNode.h"
#include "tests/HandMadeObject.h"
#include "tests/unit/host/SlotExpectations.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace wybeta::host {
namespace {

using tests::expectAnswer;
using tests::expectCall;
using tests::HandMadeObject;

TEST(IEditStep, ExecutesInSlot3) {
    expectAnswer<3, std::int32_t()>(&IEditStep::execute, 5);
}

TEST(IEditStep, UndoesInSlot4) {
    expectCall<4, void()>(&IEditStep::undo);
}

TEST(IEditStep, RedoesInSlot5) {
    expectCall<5, void()>(&IEditStep::redo);
}

TEST(IEditStep, ReportsChangedObjectsInSlot6) {
    HandMadeObject collector;
    expectAnswer<6, std::int32_t(void*)>(&IEditStep::reportChangedObjects, 5,
                                         collector.as<IEditObjectCollector>());
}

TEST(IEditObjectCollector, TakesAnObjectInSlot5) {
    HandMadeObject node;
    expectCall<5, void(void*)>(&IEditObjectCollector::addObject, node.as<IProjectNode>());
}

TEST(IProjectEditContext, TakesAStepInSlot13) {
    HandMadeObject step;
    expectAnswer<13, std::int32_t(void*)>(&IProjectEditContext::addEditStep, 5,
                                          step.as<IEditStep>());
}

} // namespace
} // namespace wybeta::host
