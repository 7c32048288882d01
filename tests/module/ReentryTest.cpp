// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/IProjectHost.h"
#include "simulator/CallInterceptor.h"
#include "simulator/EditContext.h"
#include "simulator/Event.h"
#include "simulator/HostObject.h"
#include "simulator/ProjectHost.h"
#include "simulator/ProjectTree.h"
#include "simulator/Track.h"
#include "tests/CallsOnRelease.h"
#include "tests/ModuleFixture.h"
#include "tests/SimulatedHost.h"

#include "pluginterfaces/base/ipluginbase.h"

#include <gtest/gtest.h>

#include <functional>
#include <string_view>
#include <utility>

namespace wybeta {
namespace {

using namespace simulator;
using Steinberg::kResultOk;
using tests::SimulatedHost;

// A host that calls the extension in the middle of a call from it.
class Reentry : public tests::ExtensionFixture {
protected:
    // Acts in the first call with the name.
    void inTheMiddleOf(std::string_view name, const std::function<void()>& action) {
        state->calls.intercept([name, action, done = false](const HostCall& call) mutable {
            if (call.name == name && !std::exchange(done, true)) {
                action();
            }
            return Answer::Normal;
        });
    }

    Steinberg::IPluginBase& base() { return extension->base(); }
};

TEST_F(Reentry, MeetsAnExtensionThatHoldsItself) {
    const auto references = [this] {
        base().addRef();
        return base().release();
    };
    const auto before = references();
    auto meanwhile = before;
    inTheMiddleOf("IProjectManager.addNotification", [&] { meanwhile = references(); });
    base().initialize(host->context());
    EXPECT_GT(meanwhile, before);
    EXPECT_EQ(references(), before);
}

TEST_F(Reentry, TerminatesOnceWhenTheManagerTerminatesItAgain) {
    const auto document = host->openDocument();
    base().initialize(host->context());
    inTheMiddleOf("IProjectManager.removeNotification",
                  [this] { EXPECT_EQ(base().terminate(), kResultOk); });
    EXPECT_EQ(base().terminate(), kResultOk);
    EXPECT_TRUE(host->manager->sinks().empty());
    EXPECT_EQ(document->removed().size(), 1u);
}

TEST_F(Reentry, TerminatesOnceWhenADocumentTerminatesItAgain) {
    const auto first = host->openDocument();
    const auto second = host->openDocument();
    base().initialize(host->context());
    inTheMiddleOf("IProjectDocument.removeStorageNotification",
                  [this] { EXPECT_EQ(base().terminate(), kResultOk); });
    EXPECT_EQ(base().terminate(), kResultOk);
    EXPECT_EQ(first->removed().size(), 1u);
    EXPECT_EQ(second->removed().size(), 1u);
}

TEST_F(Reentry, HearsOfAnOpenDocumentInTheMiddleOfInitialize) {
    const auto document = host->openDocument();
    inTheMiddleOf("IProjectManager.addNotification",
                  [&] { extension->notification().documentOpened(document.get()); });
    EXPECT_EQ(base().initialize(host->context()), kResultOk);
    base().terminate();
    EXPECT_TRUE(document->sinks().empty());
}

TEST_F(Reentry, HoldsNothingAfterATerminateInTheMiddleOfInitializeAndAnotherOne) {
    for (const char* const name :
         {"IProjectHost.getInterface", "IProjectManager.addNotification"}) {
        inTheMiddleOf(name, [this] { base().terminate(); });
        EXPECT_EQ(base().initialize(host->context()), kResultOk);
        base().terminate();
        EXPECT_EQ(host->references(), 0) << name;
    }
}

TEST_F(Reentry, HoldsOneHostAfterAnInitializeInTheMiddleOfInitialize) {
    const SimulatedHost inner(state);
    inTheMiddleOf("IProjectManager.addNotification",
                  [&] { EXPECT_EQ(base().initialize(inner.context()), kResultOk); });
    EXPECT_EQ(base().initialize(host->context()), kResultOk);
    EXPECT_EQ(host->references(), 0);
    EXPECT_EQ(inner.references(), 2);
}

TEST_F(Reentry, OutlivesAHostThatTakesItsManagerWithIt) {
    base().initialize(host->context());
    host.reset();
    EXPECT_EQ(state->ledger.objectsAlive(), 2u);
    base().terminate();
    EXPECT_EQ(state->ledger.objectsAlive(), 0u);
}

// A project with one track that sings one note.
struct OneNoteProject {
    explicit OneNoteProject(const SharedState& state)
        : project(makeHandle<TreeNode>(state, "Project", "project")),
          note(makeHandle<Event>(state)) {
        const auto part = makeHandle<Part>(state);
        part->add(note);
        const auto track = makeVoiceTrack(state);
        track->add(part);
        project->add(track);
    }

    Handle<TreeNode> project;
    Handle<Event> note;
};

TEST_F(Reentry, HearsOfAChangeWhenItIsDroppedWithoutTerminate) {
    const auto manager = makeHandle<tests::CallsOnRelease<ProjectManager>>(state);
    const auto projectHost = makeHandle<ProjectHost>(state, manager);
    const OneNoteProject song(state);
    base().initialize(static_cast<host::IProjectHost*>(projectHost.get()));
    manager->onRelease = [&] {
        manager->sinks().front()->projectChanged(song.project->argument());
    };
    giveBackExtension();
    EXPECT_FALSE(manager->onRelease);
}

TEST_F(Reentry, HoldsAnEditContextThatTheHostDropsMeanwhile) {
    const OneNoteProject song(state);
    base().initialize(host->context());
    extension->notification().projectChanged(song.project->argument());
    song.note->setLyric("か");
    song.note->flagged = true;
    auto context = makeHandle<EditContext>(state);
    inTheMiddleOf("IPartEvent.isFlagged", [&] { context = {}; });
    extension->editHook().hookEdit(song.project->argument(), context.get());
    EXPECT_EQ(song.note->lyric(), "か[k a]");
}

} // namespace
} // namespace wybeta
