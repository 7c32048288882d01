// SPDX-License-Identifier: GPL-3.0-or-later
#include "extension/OpenFolders.h"
#include "host/IProjectNode.h"
#include "simulator/HostObject.h"
#include "simulator/ProjectTree.h"

#include "pluginterfaces/base/smartpointer.h"

#include <gtest/gtest.h>

#include <memory>

namespace wybeta::tests {
namespace {

using simulator::Folder;
using simulator::Handle;
using simulator::makeHandle;

class OpenFolders : public testing::Test {
protected:
    void TearDown() override { EXPECT_TRUE(state->ledger.isBalanced()) << state->ledger.report(); }

    // A folder with one folder in it.
    Handle<Folder> makeFolder() const {
        auto folder = makeHandle<Folder>(state);
        folder->add(makeHandle<Folder>(state));
        return folder;
    }

    static void open(extension::OpenFolders& folders, const Handle<Folder>& folder) {
        folders.open(Steinberg::shared<host::IProjectNode>(folder.get()));
    }

    // The item that is in the folder.
    static host::IProjectItem* childOf(const Handle<Folder>& folder) {
        return folder->items().at(0)->ownInterface();
    }

    const simulator::SharedState state = std::make_shared<simulator::HostState>();
    const Handle<Folder> outer = makeFolder();
    const Handle<Folder> inner = makeFolder();
};

TEST_F(OpenFolders, AreNoneAtFirst) {
    EXPECT_TRUE(extension::OpenFolders().empty());
}

TEST_F(OpenFolders, AreClosedFromTheInnermostToTheOutermost) {
    extension::OpenFolders folders;
    open(folders, outer);
    open(folders, inner);
    EXPECT_EQ(folders.innermost().next(), childOf(inner));
    EXPECT_FALSE(folders.innermost().next());
    folders.closeInnermost();
    EXPECT_EQ(folders.innermost().next(), childOf(outer));
    EXPECT_FALSE(folders.empty());
    folders.closeInnermost();
    EXPECT_TRUE(folders.empty());
}

TEST_F(OpenFolders, DoNotTakeAFolderAgainThatIsOpen) {
    extension::OpenFolders folders;
    open(folders, outer);
    open(folders, outer);
    open(folders, inner);
    open(folders, outer);
    EXPECT_EQ(folders.innermost().next(), childOf(inner));
    folders.closeInnermost();
    folders.closeInnermost();
    EXPECT_TRUE(folders.empty());
}

TEST_F(OpenFolders, TakeAFolderAgainThatWasClosed) {
    extension::OpenFolders folders;
    open(folders, outer);
    for (int i = 0; i < 2; ++i) {
        open(folders, inner);
        EXPECT_EQ(folders.innermost().next(), childOf(inner));
        folders.closeInnermost();
    }
    EXPECT_EQ(folders.innermost().next(), childOf(outer));
}

TEST_F(OpenFolders, HoldEachFolderWhileItIsOpen) {
    extension::OpenFolders folders;
    open(folders, outer);
    open(folders, outer);
    open(folders, inner);
    EXPECT_EQ(outer->moduleReferences(), 1);
    EXPECT_EQ(inner->moduleReferences(), 1);
    folders.closeInnermost();
    EXPECT_EQ(inner->moduleReferences(), 0);
    EXPECT_EQ(outer->moduleReferences(), 1);
}

} // namespace
} // namespace wybeta::tests
