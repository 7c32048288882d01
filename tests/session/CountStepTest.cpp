// SPDX-License-Identifier: GPL-3.0-or-later
//
// What undoing and redoing a change of the note count does to the track table.
#include "host/IEditStep.h"
#include "simulator/CallInterceptor.h"
#include "simulator/Event.h"
#include "simulator/HostObject.h"
#include "simulator/ProjectTree.h"
#include "simulator/Track.h"
#include "tests/SimulatedHost.h"
#include "tests/TrackNotes.h"
#include "tests/session/SessionTest.h"

#include "pluginterfaces/base/smartpointer.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <utility>
#include <vector>

namespace wybeta::tests {
namespace {

class CountStep : public SessionTest {
protected:
    using Step = Steinberg::IPtr<host::IEditStep>;

    // Hooks an edit that makes one count step.
    Step hookedStep() {
        const auto steps = hook();
        EXPECT_EQ(steps.size(), 1u);
        EXPECT_FALSE(isDivision(*steps.at(0)));
        return steps.at(0);
    }

    // Whether the table has just as many notes as the project has. It has them afterwards.
    bool tableAgrees() { return hook().empty(); }

    // Takes notes out of the track; `putBack` puts them where they were.
    void takeOut(Track& track, const std::vector<std::size_t>& indices) {
        for (auto index = indices.rbegin(); index != indices.rend(); ++index) {
            taken_.emplace_back(*index, Handle<Event>(&noteAt(track, *index)));
            partOf(track).remove(*taken_.back().second);
        }
    }
    void putBack(Track& track) {
        while (!taken_.empty()) {
            partOf(track).insert(taken_.back().first, taken_.back().second);
            taken_.pop_back();
        }
    }

    void TearDown() override {
        taken_.clear();
        SessionTest::TearDown();
    }

private:
    std::vector<std::pair<std::size_t, Handle<Event>>> taken_;
};

TEST_F(CountStep, PutsDeletedNotesBackAndTakesThemOutAgain) {
    auto& track = addKnownTrack({"a", "b", "c", "d"});
    takeOut(track, {1, 2});
    const auto step = hookedStep();

    putBack(track);
    step->undo();
    EXPECT_EQ(recordedLyrics(track), (Lyrics{"a", "b", "c", "d"}));
    takeOut(track, {1, 2});
    step->redo();
    EXPECT_EQ(recordedLyrics(track), (Lyrics{"a", "d"}));
    putBack(track);
    step->undo();
    EXPECT_TRUE(tableAgrees());
    EXPECT_EQ(recordedLyrics(track), (Lyrics{"a", "b", "c", "d"}));
}

TEST_F(CountStep, TakesAnAddedNoteOutAndPutsItBackAgain) {
    auto& track = addKnownTrack({"a", "b"});
    const auto added = makeNote("e");
    partOf(track).insert(1, added);
    const auto step = hookedStep();

    partOf(track).remove(*added);
    step->undo();
    EXPECT_EQ(recordedLyrics(track), (Lyrics{"a", "b"}));
    partOf(track).insert(1, added);
    step->redo();
    EXPECT_EQ(recordedLyrics(track), (Lyrics{"a", "e", "b"}));
}

TEST_F(CountStep, FollowsNotesAtBothEndsAndAcrossParts) {
    auto& track = addKnownTrackOf({{"a", "b"}, {"c"}, {"d", "e"}});
    const Handle<TreeItem> first = track.items()[0];
    const Handle<TreeItem> last = track.items()[2];
    track.remove(*first);
    track.remove(*last);
    const auto step = hookedStep();

    step->undo();
    track.insert(0, first);
    track.add(last);
    EXPECT_EQ(recordedLyrics(track), (Lyrics{"a", "b", "c", "d", "e"}));
}

TEST_F(CountStep, FollowsATrackThatLosesAllItsNotes) {
    auto& track = addKnownTrack({"a", "b"});
    takeOut(track, {0, 1});
    const auto step = hookedStep();
    putBack(track);
    step->undo();
    EXPECT_EQ(recordedLyrics(track), (Lyrics{"a", "b"}));
}

TEST_F(CountStep, PutsBackTheTextsThatTheNotesHad) {
    auto& track = addKnownTrack({"a", "b", "c"});
    editor().type(noteAt(track, 1), "かき");
    EXPECT_EQ(lyricsOf(track), (Lyrics{"a", "かき[k a]", "[k i]"}));
    takeOut(track, {1, 2});
    const auto step = hookedStep();
    putBack(track);
    step->undo();
    // The typed note is flagged, so anything but the text that it had would be a new division.
    EXPECT_TRUE(hook().empty());
}

TEST_F(CountStep, MatchesNotesGreedily) {
    auto& track = addKnownTrack({"p", "q"});
    const Handle<Event> first(&noteAt(track, 0));
    partOf(track).remove(*first);
    partOf(track).add(makeNote("r"));
    partOf(track).add(makeNote("s"));
    const auto step = hookedStep();

    // All three notes count as added, since the first of the old ones was never met again.
    step->undo();
    step->redo();
    EXPECT_EQ(recordedLyrics(track), (Lyrics{"q", "r", "s"}));
    step->undo();
    EXPECT_EQ(recordedLyrics(track), (Lyrics{"", "", ""}));
}

TEST_F(CountStep, IsNotMadeWhenNotesChangeButNotTheirNumber) {
    auto& track = addKnownTrack({"a", "b", "c"});
    partOf(track).remove(noteAt(track, 1));
    partOf(track).insert(0, makeNote("e"));
    EXPECT_TRUE(hook().empty());
    EXPECT_EQ(recordedLyrics(track), (Lyrics{"e", "a", "c"}));
}

TEST_F(CountStep, DoesNothingOnExecute) {
    auto& track = addKnownTrack({"a", "b"});
    track.add(makePart({"c"}));
    const auto step = hookedStep();
    step->execute();
    step->execute();
    EXPECT_EQ(recordedLyrics(track), (Lyrics{"a", "b", "c"}));
    EXPECT_EQ(lyricsOf(track), (Lyrics{"a", "b", "c"}));
}

TEST_F(CountStep, ReportsNothing) {
    auto& track = addKnownTrack({"a"});
    track.add(makePart({"b"}));
    EXPECT_EQ(reported(*hookedStep()), Nodes{});
}

TEST_F(CountStep, WritesNothingToTheHost) {
    auto& track = addKnownTrack({"a"});
    track.add(makePart({"b"}));
    state()->calls.intercept([](const HostCall& call) {
        EXPECT_NE(call.name, "IProjectNoteEvent.setAttribute");
        return simulator::Answer::Normal;
    });
    const auto step = hookedStep();
    step->undo();
    step->redo();
    EXPECT_EQ(lyricsOf(track), (Lyrics{"a", "b"}));
}

TEST_F(CountStep, HoldsNothingOfTheHost) {
    auto& track = addKnownTrack({"a", "b", "c"});
    const auto before = state()->ledger.outstanding();
    takeOut(track, {1});
    const auto step = hookedStep();
    EXPECT_EQ(state()->ledger.outstanding(), before);
    step->undo();
    step->redo();
    EXPECT_EQ(state()->ledger.outstanding(), before);
}

TEST_F(CountStep, MayBeCalledTwiceInARow) {
    auto& track = addKnownTrack({"a", "b"});
    track.add(makePart({"c", "d"}));
    const auto added = hookedStep();
    added->undo();
    added->undo();
    EXPECT_FALSE(tableAgrees());

    takeOut(track, {0});
    const auto removed = hookedStep();
    removed->undo();
    removed->undo();
    EXPECT_FALSE(tableAgrees());
    removed->redo();
    EXPECT_FALSE(tableAgrees());
}

TEST_F(CountStep, DoesNothingForATrackThatTheTableHasLost) {
    auto& track = addKnownTrack({"a", "b"});
    takeOut(track, {0});
    const auto step = hookedStep();
    const Handle<Track> kept(&track);
    project().remove(track);
    editor().notify();
    step->undo();
    step->redo();

    project().add(kept);
    EXPECT_TRUE(hook().empty());
    EXPECT_EQ(recordedLyrics(track), Lyrics{"b"});
}

TEST_F(CountStep, DoesNothingWhenTheTrackIsGoneForGood) {
    auto& track = addKnownTrack({"a", "b"});
    track.add(makePart({"c"}));
    const auto step = hookedStep();
    project().remove(track);
    editor().notify();
    step->undo();
    step->redo();
}

TEST_F(CountStep, WorksAgainWhenTheExtensionIsInitialisedAgain) {
    auto& track = addKnownTrack({"a", "b"});
    track.add(makePart({"c"}));
    const auto step = hookedStep();
    const SimulatedHost otherHost(state());
    auto& extension = editor().extension().base();
    extension.terminate();
    step->undo();
    extension.initialize(otherHost.context());
    EXPECT_TRUE(tableAgrees());
    step->undo();
    EXPECT_FALSE(tableAgrees());
}

TEST_F(CountStep, DropsANoteThatCarriesTheDeletionMarkWithTheAddedOnes) {
    auto& track = addTrack({"a", "b"});
    noteAt(track, 0).pitch = -1;
    editor().notify();
    track.add(makePart({"c"}));
    const auto step = hookedStep();
    step->undo();

    // The table has "b" alone now.
    track.remove(*track.items()[1]);
    EXPECT_FALSE(tableAgrees());
    EXPECT_EQ(recordedLyrics(track), (Lyrics{"a", "b"}));
}

TEST_F(CountStep, FollowsANoteThatMovesFromOneTrackToAnother) {
    auto& from = addKnownTrack({"a", "b"});
    auto& to = addKnownTrack({"c"});
    const Handle<Event> moved(&noteAt(from, 0));
    partOf(from).remove(*moved);
    partOf(to).add(moved);
    const auto steps = hook();
    ASSERT_EQ(steps.size(), 2u);

    partOf(to).remove(*moved);
    partOf(from).insert(0, moved);
    steps[1]->undo();
    steps[0]->undo();
    EXPECT_TRUE(tableAgrees());
    EXPECT_EQ(recordedLyrics(from), (Lyrics{"a", "b"}));
    EXPECT_EQ(recordedLyrics(to), Lyrics{"c"});
}

} // namespace
} // namespace wybeta::tests
