// SPDX-License-Identifier: GPL-3.0-or-later
#include "extension/WyBetaExtension.h"
#include "dictionary/PronunciationDictionary.h"
#include "host/IProjectHost.h"
#include "host/IProjectNotification.h"
#include "resources/ResourceTable.h"
#include "simulator/CallInterceptor.h"
#include "simulator/HostObject.h"
#include "simulator/ProjectHost.h"
#include "simulator/ProjectTree.h"
#include "simulator/Track.h"
#include "tests/CallsOnRelease.h"
#include "tests/SimulatedHost.h"
#include "tracks/NoteList.h"
#include "tracks/TrackTable.h"

#include "base/source/fobject.h"
#include "pluginterfaces/base/ipluginbase.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <memory>

namespace wybeta::tests {
namespace {

using simulator::Handle;
using simulator::makeHandle;
using Steinberg::kResultFalse;
using Steinberg::kResultOk;

std::shared_ptr<tracks::NoteList> twoNotes() {
    auto list = std::make_shared<tracks::NoteList>();
    list->records.emplace_back();
    list->records.emplace_back();
    return list;
}

template <class Face>
const void* addressOf(const extension::WyBetaExtension& extension) {
    return static_cast<const Face*>(&extension);
}

class WyBetaExtension : public testing::Test {
protected:
    const simulator::SharedState state = std::make_shared<simulator::HostState>();
    const SimulatedHost host{state};
};

TEST_F(WyBetaExtension, KnowsItsClassByName) {
    extension::WyBetaExtension extension;
    EXPECT_STREQ(extension.isA(), "WyBetaExtension");
    EXPECT_TRUE(extension.isA("WyBetaExtension"));
    EXPECT_FALSE(extension.isA("FObject"));
    EXPECT_FALSE(extension.isA(nullptr));
}

TEST_F(WyBetaExtension, KnowsItsBaseClassWhenAskedToConsiderIt) {
    extension::WyBetaExtension extension;
    for (const bool askBaseClass : {true, false}) {
        EXPECT_TRUE(extension.isTypeOf("WyBetaExtension", askBaseClass));
        EXPECT_EQ(extension.isTypeOf("FObject", askBaseClass), askBaseClass);
        EXPECT_FALSE(extension.isTypeOf("IPluginBase", askBaseClass));
        EXPECT_FALSE(extension.isTypeOf(nullptr, askBaseClass));
    }
}

TEST_F(WyBetaExtension, StartsWithOneReference) {
    extension::WyBetaExtension extension;
    EXPECT_EQ(extension.getRefCount(), 1);
}

TEST_F(WyBetaExtension, PutsADictionaryOfItsOwnInThePlaceOfTheOneBefore) {
    auto& dictionary = dictionary::pronunciationDictionary();
    extension::WyBetaExtension first;
    const auto size = dictionary.size();
    dictionary = dictionary::loadPronunciationDictionary("la\tx\tla", 7);
    extension::WyBetaExtension second;
    EXPECT_EQ(dictionary.size(), size);
    EXPECT_TRUE(dictionary.find("abandon"));
    EXPECT_NE(dictionary.find("la").value().phonemes, "x");
}

TEST_F(WyBetaExtension, SearchesTheDictionaryTextWhereItIsInTheLibrary) {
    extension::WyBetaExtension extension;
    const auto& text = *resources::findResource("cmudict0_7butf8spll");
    const auto line = dictionary::pronunciationDictionary().findLine("abandon").value();
    const std::less_equal<> isNotAfter;
    EXPECT_TRUE(isNotAfter(text.data, line.word.data()));
    EXPECT_TRUE(isNotAfter(line.word.data(), text.data + text.size));
}

TEST_F(WyBetaExtension, LeavesTheDictionaryInPlaceWhenItIsDestroyed) {
    { extension::WyBetaExtension extension; }
    EXPECT_TRUE(dictionary::pronunciationDictionary().find("abandon"));
}

TEST_F(WyBetaExtension, HasItsFacesInTheOrderOfItsBases) {
    extension::WyBetaExtension extension;
    EXPECT_EQ(addressOf<Steinberg::IPluginBase>(extension), &extension);
    EXPECT_LT(addressOf<Steinberg::IPluginBase>(extension),
              addressOf<Steinberg::FObject>(extension));
    EXPECT_LT(addressOf<Steinberg::FObject>(extension),
              addressOf<host::IProjectNotification3>(extension));
    EXPECT_LT(addressOf<host::IProjectNotification3>(extension),
              addressOf<host::IProjectStorageNotification>(extension));
    EXPECT_LT(addressOf<host::IProjectStorageNotification>(extension),
              addressOf<host::IProjectEditHook>(extension));
}

TEST_F(WyBetaExtension, BecomesTheCurrentOneByInitialize) {
    extension::WyBetaExtension extension;
    EXPECT_EQ(tracks::currentTrackTable(), nullptr);
    extension.initialize(host.context());
    EXPECT_NE(tracks::currentTrackTable(), nullptr);
}

TEST_F(WyBetaExtension, BecomesTheCurrentOneInAHostWithoutAManager) {
    const auto lonely =
        makeHandle<simulator::ProjectHost>(state, Handle<simulator::ProjectManager>());
    extension::WyBetaExtension extension;
    EXPECT_EQ(extension.initialize(static_cast<host::IProjectHost*>(lonely.get())), kResultOk);
    EXPECT_NE(tracks::currentTrackTable(), nullptr);
}

TEST_F(WyBetaExtension, DoesNotBecomeTheCurrentOneInABadContext) {
    extension::WyBetaExtension extension;
    EXPECT_EQ(extension.initialize(nullptr), kResultFalse);
    EXPECT_EQ(extension.initialize(host.manager.get()), kResultFalse);
    EXPECT_EQ(tracks::currentTrackTable(), nullptr);
}

TEST_F(WyBetaExtension, StaysTheCurrentOneWhenABadContextFollows) {
    extension::WyBetaExtension extension;
    extension.initialize(host.context());
    auto* const table = tracks::currentTrackTable();
    EXPECT_EQ(extension.initialize(nullptr), kResultFalse);
    EXPECT_EQ(tracks::currentTrackTable(), table);
}

TEST_F(WyBetaExtension, IsNoLongerTheCurrentOneAfterTerminate) {
    extension::WyBetaExtension extension;
    extension.initialize(host.context());
    extension.terminate();
    EXPECT_EQ(tracks::currentTrackTable(), nullptr);
}

TEST_F(WyBetaExtension, IsNoLongerTheCurrentOneBeforeItUnregisters) {
    extension::WyBetaExtension extension;
    extension.initialize(host.context());
    state->calls.intercept([](const simulator::HostCall& call) {
        EXPECT_EQ(tracks::currentTrackTable(), nullptr) << call.name;
        return simulator::Answer::Normal;
    });
    extension.terminate();
}

TEST_F(WyBetaExtension, IsNotYetTheCurrentOneWhileItRegisters) {
    extension::WyBetaExtension extension;
    state->calls.intercept([](const simulator::HostCall& call) {
        EXPECT_EQ(tracks::currentTrackTable(), nullptr) << call.name;
        return simulator::Answer::Normal;
    });
    extension.initialize(host.context());
}

TEST_F(WyBetaExtension, IsNoLongerTheCurrentOneWhenItIsDestroyed) {
    {
        extension::WyBetaExtension extension;
        extension.initialize(host.context());
    }
    EXPECT_EQ(tracks::currentTrackTable(), nullptr);
    EXPECT_TRUE(state->ledger.isBalanced()) << state->ledger.report();
}

TEST_F(WyBetaExtension, LeavesTheCurrentOneAloneWhenAnotherIsDestroyed) {
    extension::WyBetaExtension current;
    {
        extension::WyBetaExtension other;
        other.initialize(host.context());
        current.initialize(host.context());
    }
    EXPECT_NE(tracks::currentTrackTable(), nullptr);
    current.terminate();
}

TEST_F(WyBetaExtension, GivesTheCurrentPlaceToTheLastOneInitialised) {
    extension::WyBetaExtension first;
    extension::WyBetaExtension second;
    first.initialize(host.context());
    auto* const table = tracks::currentTrackTable();
    second.initialize(host.context());
    EXPECT_NE(tracks::currentTrackTable(), table);
    second.terminate();
    EXPECT_EQ(tracks::currentTrackTable(), nullptr);
}

TEST_F(WyBetaExtension, KeepsItsTrackTableThroughNewsThatItIgnores) {
    extension::WyBetaExtension extension;
    extension.initialize(host.context());
    const auto records = twoNotes();
    tracks::currentTrackTable()->emplace(nullptr, tracks::TrackEntry{records, nullptr});

    extension.ignored3(nullptr);
    extension.ignored4(nullptr);
    EXPECT_EQ(extension.ignored7(nullptr), kResultOk);
    extension.ignored8(nullptr);
    extension.storageChanged(nullptr);
    EXPECT_EQ(tracks::currentTrackTable()->size(), 1u);
    EXPECT_EQ(tracks::currentTrackTable()->at(nullptr).notes, records);
}

TEST_F(WyBetaExtension, KeepsItsTrackTableWhenTheChangedObjectIsNoNode) {
    const auto document = host.openDocument();
    extension::WyBetaExtension extension;
    extension.initialize(host.context());
    const auto records = twoNotes();
    tracks::currentTrackTable()->emplace(nullptr, tracks::TrackEntry{records, nullptr});

    extension.projectChanged(nullptr);
    extension.projectChanged(document.get());
    EXPECT_EQ(extension.hookEdit(nullptr, nullptr), kResultOk);
    EXPECT_EQ(extension.hookEdit(document.get(), nullptr), kResultOk);
    EXPECT_EQ(tracks::currentTrackTable()->size(), 1u);
    EXPECT_EQ(tracks::currentTrackTable()->at(nullptr).notes, records);
}

TEST_F(WyBetaExtension, IsWholeWhileItGivesTheHostBack) {
    const auto manager = makeHandle<CallsOnRelease<simulator::ProjectManager>>(state);
    const auto lastHost = makeHandle<CallsOnRelease<simulator::ProjectHost>>(state, manager);
    const auto project = makeHandle<simulator::TreeNode>(state, "Project", "project");
    project->add(simulator::makeVoiceTrack(state));
    auto extension = std::make_unique<extension::WyBetaExtension>();
    extension->initialize(static_cast<host::IProjectHost*>(lastHost.get()));
    extension->projectChanged(project->argument());

    // The one that was current is so until all is given back, with a table that lists nothing yet.
    const auto walk = [extension = extension.get(), &project](std::size_t tracksBefore) {
        ASSERT_NE(tracks::currentTrackTable(), nullptr);
        EXPECT_EQ(tracks::currentTrackTable()->size(), tracksBefore);
        extension->projectChanged(project->argument());
        EXPECT_EQ(tracks::currentTrackTable()->size(), 1u);
    };
    manager->onRelease = [walk] { walk(0); };
    lastHost->onRelease = [walk] { walk(1); };
    extension.reset();
    EXPECT_FALSE(manager->onRelease);
    EXPECT_FALSE(lastHost->onRelease);
    EXPECT_EQ(tracks::currentTrackTable(), nullptr);
    EXPECT_TRUE(state->ledger.isBalanced()) << state->ledger.report();
}

TEST_F(WyBetaExtension, KeepsItsTrackTableUntilItIsDestroyed) {
    extension::WyBetaExtension extension;
    extension.initialize(host.context());
    tracks::currentTrackTable()->emplace(nullptr, tracks::TrackEntry{twoNotes(), nullptr});
    extension.terminate();
    extension.initialize(host.context());
    EXPECT_EQ(tracks::currentTrackTable()->size(), 1u);
}

} // namespace
} // namespace wybeta::tests
