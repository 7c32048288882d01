// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/IProjectNotification.h"
#include "simulator/CallInterceptor.h"
#include "simulator/ExtensionInstance.h"
#include "simulator/HostObject.h"
#include "simulator/ProjectHost.h"
#include "tests/ModuleFixture.h"

#include <gtest/gtest.h>

#include <functional>
#include <vector>

namespace wybeta {
namespace {

using namespace simulator;
using Steinberg::kResultOk;

class Terminate : public tests::ExtensionFixture {
protected:
    void SetUp() override { extension->base().initialize(host->context()); }

    // Acts when the storage face is being removed from the document.
    void whileRemovedFrom(const Handle<Document>& document, const std::function<void()>& action) {
        state->calls.intercept([place = document.get(), action](const HostCall& call) {
            if (&call.object == place) {
                EXPECT_EQ(call.name, "IProjectDocument.removeStorageNotification");
                action();
            }
            return Answer::Normal;
        });
    }

    // Who was removed from a document when only the storage face was, and only once.
    const std::vector<host::IProjectStorageNotification*> once{&extension->storageNotification()};
};

TEST_F(Terminate, UnregistersTheNotificationFaceAndReleasesTheHost) {
    EXPECT_EQ(extension->base().terminate(), kResultOk);
    EXPECT_TRUE(host->manager->sinks().empty());
    EXPECT_EQ(host->references(), 0);
}

TEST_F(Terminate, UnregistersTheStorageFaceFromEveryDocument) {
    const auto first = host->openDocument();
    const auto second = host->openDocument();
    extension->notification().documentOpened(first.get());
    EXPECT_EQ(extension->base().terminate(), kResultOk);
    EXPECT_EQ(first->removed(), once);
    EXPECT_TRUE(first->sinks().empty());
    EXPECT_EQ(second->removed(), once);
}

TEST_F(Terminate, PassesOverNullsAmongTheDocuments) {
    const auto first = host->openDocument();
    host->manager->documents.insert(host->manager->documents.begin(), 2, {});
    host->manager->documents.resize(5);
    const auto last = host->openDocument();
    host->manager->documents.emplace_back();
    EXPECT_EQ(extension->base().terminate(), kResultOk);
    EXPECT_EQ(first->removed(), once);
    EXPECT_EQ(last->removed(), once);
}

TEST_F(Terminate, GoesOnAfterADocumentThatRefuses) {
    const auto first = host->openDocument();
    const auto second = host->openDocument();
    state->calls.intercept([place = first.get()](const HostCall& call) {
        return &call.object == place ? Answer::Refuse : Answer::Normal;
    });
    EXPECT_EQ(extension->base().terminate(), kResultOk);
    EXPECT_EQ(second->removed(), once);
}

TEST_F(Terminate, StopsWhereTheListEndsWhenDocumentsVanishMeanwhile) {
    const auto first = host->openDocument();
    const auto second = host->openDocument();
    const auto third = host->openDocument();
    whileRemovedFrom(first, [this] { host->manager->documents.pop_back(); });
    EXPECT_EQ(extension->base().terminate(), kResultOk);
    EXPECT_EQ(first->removed(), once);
    EXPECT_EQ(second->removed(), once);
    EXPECT_TRUE(third->removed().empty());
}

TEST_F(Terminate, StopsWhenAllDocumentsVanishMeanwhile) {
    const auto first = host->openDocument();
    const auto second = host->openDocument();
    whileRemovedFrom(first, [this] { host->manager->documents.clear(); });
    EXPECT_EQ(extension->base().terminate(), kResultOk);
    EXPECT_EQ(first->removed(), once);
    EXPECT_TRUE(second->removed().empty());
}

TEST_F(Terminate, ReachesDocumentsThatAppearMeanwhile) {
    const auto first = host->openDocument();
    Handle<Document> late;
    whileRemovedFrom(first, [this, &late] { late = host->openDocument(); });
    EXPECT_EQ(extension->base().terminate(), kResultOk);
    EXPECT_EQ(late->removed(), once);
}

TEST_F(Terminate, MakesNoCallTheSecondTime) {
    const auto document = host->openDocument();
    extension->base().terminate();
    const auto calls = state->calls.count();
    EXPECT_EQ(extension->base().terminate(), kResultOk);
    EXPECT_EQ(state->calls.count(), calls);
    EXPECT_EQ(document->removed(), once);
}

TEST_F(Terminate, MakesNoCallWithoutInitialize) {
    const ExtensionInstance idle(*factory);
    const auto calls = state->calls.count();
    EXPECT_EQ(idle.base().terminate(), kResultOk);
    EXPECT_EQ(state->calls.count(), calls);
}

TEST_F(Terminate, MayBeLeftOutBeforeTheLastRelease) {
    const auto calls = state->calls.count();
    giveBackExtension();
    EXPECT_EQ(host->references(), 0);
    EXPECT_EQ(state->calls.count(), calls);
}

} // namespace
} // namespace wybeta
