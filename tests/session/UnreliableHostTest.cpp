// SPDX-License-Identifier: GPL-3.0-or-later
//
// A host whose answers make no sense.
#include "host/IProjectNode.h"
#include "simulator/CallInterceptor.h"
#include "simulator/Event.h"
#include "simulator/HostObject.h"
#include "simulator/ProjectTree.h"
#include "simulator/Track.h"
#include "tests/EndlessNode.h"
#include "tests/TrackNotes.h"
#include "tests/session/SessionTest.h"

#include <gtest/gtest.h>

#include <cstddef>

namespace wybeta::tests {
namespace {

using simulator::Answer;

// Says that it handed an interface over, and hands over nothing.
class LyingNote : public Event {
public:
    using Event::Event;

    Steinberg::tresult PLUGIN_API queryInterface(const Steinberg::TUID /*id*/,
                                                 void** object) override {
        *object = nullptr;
        return Steinberg::kResultOk;
    }
};

host::IProjectItem* gap() {
    return nullptr;
}

class UnreliableHost : public SessionTest {};

TEST_F(UnreliableHost, HasAFolderOfGapsWithoutEnd) {
    const auto folder = makeHandle<EndlessNode<Folder>>(state(), gap);
    project().add(folder);
    auto& track = addKnownTrack({"", ""});
    editor().type(noteAt(track, 0), "かき");
    EXPECT_EQ(lyricsOf(track), (Lyrics{"かき[k a]", "[k i]"}));
    hook(*folder);
}

TEST_F(UnreliableHost, HasATrackOfGapsWithoutEnd) {
    const auto endless = makeHandle<EndlessNode<Track>>(state(), gap);
    endless->setDevice(simulator::makeDevice(state(), simulator::Plugin::Kind::VoiceSynthesizer));
    project().add(endless);
    auto& track = addKnownTrack({"", ""});
    editor().type(noteAt(track, 0), "かき");
    EXPECT_EQ(lyricsOf(track), (Lyrics{"かき[k a]", "[k i]"}));
}

TEST_F(UnreliableHost, HasAPartOfGapsWithoutEnd) {
    auto& track = addKnownTrack({"", ""});
    track.add(makeHandle<EndlessNode<Part>>(state(), gap));
    editor().type(noteAt(track, 0), "かき");
    EXPECT_EQ(lyricsOf(track), (Lyrics{"かき[k a]", "[k i]"}));
}

TEST_F(UnreliableHost, HasManyGapsBeforeAChild) {
    const auto track = makeTrack({{"", ""}});
    const auto folder = makeHandle<EndlessNode<Folder>>(state(), [&track, gaps = 1000]() mutable {
        return gaps-- == 0 ? track->ownInterface() : gap();
    });
    project().add(folder);
    editor().notify();
    editor().type(noteAt(*track, 0), "かき");
    EXPECT_EQ(lyricsOf(*track), (Lyrics{"かき[k a]", "[k i]"}));
}

TEST_F(UnreliableHost, HasANoteThatHandsOverNothing) {
    auto& track = addKnownTrack({"", ""});
    partOf(track).insert(1, makeHandle<LyingNote>(state()));
    typeInto(noteAt(track, 0), "かき");
    const auto steps = hook();
    ASSERT_EQ(steps.size(), 1u);
    EXPECT_EQ(lyricsOf(track), (Lyrics{"かき[k a]", "", "[k i]"}));
}

TEST_F(UnreliableHost, GivesNoTimeContexts) {
    state()->calls.intercept([](const HostCall& call) {
        return call.name == "IProjectNotificationArgument.timeContext" ? Answer::Refuse
                                                                       : Answer::Normal;
    });
    auto& track = addKnownTrack({"", ""});
    editor().type(noteAt(track, 0), "かき");
    EXPECT_EQ(lyricsOf(track), (Lyrics{"かき[k a]", "[k i]"}));
}

TEST_F(UnreliableHost, RefusesToTakeAStep) {
    state()->calls.intercept([](const HostCall& call) {
        return call.name == "IProjectEditContext.addEditStep" ? Answer::Refuse : Answer::Normal;
    });
    auto& track = addKnownTrack({"", ""});
    typeInto(noteAt(track, 0), "かき");
    EXPECT_TRUE(hook().empty());
    EXPECT_EQ(noteAt(track, 0).moduleReferences(), 0);
    EXPECT_EQ(lyricsOf(track), (Lyrics{"かき", ""}));
}

TEST_F(UnreliableHost, RefusesToTakeALyric) {
    state()->calls.intercept([](const HostCall& call) {
        return call.name == "IProjectNoteEvent.setAttribute" ? Answer::Refuse : Answer::Normal;
    });
    auto& track = addKnownTrack({"", ""});
    typeInto(noteAt(track, 0), "かき");
    const auto steps = hook();
    ASSERT_EQ(steps.size(), 1u);
    steps[0]->undo();
    steps[0]->redo();
    EXPECT_EQ(lyricsOf(track), (Lyrics{"かき", ""}));
}

TEST_F(UnreliableHost, UndoesDivisionsOutOfOrder) {
    auto& track = addKnownTrack({"a", "b", "c"});
    EditSteps steps;
    for (const char* lyric : {"かき", "さしす", "た"}) {
        typeInto(noteAt(track, 0), lyric);
        steps.push_back(hook().at(0));
    }
    steps[0]->undo();
    steps[2]->undo();
    steps[1]->undo();
    EXPECT_EQ(lyricsOf(track), (Lyrics{"かき[k a]", "[k i]", "c"}));
    EXPECT_EQ(recordedLyrics(track), lyricsOf(track));
}

TEST_F(UnreliableHost, UndoesCountStepsOutOfOrder) {
    auto& track = addKnownTrack({"a", "b", "c", "d"});
    EditSteps steps;
    for (int i = 0; i < 3; ++i) {
        partOf(track).remove(noteAt(track, 0));
        steps.push_back(hook().at(0));
    }
    track.add(makePart({"e", "f"}));
    steps.push_back(hook().at(0));
    for (const std::size_t i : {3u, 3u, 0u, 2u, 1u, 3u, 0u}) {
        steps[i]->undo();
        steps[3 - i]->redo();
    }
    editor().notify();
    EXPECT_EQ(recordedLyrics(track), (Lyrics{"d", "e", "f"}));
}

} // namespace
} // namespace wybeta::tests
