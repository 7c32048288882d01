// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulator/Ledger.h"
#include "host/IProjectNode.h"
#include "simulator/CallInterceptor.h"
#include "simulator/HostObject.h"
#include "simulator/ProjectTree.h"

#include <gtest/gtest.h>

#include <memory>

namespace wybeta::tests {
namespace {

using namespace simulator;

class Ledger : public testing::Test {
protected:
    const SharedState state = std::make_shared<HostState>();
    const simulator::Ledger& ledger = state->ledger;
};

// These are looked at by way of the ledger.
using CallInterceptor = Ledger;
using HostObject = Ledger;
using ProjectTree = Ledger;

TEST_F(Ledger, IsBalancedBeforeAnythingIsTaken) {
    const auto folder = makeHandle<Folder>(state);
    EXPECT_TRUE(ledger.isBalanced());
    EXPECT_EQ(ledger.report(), "");
    EXPECT_EQ(ledger.objectsAlive(), 1u);
}

TEST_F(Ledger, NamesTheObjectsThatAreHeld) {
    const auto folder = makeHandle<Folder>(state);
    folder->argument()->addRef();
    folder->argument()->addRef();
    EXPECT_FALSE(ledger.isBalanced());
    EXPECT_EQ(ledger.outstanding(), 2);
    EXPECT_EQ(ledger.report(), "Folder is held 2 times\n");

    folder->argument()->release();
    folder->argument()->release();
    EXPECT_TRUE(ledger.isBalanced());
    EXPECT_EQ(ledger.report(), "");
}

TEST_F(Ledger, EntersAReferenceTakenByAnInterface) {
    const auto folder = makeHandle<Folder>(state);
    void* node = nullptr;
    EXPECT_EQ(folder->argument()->queryInterface(host::IProjectNode::iid, &node),
              Steinberg::kResultOk);
    EXPECT_EQ(ledger.outstanding(), 1);
    static_cast<host::IProjectNode*>(node)->release();
    EXPECT_TRUE(ledger.isBalanced());
}

TEST_F(Ledger, FindsFaultWithAReferenceGivenBackTwice) {
    const auto folder = makeHandle<Folder>(state);
    folder->argument()->addRef();
    folder->argument()->release();
    folder->argument()->release();
    EXPECT_FALSE(ledger.isBalanced());
    EXPECT_EQ(ledger.report(), "Folder was given back without having been taken\n");
}

TEST_F(Ledger, IsNotBalancedByAnObjectTooMuchGivenBackForAnotherOneHeld) {
    const auto held = makeHandle<Folder>(state);
    const auto given = makeHandle<Part>(state);
    held->argument()->addRef();
    given->argument()->release();
    EXPECT_FALSE(ledger.isBalanced());
    held->argument()->release();
    EXPECT_FALSE(ledger.isBalanced());
}

TEST_F(HostObject, LivesForItsHandleOrForTheModule) {
    auto folder = makeHandle<Folder>(state);
    auto* const argument = folder->argument();
    argument->addRef();
    folder = {};
    EXPECT_EQ(ledger.objectsAlive(), 1u);
    EXPECT_EQ(argument->release(), 0u);
    EXPECT_EQ(ledger.objectsAlive(), 0u);

    folder = makeHandle<Folder>(state);
    EXPECT_EQ(ledger.objectsAlive(), 1u);
    folder = {};
    EXPECT_EQ(ledger.objectsAlive(), 0u);
}

TEST_F(ProjectTree, GoesAsAWholeHoweverDeepItIs) {
    auto root = makeHandle<Folder>(state);
    auto deepest = root;
    for (int depth = 0; depth < 100000; ++depth) {
        const auto child = makeHandle<Folder>(state);
        deepest->add(child);
        deepest = child;
    }
    deepest = {};
    EXPECT_EQ(ledger.objectsAlive(), 100001u);
    root = {};
    EXPECT_EQ(ledger.objectsAlive(), 0u);
}

TEST_F(CallInterceptor, CountsEveryCall) {
    const auto folder = makeHandle<Folder>(state);
    EXPECT_TRUE(folder->isKind("folder"));
    EXPECT_FALSE(folder->isKind("part"));
    EXPECT_EQ(state->calls.count(), 2u);
}

TEST_F(CallInterceptor, CanRefuseACall) {
    const auto folder = makeHandle<Folder>(state);
    state->calls.intercept([&](const HostCall& call) {
        EXPECT_EQ(&call.object, folder.get());
        return call.name == "IProjectItem.isKind" ? Answer::Refuse : Answer::Normal;
    });
    EXPECT_FALSE(folder->isKind("folder"));
    state->calls.stopIntercepting();
    EXPECT_TRUE(folder->isKind("folder"));
}

} // namespace
} // namespace wybeta::tests
