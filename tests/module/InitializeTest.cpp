// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/IProjectHost.h"
#include "host/IProjectNotification.h"
#include "simulator/CallInterceptor.h"
#include "simulator/ExtensionInstance.h"
#include "simulator/HostObject.h"
#include "simulator/ProjectHost.h"
#include "tests/ModuleFixture.h"
#include "tests/SimulatedHost.h"

#include <gtest/gtest.h>

#include <vector>

namespace wybeta {
namespace {

using namespace simulator;
using Steinberg::kResultFalse;
using Steinberg::kResultOk;
using tests::SimulatedHost;

using Sinks = std::vector<host::IProjectNotification3*>;

class Initialize : public tests::ExtensionFixture {
protected:
    Steinberg::tresult initialize(Steinberg::FUnknown* context) {
        return extension->base().initialize(context);
    }
};

TEST_F(Initialize, RegistersTheNotificationFaceWithTheManager) {
    EXPECT_EQ(initialize(host->context()), kResultOk);
    EXPECT_EQ(host->manager->sinks(), Sinks{&extension->notification()});
}

TEST_F(Initialize, HoldsOneReferenceToTheHostAndOneToItsManager) {
    initialize(host->context());
    EXPECT_EQ(host->projectHost->moduleReferences(), 1);
    EXPECT_EQ(host->manager->moduleReferences(), 1);
}

TEST_F(Initialize, LeavesTheDocumentsAlone) {
    const auto document = host->openDocument();
    initialize(host->context());
    EXPECT_TRUE(document->sinks().empty());
}

TEST_F(Initialize, FailsForNull) {
    EXPECT_EQ(initialize(nullptr), kResultFalse);
    EXPECT_EQ(extension->base().terminate(), kResultOk);
}

TEST_F(Initialize, FailsForAContextThatDoesNotAnswerIProjectHost) {
    const auto document = host->openDocument();
    EXPECT_EQ(initialize(document.get()), kResultFalse);
    EXPECT_EQ(state->calls.count(), 1u);
    EXPECT_EQ(document->moduleReferences(), 0);
    EXPECT_EQ(extension->base().terminate(), kResultOk);
    EXPECT_EQ(state->calls.count(), 1u);
}

TEST_F(Initialize, SucceedsWithAHostThatHasNoManager) {
    const auto lonely = makeHandle<ProjectHost>(state, Handle<ProjectManager>());
    EXPECT_EQ(initialize(static_cast<host::IProjectHost*>(lonely.get())), kResultOk);
    EXPECT_EQ(lonely->moduleReferences(), 1);
    EXPECT_EQ(extension->base().terminate(), kResultOk);
    EXPECT_EQ(lonely->moduleReferences(), 0);
}

TEST_F(Initialize, SucceedsWithAManagerThatDoesNotTakeTheFace) {
    state->calls.intercept([](const HostCall& call) {
        return call.name == "IProjectManager.addNotification" ? Answer::Refuse : Answer::Normal;
    });
    EXPECT_EQ(initialize(host->context()), kResultOk);
    EXPECT_EQ(host->references(), 2);
}

TEST_F(Initialize, LetsTheFirstHostGoForASecondOne) {
    const SimulatedHost second(state);
    initialize(host->context());
    EXPECT_EQ(initialize(second.context()), kResultOk);
    EXPECT_EQ(host->references(), 0);
    EXPECT_EQ(second.references(), 2);
    EXPECT_EQ(second.manager->sinks(), Sinks{&extension->notification()});

    extension->base().terminate();
    EXPECT_EQ(second.references(), 0);
    EXPECT_TRUE(second.manager->sinks().empty());
}

TEST_F(Initialize, LetsTheFirstManagerGoForAHostWithoutOne) {
    const auto lonely = makeHandle<ProjectHost>(state, Handle<ProjectManager>());
    initialize(host->context());
    EXPECT_EQ(initialize(static_cast<host::IProjectHost*>(lonely.get())), kResultOk);
    EXPECT_EQ(host->references(), 0);
    EXPECT_EQ(lonely->moduleReferences(), 1);
}

TEST_F(Initialize, HoldsNoMoreReferencesWhenTheSameHostComesTwice) {
    initialize(host->context());
    EXPECT_EQ(initialize(host->context()), kResultOk);
    EXPECT_EQ(host->references(), 2);
}

TEST_F(Initialize, ReleasesTheHostAndKeepsTheManagerWhenABadContextFollows) {
    for (Steinberg::FUnknown* const bad :
         {static_cast<Steinberg::FUnknown*>(nullptr),
          static_cast<Steinberg::FUnknown*>(host->manager.get())}) {
        initialize(host->context());
        EXPECT_EQ(initialize(bad), kResultFalse);
        EXPECT_EQ(host->projectHost->moduleReferences(), 0);
        EXPECT_EQ(host->manager->moduleReferences(), 1);
        EXPECT_EQ(host->manager->sinks().size(), 1u);

        extension->base().terminate();
        EXPECT_TRUE(host->manager->sinks().empty());
    }
}

TEST_F(Initialize, WorksAgainAfterTerminate) {
    initialize(host->context());
    extension->base().terminate();
    EXPECT_EQ(initialize(host->context()), kResultOk);
    EXPECT_EQ(host->manager->sinks(), Sinks{&extension->notification()});
}

TEST_F(Initialize, ServesTwoExtensionsOfOneHost) {
    const ExtensionInstance second(*factory);
    initialize(host->context());
    second.base().initialize(host->context());
    EXPECT_EQ(host->manager->sinks(), (Sinks{&extension->notification(), &second.notification()}));

    extension->base().terminate();
    EXPECT_EQ(host->manager->sinks(), Sinks{&second.notification()});
    second.base().terminate();
}

} // namespace
} // namespace wybeta
