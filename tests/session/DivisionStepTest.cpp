// SPDX-License-Identifier: GPL-3.0-or-later
//
// What executing, undoing and redoing a division does to the notes and to the track table.
#include "host/IEditStep.h"
#include "host/IProjectNode.h"
#include "host/InterfaceId.h"
#include "simulator/CallInterceptor.h"
#include "simulator/Event.h"
#include "simulator/HostObject.h"
#include "simulator/ProjectTree.h"
#include "simulator/Track.h"
#include "tests/TrackNotes.h"
#include "tests/session/SessionTest.h"

#include "pluginterfaces/base/fvariant.h"
#include "pluginterfaces/base/smartpointer.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace wybeta::tests {
namespace {

using Steinberg::FVariant;

// Keeps the attribute keys that are written.
class WatchedNote : public Event {
public:
    using Event::Event;

    std::vector<std::string> keys;

    Steinberg::tresult PLUGIN_API setAttribute(Steinberg::FIDString key, FVariant* value,
                                               Steinberg::TPtrInt reserved1,
                                               Steinberg::TPtrInt reserved2) override {
        keys.emplace_back(key);
        return Event::setAttribute(key, value, reserved1, reserved2);
    }
};

class DivisionStep : public SessionTest {
protected:
    using Step = Steinberg::IPtr<host::IEditStep>;

    // Types into the first note of the track. The step has been executed.
    Step divide(Track& track, std::string_view lyric) {
        typeInto(noteAt(track, 0), lyric);
        const auto steps = hook();
        EXPECT_EQ(steps.size(), 1u);
        return steps.at(0);
    }
};

TEST_F(DivisionStep, WritesTheNewTextsTheOldOnesAndTheNewOnesAgain) {
    const Lyrics oldLyrics{"ABC", "X", "Y"};
    const Lyrics newLyrics{"T[A]", "[B]", "[C]"};
    auto& track = addKnownTrack(oldLyrics);
    const auto step = divide(track, "T[A,B,C]");
    EXPECT_EQ(lyricsOf(track), newLyrics);

    step->undo();
    EXPECT_EQ(lyricsOf(track), oldLyrics);
    EXPECT_EQ(recordedLyrics(track), oldLyrics);
    step->redo();
    EXPECT_EQ(lyricsOf(track), newLyrics);
    EXPECT_EQ(recordedLyrics(track), newLyrics);
}

TEST_F(DivisionStep, WritesNothingBeforeItIsExecuted) {
    auto& track = addKnownTrack({"a", "b"});
    typeInto(noteAt(track, 0), "かき");
    Step step;
    hook([&step](host::IEditStep& made) { step = Steinberg::shared(&made); });
    EXPECT_EQ(lyricsOf(track), (Lyrics{"かき", "b"}));
    step->execute();
    EXPECT_EQ(lyricsOf(track), (Lyrics{"かき[k a]", "[k i]"}));
}

TEST_F(DivisionStep, MayBeCalledInAnyOrderAndAnyNumberOfTimes) {
    auto& track = addKnownTrack({"a", "b"});
    const Lyrics oldLyrics = lyricsOf(track);
    const auto step = divide(track, "かき");
    const Lyrics newLyrics = lyricsOf(track);

    step->undo();
    step->undo();
    EXPECT_EQ(lyricsOf(track), oldLyrics);
    EXPECT_EQ(recordedLyrics(track), oldLyrics);
    step->redo();
    step->redo();
    EXPECT_EQ(recordedLyrics(track), newLyrics);
    step->undo();
    step->execute();
    EXPECT_EQ(lyricsOf(track), newLyrics);
    EXPECT_EQ(recordedLyrics(track), oldLyrics);
}

TEST_F(DivisionStep, WritesTheAttributeLyricsAndNoOther) {
    auto& track = addTrack(Lyrics{});
    const auto note = makeHandle<WatchedNote>(state());
    note->setText("phoneme", "before");
    partOf(track).add(note);
    editor().notify();
    const auto step = divide(track, "か");
    step->undo();
    step->redo();
    EXPECT_EQ(note->keys, (std::vector<std::string>{"lyrics", "lyrics", "lyrics"}));
    EXPECT_EQ(note->text("phoneme"), "before");
}

TEST_F(DivisionStep, WritesCharactersBeyondTheBasicPlaneAsSurrogatePairs) {
    auto& track = addKnownTrack({"🎵", ""});
    const auto step = divide(track, "𠮷かき");
    EXPECT_EQ(lyricsOf(track), (Lyrics{"𠮷かき[k a]", "[k i]"}));
    step->undo();
    EXPECT_EQ(lyricsOf(track), (Lyrics{"🎵", ""}));
}

TEST_F(DivisionStep, ReportsItsNotesInOrderOnceEachWhetherTheirTextChangesOrNot) {
    auto& track = addKnownTrackOf({{"a", "[k i]"}, {"c", "d"}});
    const auto step = divide(track, "かきく");
    const Nodes expected{noteAt(track, 0).node(), noteAt(track, 1).node(), noteAt(track, 2).node()};
    EXPECT_EQ(reported(*step), expected);
    step->undo();
    EXPECT_EQ(reported(*step), expected);
}

TEST_F(DivisionStep, HoldsEachOfItsNotesOnceAndNothingElse) {
    auto& track = addKnownTrack({"a", "b", "c"});
    const auto before = state()->ledger.outstanding();
    const auto step = divide(track, "かき");
    EXPECT_EQ(noteAt(track, 0).moduleReferences(), 1);
    EXPECT_EQ(noteAt(track, 1).moduleReferences(), 1);
    EXPECT_EQ(noteAt(track, 2).moduleReferences(), 0);
    EXPECT_EQ(track.moduleReferences(), 0);
    EXPECT_EQ(state()->ledger.outstanding(), before + 2);
}

TEST_F(DivisionStep, KeepsItsNotesAliveWhenTheProjectDropsThem) {
    auto& track = addKnownTrack({"a", "b"});
    auto step = divide(track, "かき");
    Event& note = noteAt(track, 1);
    project().remove(track);
    step->undo();
    EXPECT_EQ(note.lyric(), "b");
    const auto alive = state()->ledger.objectsAlive();
    step = nullptr;
    EXPECT_EQ(state()->ledger.objectsAlive(), alive - 2);
}

TEST_F(DivisionStep, LeavesTheTableAloneWhenItDoesNotKnowTheFirstNote) {
    auto& track = addKnownTrack({"a", "b", "c"});
    const auto step = divide(track, "かき");
    const Handle<Event> first(&noteAt(track, 0));
    partOf(track).remove(*first);
    editor().notify();

    step->undo();
    EXPECT_EQ(first->lyric(), "a");
    EXPECT_EQ(lyricsOf(track), (Lyrics{"b", "c"}));
    EXPECT_EQ(recordedLyrics(track), (Lyrics{"[k i]", "c"}));
}

TEST_F(DivisionStep, BringsBackTheRecordsThatFollowTheFirstNoteWhateverNotesTheyAreOf) {
    auto& track = addKnownTrack({"a", "b", "c"});
    const auto step = divide(track, "かきく");
    partOf(track).insert(1, makeNote("x"));
    editor().notify();

    step->undo();
    EXPECT_EQ(lyricsOf(track), (Lyrics{"a", "x", "b", "c"}));
    EXPECT_EQ(recordedLyrics(track), (Lyrics{"a", "b", "c", "[k u]"}));
}

TEST_F(DivisionStep, LeavesOutTheRecordsThatTheTableHasNoMore) {
    auto& track = addKnownTrack({"a", "b", "c"});
    const auto step = divide(track, "かきく");
    partOf(track).remove(noteAt(track, 2));
    partOf(track).remove(noteAt(track, 1));
    editor().notify();

    step->undo();
    EXPECT_EQ(recordedLyrics(track), Lyrics{"a"});
    step->redo();
    EXPECT_EQ(recordedLyrics(track), Lyrics{"かきく[k a]"});
}

TEST_F(DivisionStep, BringsBackTheRecordsInTheMiddleOfATrack) {
    auto& track = addKnownTrackOf({{"a"}, {"b", "c", "d"}});
    typeInto(noteAt(track, 1), "かき");
    const auto steps = hook();
    steps.at(0)->undo();
    EXPECT_EQ(recordedLyrics(track), (Lyrics{"a", "b", "c", "d"}));
    steps.at(0)->redo();
    EXPECT_EQ(recordedLyrics(track), (Lyrics{"a", "かき[k a]", "[k i]", "d"}));
}

TEST_F(DivisionStep, FindsItsNotesInTheTrackThatTheyMovedTo) {
    auto& track = addKnownTrack({"a", "b"});
    auto& other = addKnownTrack({"x"});
    const auto step = divide(track, "かき");
    const Handle<TreeItem> part = track.items()[0];
    track.remove(*part);
    other.add(part);
    editor().notify();

    step->undo();
    EXPECT_EQ(recordedLyrics(other), (Lyrics{"x", "a", "b"}));
}

TEST_F(DivisionStep, PassesOverANoteThatRefusesToBeANode) {
    class Unlisted : public Event {
    public:
        using Event::Event;

    protected:
        void* interfaceFor(const Steinberg::TUID id) override {
            return host::sameId(id, host::IProjectNode::iid) ? nullptr : Event::interfaceFor(id);
        }
    };
    auto& track = addKnownTrack({"a", "b"});
    const auto unlisted = makeHandle<Unlisted>(state());
    unlisted->setLyric("x");
    partOf(track).insert(1, unlisted);
    editor().notify();

    const auto step = divide(track, "かきく");
    EXPECT_EQ(lyricsOf(track), (Lyrics{"かきく[k a]", "x", "[k u]"}));
    EXPECT_EQ(reported(*step), (Nodes{noteAt(track, 0).node(), noteAt(track, 2).node()}));
    step->undo();
    EXPECT_EQ(lyricsOf(track), (Lyrics{"a", "x", "b"}));
}

TEST_F(DivisionStep, ReportsItsNotesWithoutAskingThemForAnything) {
    auto& track = addKnownTrack({"a", "b"});
    const auto step = divide(track, "かき");
    noteAt(track, 1).setKind(Event::Kind::Other);
    state()->calls.intercept([](const simulator::HostCall& call) {
        EXPECT_EQ(call.name, "IEditObjectCollector.addObject");
        return simulator::Answer::Normal;
    });
    EXPECT_EQ(reported(*step), (Nodes{noteAt(track, 0).node(), noteAt(track, 1).node()}));
    state()->calls.stopIntercepting();
}

TEST_F(DivisionStep, PassesOverANoteThatIsNoteNoMore) {
    auto& track = addKnownTrack({"a", "b", "c"});
    const auto step = divide(track, "かきく");
    noteAt(track, 1).setKind(Event::Kind::Other);
    step->undo();
    EXPECT_EQ(lyricsOf(track), (Lyrics{"a", "[k i]", "c"}));

    noteAt(track, 1).setKind(Event::Kind::Note);
    step->undo();
    EXPECT_EQ(lyricsOf(track), (Lyrics{"a", "b", "c"}));
}

} // namespace
} // namespace wybeta::tests
