// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/IProjectNode.h"
#include "tests/HandMadeObject.h"
#include "tests/unit/host/SlotExpectations.h"

#include <gtest/gtest.h>

namespace wybeta::host {
namespace {

using tests::expectAnswer;
using tests::HandMadeObject;

TEST(IProjectItem, TellsItsKindInSlot3) {
    expectAnswer<3, bool(const char*)>(&IProjectItem::isKind, true, "folder");
    expectAnswer<3, bool(const char*)>(&IProjectItem::isKind, false, "part");
}

TEST(IProjectNodeIterator, GivesTheNextChildInSlot3) {
    HandMadeObject child;
    expectAnswer<3, void*()>(&IProjectNodeIterator::next, child.address());
}

TEST(IProjectNodeIterator, TellsWhetherItIsAtTheEndInSlot4) {
    expectAnswer<4, bool()>(&IProjectNodeIterator::atEnd, true);
    expectAnswer<4, bool()>(&IProjectNodeIterator::atEnd, false);
}

TEST(IProjectNode, GivesItsChildrenInSlot28) {
    HandMadeObject iterator;
    expectAnswer<28, void*()>(&IProjectNode::children, iterator.address());
}

TEST(IProjectNotificationArgument, GivesTheTimeContextOfAPartInSlot16) {
    HandMadeObject part;
    HandMadeObject context;
    expectAnswer<16, void*(void*)>(&IProjectNotificationArgument::timeContext, context.address(),
                                   part.as<IProjectItem>());
}

} // namespace
} // namespace wybeta::host
