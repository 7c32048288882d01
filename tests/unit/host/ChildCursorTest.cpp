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

namespace wybeta::host {
namespace {

using namespace simulator;

class ChildrenOfANode : public testing::Test {
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

TEST_F(ChildrenOfANode, ComeInOrderWithoutTheGaps) {
    node->add({});
    const auto first = add();
    node->add({});
    node->add({});
    const auto second = add();
    node->add({});

    ChildCursor children(node.get());
    EXPECT_TRUE(children.hasIterator());
    EXPECT_EQ(children.next(), first->ownInterface());
    EXPECT_EQ(children.next(), second->ownInterface());
    EXPECT_FALSE(children.next());
    EXPECT_FALSE(children.next());
}

TEST_F(ChildrenOfANode, ExistWithoutAnyChild) {
    ChildCursor children(node.get());
    EXPECT_TRUE(children.hasIterator());
    EXPECT_FALSE(children.next());
}

TEST_F(ChildrenOfANode, DoNotExistWithoutAnIterator) {
    node->answerNoIteratorWhenEmpty();
    ChildCursor children(node.get());
    EXPECT_FALSE(children.hasIterator());
    EXPECT_FALSE(children.next());
}

TEST_F(ChildrenOfANode, DoNotExistWithoutANode) {
    ChildCursor children(nullptr);
    EXPECT_FALSE(children.hasIterator());
    EXPECT_FALSE(children.next());
}

TEST_F(ChildrenOfANode, AskForTheEndBeforeTheFirstChildAndAfterEach) {
    add();
    add();
    std::string calls;
    state->calls.intercept([&calls](const HostCall& call) {
        calls += call.name == "IProjectNodeIterator.atEnd"  ? "e"
                 : call.name == "IProjectNodeIterator.next" ? "n"
                                                            : "";
        return Answer::Normal;
    });
    ChildCursor children(node.get());
    while (children.next().get() != nullptr) {
    }
    EXPECT_EQ(calls, "enene");
}

TEST_F(ChildrenOfANode, EndThoughTheIteratorYieldsOneAgainAndAgain) {
    const auto endless = makeHandle<tests::EndlessNode<Folder>>(
        state, [this]() -> IProjectItem* { return node->ownInterface(); });
    ChildCursor children(endless.get());
    int count = 0;
    while (children.next().get() != nullptr) {
        ++count;
    }
    EXPECT_GT(count, 1'000'000) << "a long part is cut off";
    EXPECT_FALSE(children.next());
}

TEST_F(ChildrenOfANode, EndThoughTheIteratorYieldsNullAgainAndAgain) {
    const auto endless =
        makeHandle<tests::EndlessNode<Folder>>(state, []() -> IProjectItem* { return nullptr; });
    ChildCursor children(endless.get());
    EXPECT_FALSE(children.next());
}

TEST_F(ChildrenOfANode, AreHeldWhileTheyAreLookedAt) {
    const auto* const first = add().get();
    ChildCursor children(node.get());
    auto child = children.next();
    node->remove(*first);
    EXPECT_EQ(first->moduleReferences(), 1);
    const auto alive = state->ledger.objectsAlive();
    child = nullptr;
    EXPECT_EQ(state->ledger.objectsAlive(), alive - 1);
}

} // namespace
} // namespace wybeta::host
