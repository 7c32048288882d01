// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/ChildCursor.h"
#include "host/IProjectNode.h"
#include "simulator/CallInterceptor.h"
#include "simulator/HostObject.h"
#include "simulator/ProjectTree.h"
#include "tests/EndlessNode.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace wybeta::tests {
namespace {

using namespace simulator;

class ChildCursor : public testing::Test {
protected:
    void TearDown() override {
        state->calls.stopIntercepting();
        EXPECT_TRUE(state->ledger.isBalanced()) << state->ledger.report();
    }

    Handle<Folder> add() const {
        auto folder = makeHandle<Folder>(state);
        node->add(folder);
        return folder;
    }

    const SharedState state = std::make_shared<HostState>();
    const Handle<Folder> node = makeHandle<Folder>(state);
};

TEST_F(ChildCursor, YieldsTheChildrenInOrderWithoutTheGaps) {
    node->add({});
    const auto first = add();
    node->add({});
    node->add({});
    const auto second = add();
    node->add({});

    host::ChildCursor children(node.get());
    EXPECT_TRUE(children.hasIterator());
    EXPECT_EQ(children.next(), first->ownInterface());
    EXPECT_EQ(children.next(), second->ownInterface());
    EXPECT_FALSE(children.next());
    EXPECT_FALSE(children.next());
}

TEST_F(ChildCursor, HasAnIteratorWithoutAnyChild) {
    host::ChildCursor children(node.get());
    EXPECT_TRUE(children.hasIterator());
    EXPECT_FALSE(children.next());
}

TEST_F(ChildCursor, IsEmptyForANodeWithoutAnIterator) {
    node->answerNoIteratorWhenEmpty();
    host::ChildCursor children(node.get());
    EXPECT_FALSE(children.hasIterator());
    EXPECT_FALSE(children.next());
}

TEST_F(ChildCursor, IsEmptyWithoutANode) {
    host::ChildCursor children(nullptr);
    EXPECT_FALSE(children.hasIterator());
    EXPECT_FALSE(children.next());
}

TEST_F(ChildCursor, AsksForTheEndBeforeTheFirstChildAndAfterEach) {
    add();
    add();
    std::string calls;
    state->calls.intercept([&calls](const HostCall& call) {
        calls += call.name == "IProjectNodeIterator.atEnd"  ? "e"
                 : call.name == "IProjectNodeIterator.next" ? "n"
                                                            : "";
        return Answer::Normal;
    });
    host::ChildCursor children(node.get());
    while (children.next().get() != nullptr) {
    }
    EXPECT_EQ(calls, "enene");
}

TEST_F(ChildCursor, LeavesAnIteratorThatYieldsOneAgainAndAgain) {
    const auto endless = makeHandle<EndlessNode<Folder>>(
        state, [this]() -> host::IProjectItem* { return node->ownInterface(); });
    host::ChildCursor children(endless.get());
    int count = 0;
    while (children.next().get() != nullptr) {
        ++count;
    }
    EXPECT_GT(count, 1'000'000) << "a long part is cut off";
    EXPECT_FALSE(children.next());
}

TEST_F(ChildCursor, LeavesAnIteratorThatYieldsNullAgainAndAgain) {
    const auto endless =
        makeHandle<EndlessNode<Folder>>(state, []() -> host::IProjectItem* { return nullptr; });
    host::ChildCursor children(endless.get());
    EXPECT_FALSE(children.next());
}

TEST_F(ChildCursor, HoldsTheChildThatIsLookedAt) {
    const auto* const first = add().get();
    host::ChildCursor children(node.get());
    auto child = children.next();
    node->remove(*first);
    EXPECT_EQ(first->moduleReferences(), 1);
    const auto alive = state->ledger.objectsAlive();
    child = nullptr;
    EXPECT_EQ(state->ledger.objectsAlive(), alive - 1);
}

} // namespace
} // namespace wybeta::tests
