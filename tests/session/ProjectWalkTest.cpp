// SPDX-License-Identifier: GPL-3.0-or-later
//
// Which tracks of the project tree a walk reaches, and in which order.
#include "host/IProjectNode.h"
#include "host/InterfaceId.h"
#include "simulator/CallInterceptor.h"
#include "simulator/EditContext.h"
#include "simulator/HostObject.h"
#include "simulator/ProjectTree.h"
#include "simulator/Track.h"
#include "tests/TrackNotes.h"
#include "tests/session/SessionTest.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace wybeta::tests {
namespace {

using simulator::Answer;

// A folder that does not answer IProjectNode.
class SilentFolder : public Folder {
public:
    using Folder::Folder;

protected:
    void* interfaceFor(const Steinberg::TUID id) override {
        return host::sameId(id, host::IProjectNode::iid) ? nullptr : Folder::interfaceFor(id);
    }
};

class ProjectWalk : public SessionTest {
protected:
    Handle<TreeNode> makeNode(const char* kind) const {
        return makeHandle<TreeNode>(state(), "Node", kind);
    }

    Handle<Folder> makeFolder(const std::vector<Handle<TreeItem>>& items = {}) const {
        auto folder = makeHandle<Folder>(state());
        for (const auto& item : items) {
            folder->add(item);
        }
        return folder;
    }

    Handle<Track> makeTwoNoteTrack() const { return makeTrack({{"", ""}}); }

    // Whether a lyric that is typed into the track is divided, by a hook on the node.
    bool isReached(const Handle<Track>& track, TreeNode& node) {
        editor().extension().notification().projectChanged(node.argument());
        typeInto(noteAt(*track, 0), "かき");
        hook(node);
        return noteAt(*track, 0).lyric() == "かき[k a]";
    }

    bool isReached(const Handle<Track>& track) { return isReached(track, project()); }

    // How often a walk over the project asks a folder for its children.
    int timesEntered(const Folder& folder) {
        int times = 0;
        state()->calls.intercept([&](const HostCall& call) {
            times += call.name == "IProjectNode.children" && &call.object == &folder ? 1 : 0;
            return Answer::Normal;
        });
        editor().notify();
        state()->calls.stopIntercepting();
        return times;
    }

    // Whether the table knows the track: if so, a note more gives a step.
    bool isKnown(Track& track) {
        track.add(makePart({""}));
        return !hook().empty();
    }
};

TEST_F(ProjectWalk, ReachesATrackAtTheTopLevel) {
    const auto track = makeTwoNoteTrack();
    project().add(track);
    EXPECT_TRUE(isReached(track));
}

TEST_F(ProjectWalk, ReachesATrackInNestedFolders) {
    const auto track = makeTwoNoteTrack();
    project().add(makeFolder({makeFolder(), makeFolder({makeFolder({track})})}));
    EXPECT_TRUE(isReached(track));
}

TEST_F(ProjectWalk, ReachesTracksOnBothSidesOfAFolder) {
    const auto before = makeTwoNoteTrack();
    const auto after = makeTwoNoteTrack();
    project().add(before);
    project().add(makeFolder({makeTwoNoteTrack()}));
    project().add(after);
    EXPECT_TRUE(isReached(before));
    EXPECT_TRUE(isReached(after));
}

TEST_F(ProjectWalk, MeetsTheTracksDepthFirstInTheOrderOfTheChildren) {
    std::vector<Handle<Track>> tracks(6);
    std::generate(tracks.begin(), tracks.end(), [this] { return makeTwoNoteTrack(); });
    project().add(tracks[0]);
    project().add(makeFolder({tracks[1], makeFolder({tracks[2], tracks[3]}), tracks[4]}));
    project().add(tracks[5]);
    editor().notify();

    Nodes expected;
    for (const auto& track : tracks) {
        typeInto(noteAt(*track, 1), "か");
        expected.push_back(noteAt(*track, 1).node());
    }
    Nodes found;
    for (const auto& step : hook()) {
        const auto nodes = reported(*step);
        found.insert(found.end(), nodes.begin(), nodes.end());
    }
    EXPECT_EQ(found, expected);
}

TEST_F(ProjectWalk, HandsOverOneStepForEachTrackThatChanged) {
    auto& typed = addKnownTrack({"", ""});
    auto& grown = addKnownTrack({""});
    addKnownTrack({"", "", ""});
    typeInto(noteAt(typed, 0), "か");
    grown.add(makePart({""}));

    const auto steps = hook();
    ASSERT_EQ(steps.size(), 2u);
    EXPECT_TRUE(isDivision(*steps[0]));
    EXPECT_FALSE(isDivision(*steps[1]));
}

TEST_F(ProjectWalk, DoesNotLookIntoNodesOfOtherKinds) {
    for (const char* kind : {"group", "Folder", "part", "audio", ""}) {
        const auto track = makeTwoNoteTrack();
        const auto node = makeNode(kind);
        node->add(track);
        project().add(node);
        EXPECT_FALSE(isReached(track)) << kind;
    }
}

TEST_F(ProjectWalk, DoesNotLookForTracksInsideTracks) {
    for (const bool isTarget : {true, false}) {
        const auto outer = isTarget ? makeTrack({}) : makeHandle<Track>(state());
        const auto inner = makeTwoNoteTrack();
        const auto innermost = makeTwoNoteTrack();
        outer->add(inner);
        outer->add(makeFolder({innermost}));
        project().add(outer);
        EXPECT_FALSE(isReached(inner)) << isTarget;
        EXPECT_FALSE(isReached(innermost)) << isTarget;
    }
}

TEST_F(ProjectWalk, GoesOnPastNodesThatItDoesNotLookInto) {
    const auto track = makeTwoNoteTrack();
    project().add(makeNode("group"));
    project().add(makeHandle<Track>(state()));
    project().add(makeHandle<SilentFolder>(state()));
    project().add(track);
    EXPECT_TRUE(isReached(track));
}

TEST_F(ProjectWalk, DoesNotLookIntoAFolderThatIsNoNode) {
    const auto track = makeTwoNoteTrack();
    const auto folder = makeHandle<SilentFolder>(state());
    folder->add(track);
    project().add(folder);
    EXPECT_FALSE(isReached(track));
}

TEST_F(ProjectWalk, SkipsNullChildren) {
    const auto first = makeTwoNoteTrack();
    const auto second = makeTwoNoteTrack();
    project().add({});
    project().add(makeFolder({{}, first, {}}));
    project().add({});
    project().add({});
    project().add(second);
    project().add({});
    EXPECT_TRUE(isReached(first));
    EXPECT_TRUE(isReached(second));
}

TEST_F(ProjectWalk, TakesANodeWithoutAnIteratorForEmpty) {
    const auto track = makeTwoNoteTrack();
    const auto empty = makeFolder();
    empty->answerNoIteratorWhenEmpty();
    project().add(empty);
    project().add(track);
    EXPECT_TRUE(isReached(track));

    project().remove(*empty);
    project().remove(*track);
    project().answerNoIteratorWhenEmpty();
    EXPECT_TRUE(hook().empty());
}

TEST_F(ProjectWalk, BeginsAtTheNodeThatTheHostPasses) {
    const auto inside = makeTwoNoteTrack();
    const auto outside = makeTwoNoteTrack();
    const auto folder = makeFolder({inside});
    project().add(folder);
    project().add(outside);
    EXPECT_TRUE(isReached(inside, *folder));
    EXPECT_FALSE(isReached(outside, *folder));
}

TEST_F(ProjectWalk, ForgetsTheTracksThatItDoesNotMeet) {
    auto& track = addKnownTrack({""});
    const auto folder = makeFolder({makeTwoNoteTrack()});
    project().add(folder);
    hook(*folder);
    EXPECT_FALSE(isKnown(track));
}

TEST_F(ProjectWalk, ForgetsAllTracksWhenThereIsNothingToWalk) {
    auto& track = addKnownTrack({""});
    const auto empty = makeFolder();
    empty->answerNoIteratorWhenEmpty();
    editor().extension().notification().projectChanged(empty->argument());
    EXPECT_FALSE(isKnown(track));
}

TEST_F(ProjectWalk, ForgetsARemovedTrackInAHookAndInANotification) {
    for (const bool isHook : {true, false}) {
        auto& track = addKnownTrack({""});
        const Handle<Track> kept(&track);
        const auto place = project().remove(track);
        if (isHook) {
            EXPECT_TRUE(hook().empty());
        } else {
            editor().notify();
        }
        project().insert(place, kept);
        EXPECT_FALSE(isKnown(track)) << isHook;
        project().remove(track);
    }
}

TEST_F(ProjectWalk, KeepsATrackThatMovedIntoAFolder) {
    auto& track = addKnownTrack({""});
    const Handle<Track> kept(&track);
    project().remove(track);
    project().add(makeFolder({kept}));
    EXPECT_TRUE(isKnown(track));
}

TEST_F(ProjectWalk, TakesATrackThatIsYieldedTwiceOnce) {
    auto& track = addKnownTrack({"", ""});
    project().add(Handle<Track>(&track));
    typeInto(noteAt(track, 0), "かき");
    EXPECT_EQ(hook().size(), 1u);
}

TEST_F(ProjectWalk, EntersAFolderThatContainsItselfOnce) {
    const auto track = makeTwoNoteTrack();
    const auto folder = makeFolder();
    folder->add(folder);
    folder->add(track);
    project().add(folder);
    EXPECT_EQ(timesEntered(*folder), 1);
    EXPECT_TRUE(isReached(track));
    noteAt(*track, 0).setLyric("");
    EXPECT_TRUE(isReached(track, *folder));
    folder->remove(*folder);
}

TEST_F(ProjectWalk, EntersAFolderThatAnInnerFolderContainsOnce) {
    const auto track = makeTwoNoteTrack();
    const auto innerTrack = makeTwoNoteTrack();
    const auto inner = makeFolder();
    const auto outer = makeFolder({inner, track});
    inner->add(outer);
    inner->add(innerTrack);
    project().add(outer);
    EXPECT_EQ(timesEntered(*outer), 1);
    EXPECT_EQ(timesEntered(*inner), 1);
    EXPECT_TRUE(isReached(track));
    EXPECT_TRUE(isReached(innerTrack));
    inner->remove(*outer);
}

TEST_F(ProjectWalk, EntersAFolderInTwoPlacesTwice) {
    const auto folder = makeFolder({makeTwoNoteTrack()});
    project().add(makeFolder({folder}));
    project().add(folder);
    EXPECT_EQ(timesEntered(*folder), 2);
}

TEST_F(ProjectWalk, AsksTheObjectThatTheHostPassedForTheTimeContexts) {
    const auto track = makeTrack({{""}, {""}});
    const auto folder = makeFolder({track});
    project().add(makeFolder({folder}));
    int asked = 0;
    TreeNode* passed = &project();
    state()->calls.intercept([&](const HostCall& call) {
        if (call.name == "IProjectNotificationArgument.timeContext") {
            EXPECT_EQ(&call.object, passed);
            ++asked;
        }
        return Answer::Normal;
    });
    editor().notify();
    EXPECT_EQ(asked, 2);
    hook();
    EXPECT_EQ(asked, 4);
    passed = folder.get();
    hook(*folder);
    EXPECT_EQ(asked, 6);
}

TEST_F(ProjectWalk, DoesNothingWithoutANode) {
    auto& track = addKnownTrack({""});
    const auto context = makeHandle<EditContext>(state());
    const auto& extension = editor().extension();
    extension.notification().projectChanged(nullptr);
    extension.notification().projectChanged(context.get());
    EXPECT_EQ(extension.editHook().hookEdit(nullptr, context.get()), 0);
    EXPECT_EQ(extension.editHook().hookEdit(context.get(), context.get()), 0);
    EXPECT_TRUE(context->steps().empty());
    EXPECT_TRUE(isKnown(track));
}

TEST_F(ProjectWalk, MakesNoStepForAHookWithoutAContext) {
    auto& track = addKnownTrack({"", ""});
    track.add(makePart({""}));
    EXPECT_EQ(editor().extension().editHook().hookEdit(project().argument(), nullptr), 0);
    EXPECT_TRUE(hook().empty());
}

TEST_F(ProjectWalk, GivesBackAllThatItTook) {
    auto& track = addTrack({"", ""});
    project().add(makeFolder({makeFolder({makeTwoNoteTrack()})}));
    const auto before = state()->ledger.outstanding();
    const auto alive = state()->ledger.objectsAlive();
    editor().notify();
    typeInto(noteAt(track, 0), "かき");
    hook();
    EXPECT_EQ(state()->ledger.outstanding(), before);
    EXPECT_EQ(state()->ledger.objectsAlive(), alive);
}

} // namespace
} // namespace wybeta::tests
