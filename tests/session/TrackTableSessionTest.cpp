// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the extension remembers of a track, from its first sighting on.
#include "simulator/Event.h"
#include "simulator/HostObject.h"
#include "simulator/Track.h"
#include "tests/TrackNotes.h"
#include "tests/session/SessionTest.h"

#include "pluginterfaces/base/fvariant.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string_view>
#include <vector>

namespace wybeta::tests {
namespace {

class TrackTableSession : public SessionTest {
protected:
    // A track with the given parts of events, which may be null.
    Track& addTrackOfEvents(const std::vector<std::vector<Handle<Event>>>& parts) {
        auto& track = addTrackOf(std::vector<Lyrics>(parts.size()));
        for (std::size_t i = 0; i < parts.size(); ++i) {
            for (const auto& event : parts[i]) {
                dynamic_cast<Part&>(*track.items()[i]).add(event);
            }
        }
        return track;
    }

    // The steps of a hook after which nothing of the project has changed since the last walk.
    std::size_t stepsWithoutAChange() { return hook().size(); }

    // Expects a step that has a record to put back and to take out again, as one for a record
    // without an event would not have.
    void expectStepWithARecord() {
        const auto steps = hook();
        ASSERT_EQ(steps.size(), 1u);
        steps[0]->undo();
        EXPECT_EQ(hook().size(), 1u);
        steps[0]->undo();
        steps[0]->redo();
        EXPECT_EQ(stepsWithoutAChange(), 0u);
    }
};

TEST_F(TrackTableSession, OnlyRecordsATrackThatIsSeenForTheFirstTime) {
    auto& track = addTrack({"", "la", ""});
    typeInto(noteAt(track, 0), "さくら");
    EXPECT_TRUE(hook().empty());
    EXPECT_EQ(lyricsOf(track), (Lyrics{"さくら", "la", ""}));
    EXPECT_EQ(recordedLyrics(track), (Lyrics{"さくら", "la", ""}));
}

TEST_F(TrackTableSession, IsFilledByANotificationAsByAHook) {
    auto& track = addTrack({"la", "", "li"});
    editor().notify();
    EXPECT_EQ(recordedLyrics(track), (Lyrics{"la", "", "li"}));
}

TEST_F(TrackTableSession, LetsALaterEditDivide) {
    auto& track = addKnownTrack({"", "", ""});
    typeInto(noteAt(track, 0), "さくら");
    EXPECT_EQ(hook().size(), 1u);
    EXPECT_EQ(lyricsOf(track), (Lyrics{"さくら[s a]", "[k u]", "[r a]"}));
}

TEST_F(TrackTableSession, HoldsTheNotesOfAllPartsInOrder) {
    auto& track = addKnownTrackOf({{"a", "b"}, {}, {"c"}, {"d", "e"}});
    EXPECT_EQ(recordedLyrics(track), (Lyrics{"a", "b", "c", "d", "e"}));
}

TEST_F(TrackTableSession, HoldsATrackWithoutNotes) {
    auto& track = addKnownTrackOf(std::vector<Lyrics>{});
    EXPECT_EQ(stepsWithoutAChange(), 0u);
    track.add(makePart({"la"}));
    EXPECT_EQ(hook().size(), 1u);
}

TEST_F(TrackTableSession, HoldsATrackWithoutAnIterator) {
    auto& track = addTrackOf(std::vector<Lyrics>{});
    track.answerNoIteratorWhenEmpty();
    editor().notify();
    EXPECT_EQ(stepsWithoutAChange(), 0u);
    track.add(makePart({"la"}));
    EXPECT_EQ(hook().size(), 1u);
}

TEST_F(TrackTableSession, IsBroughtUpToDateByANotificationThatMakesNoStep) {
    auto& track = addKnownTrack({"", ""});
    track.add(makePart({"la"}));
    noteAt(track, 0).setLyric("li");
    editor().notify();
    EXPECT_EQ(stepsWithoutAChange(), 0u);
    EXPECT_EQ(recordedLyrics(track), (Lyrics{"li", "", "la"}));
}

TEST_F(TrackTableSession, HoldsTheDividedTextsAfterANotificationThatWritesNone) {
    auto& track = addKnownTrack({"", "", ""});
    typeInto(noteAt(track, 0), "さくら");
    editor().notify();
    EXPECT_EQ(lyricsOf(track), (Lyrics{"さくら", "", ""}));
    EXPECT_EQ(recordedLyrics(track), (Lyrics{"さくら[s a]", "[k u]", "[r a]"}));
}

TEST_F(TrackTableSession, LeavesTheDivisionOfATextThatANotificationSawToTheNextHook) {
    auto& track = addKnownTrack({"", "la", ""});
    typeInto(noteAt(track, 0), "さくら");
    editor().notify();

    const auto steps = hook();
    ASSERT_EQ(steps.size(), 1u);
    EXPECT_EQ(lyricsOf(track), (Lyrics{"さくら[s a]", "[k u]", "[r a]"}));
    steps[0]->undo();
    EXPECT_EQ(lyricsOf(track), (Lyrics{"さくら[s a]", "la", ""}));
}

TEST_F(TrackTableSession, HoldsTheDividedTextsAfterAHook) {
    auto& track = addKnownTrack({"", "", "", "la"});
    typeInto(noteAt(track, 0), "さくら");
    hook();
    EXPECT_EQ(stepsWithoutAChange(), 0u);
    EXPECT_EQ(recordedLyrics(track), (Lyrics{"さくら[s a]", "[k u]", "[r a]", "la"}));
}

TEST_F(TrackTableSession, FollowsLyricsThatAreNotDivided) {
    auto& track = addKnownTrack({"la", "li"});
    noteAt(track, 1).setLyric("さくら");
    EXPECT_TRUE(hook().empty());
    EXPECT_EQ(recordedLyrics(track), (Lyrics{"la", "さくら"}));
}

TEST_F(TrackTableSession, RecordsTheNotesBehindAChildThatIsNoPartOnFirstSightingOnly) {
    auto& track = addTrack({"a", "b"});
    track.add(makeHandle<TreeNode>(state(), "Node", "automation"));
    track.add(makePart({"c"}));
    editor().notify();

    const auto steps = hook();
    ASSERT_EQ(steps.size(), 1u);
    EXPECT_FALSE(isDivision(*steps[0]));
    EXPECT_EQ(stepsWithoutAChange(), 0u);
    steps[0]->undo();
    EXPECT_EQ(hook().size(), 1u);
}

TEST_F(TrackTableSession, RecordsTheNotesBehindAPartWithoutAnIteratorOnFirstSightingOnly) {
    auto& track = addTrackOf({{"a"}, {}, {"c"}});
    dynamic_cast<Part&>(*track.items()[1]).answerNoIteratorWhenEmpty();
    editor().notify();
    expectOneStep(StepKind::Count);
}

TEST_F(TrackTableSession, RecordsEventsThatAreNoNotesOnFirstSightingOnly) {
    addTrackOfEvents({{makeNote("a"), makeOtherEvent(), makeNote("b")}});
    editor().notify();
    expectOneStep(StepKind::Count);
}

TEST_F(TrackTableSession, TakesAnEventThatIsNoNoteForTheNoteBeforeIt) {
    addTrackOfEvents({{makeNote("a"), makeOtherEvent()}});
    editor().notify();
    expectStepWithARecord();
}

TEST_F(TrackTableSession, CountsEveryEventThatIsNoNote) {
    const auto others = {makeOtherEvent(), makeOtherEvent()};
    auto& track = addTrackOfEvents({{makeOtherEvent(), makeNote("a")}, others, {makeNote("b")}});
    editor().notify();

    // Three notes come at the same time as the three empty records go.
    track.add(makePart({"c", "d", "e"}));
    EXPECT_TRUE(hook().empty());
}

TEST_F(TrackTableSession, TakesTheRecordOfTheNoteBeforeThatOfAnEventBehindIt) {
    auto& track = addTrackOfEvents({{makeNote("la"), makeOtherEvent()}});
    noteAt(track, 0).flagged = true;
    editor().notify();
    expectOneStep(StepKind::Count);
}

TEST_F(TrackTableSession, HoldsAnEmptyRecordForAnEventThatIsNoNote) {
    auto& track = addTrackOfEvents({{makeNote("la"), makeOtherEvent(), makeNote("b")}});
    auto& note = noteAt(track, 0);
    note.flagged = true;
    note.pitch = -1;
    editor().notify();
    const auto removal = hook();
    const auto added = makePart({"c"});
    track.add(added);
    const auto addition = hook();
    ASSERT_EQ(removal.size() + addition.size(), 2u);

    // With the added note goes the first one, which carries the deletion mark. What is put back
    // then is the record of the other event, and stands for the first note.
    track.remove(*added);
    addition[0]->undo();
    removal[0]->undo();
    const auto steps = hook();
    ASSERT_EQ(steps.size(), 1u);
    EXPECT_EQ(reported(*steps[0]), Nodes{note.node()});
    steps[0]->undo();
    EXPECT_EQ(note.lyric(), "");
}

TEST_F(TrackTableSession, DoesNotTakeALeadingEventThatIsNoNoteForAnyNote) {
    addTrackOfEvents({{makeOtherEvent(), makeNote("la")}});
    editor().notify();
    expectStepWithARecord();
}

TEST_F(TrackTableSession, HasNoRecordForANullEvent) {
    addTrackOfEvents({{{}, makeNote("a"), {}, {}, makeNote("b"), {}}});
    editor().notify();
    EXPECT_EQ(stepsWithoutAChange(), 0u);
}

TEST_F(TrackTableSession, TakesALyricThatIsNoTextForEmpty) {
    auto& track = addTrack({"a", "la"});
    noteAt(track, 1).attributes = [](std::string_view, Steinberg::FVariant& value) {
        value.setInt(7);
        return Steinberg::kResultOk;
    };
    editor().notify();
    noteAt(track, 1).attributes = nullptr;
    EXPECT_EQ(recordedLyrics(track), (Lyrics{"a", ""}));
}

TEST_F(TrackTableSession, HoldsCharactersBeyondTheBasicPlane) {
    auto& track = addKnownTrack({"𠮷野", "🎵"});
    EXPECT_EQ(recordedLyrics(track), (Lyrics{"𠮷野", "🎵"}));
}

TEST_F(TrackTableSession, KnowsATrackByItsAddressAndNotByItsNotes) {
    auto& track = addKnownTrack({"", ""});
    const auto twin = makeTrack({});
    const Handle<TreeItem> part = track.items()[0];
    track.remove(*part);
    twin->add(part);
    project().add(twin);
    typeInto(noteAt(*twin, 0), "かき");
    expectOneStep(StepKind::Count);
    EXPECT_EQ(lyricsOf(*twin), (Lyrics{"かき", ""}));
}

} // namespace
} // namespace wybeta::tests
