// SPDX-License-Identifier: GPL-3.0-or-later
#include "tracks/LyricPass.h"
#include "simulator/CallInterceptor.h"
#include "simulator/Event.h"
#include "simulator/HostObject.h"
#include "simulator/ProjectTree.h"
#include "simulator/Track.h"
#include "tests/unit/tracks/NamedNotes.h"
#include "tracks/LyricsDivision.h"
#include "tracks/NoteList.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace wybeta::tracks {
namespace {

using simulator::Event;
using simulator::Handle;
using simulator::makeHandle;
using simulator::Part;

using Lyrics = std::vector<std::string>;

class LyricPass : public testing::Test {
protected:
    void TearDown() override {
        division = {};
        EXPECT_TRUE(state->ledger.isBalanced()) << state->ledger.report();
    }

    Handle<Part> addPart(double start = 0) const {
        auto part = makeHandle<Part>(state, start);
        track->add(part);
        return part;
    }

    Handle<Event> addNote(Part& part, std::string_view lyric, bool isFlagged = false) const {
        auto note = makeHandle<Event>(state);
        note->setLyric(lyric);
        note->flagged = isFlagged;
        part.add(note);
        return note;
    }

    static NoteRecord recordOf(Event& event, std::string_view lyric) {
        NoteRecord record;
        record.lyrics = lyric;
        record.event = event.ownInterface();
        return record;
    }

    // Writes over a list that is no longer needed.
    int pass(const NoteList& oldRecords = {}) {
        newRecords = {{{9, 9, 9, "stale", "stale", &newRecords}, {9, 9, 9, "s", "s", nullptr}},
                      true};
        division = {};
        return convertTrackLyrics(*track, *track, oldRecords, newRecords, division);
    }

    const simulator::SharedState state = std::make_shared<simulator::HostState>();
    const Handle<simulator::Track> track = makeHandle<simulator::Track>(state);
    NoteList newRecords;
    LyricsDivision division;
};

TEST_F(LyricPass, ReadsAllFieldsOfEveryNote) {
    addNote(*addPart(), "a");
    const auto note = addNote(*addPart(8), "b");
    note->startInPart = 0.5;
    note->duration = 0.25;
    note->pitch = -7;
    note->setText("phoneme", "p");

    EXPECT_EQ(pass(), 0);
    ASSERT_EQ(newRecords.records.size(), 2u);
    const auto& record = newRecords.records[1];
    EXPECT_EQ(record.start, 8.5);
    EXPECT_EQ(record.length, 0.25);
    EXPECT_EQ(record.value, -7);
    EXPECT_EQ(record.lyrics, "b");
    EXPECT_EQ(record.phoneme, "p");
    EXPECT_EQ(record.event, note->ownInterface());
}

TEST_F(LyricPass, ClearsTheRecordBeforeEachNote) {
    const auto part = addPart();
    const auto full = addNote(*part, "a");
    full->setText("phoneme", "p");
    part->add(makeHandle<Event>(state));
    pass();
    ASSERT_EQ(newRecords.records.size(), 2u);
    EXPECT_EQ(newRecords.records[1].lyrics, "");
    EXPECT_EQ(newRecords.records[1].phoneme, "");
}

TEST_F(LyricPass, HasNoRecordForAnEventThatIsNoNoteAndDoesNotAskItForItsFlag) {
    const auto part = addPart();
    const auto other = makeHandle<Event>(state, Event::Kind::Other);
    part->add(other);
    state->calls.intercept([](const simulator::HostCall& call) {
        EXPECT_NE(call.name, "IPartEvent.isFlagged");
        return simulator::Answer::Normal;
    });
    EXPECT_EQ(pass(), 0);
    EXPECT_TRUE(newRecords.records.empty());
}

TEST_F(LyricPass, FillsTheThreeListsOfADivision) {
    const auto part = addPart();
    const auto first = addNote(*part, "before");
    const auto typed = addNote(*part, "かき", true);
    const auto next = addNote(*part, "x");
    addNote(*part, "y");

    EXPECT_EQ(pass({{recordOf(*typed, "old")}}), 1);
    ASSERT_EQ(division.notes.size(), 2u);
    EXPECT_EQ(division.notes[0], typed->node());
    EXPECT_EQ(division.notes[1], next->node());
    EXPECT_EQ(division.newLyrics, (Lyrics{"かき[k a]", "[k i]"}));
    EXPECT_EQ(division.oldLyrics, (Lyrics{"old", "x"}));
    EXPECT_EQ(division.firstEvent, typed->ownInterface());
    EXPECT_EQ(typed->moduleReferences(), 1);
    EXPECT_EQ(first->moduleReferences(), 0);
}

TEST_F(LyricPass, PutsTheNewTextsIntoTheRecordsAndNotIntoTheNotes) {
    const auto part = addPart();
    const auto typed = addNote(*part, "かき", true);
    const auto next = addNote(*part, "x");
    next->setText("phoneme", "p");
    pass();
    EXPECT_EQ(newRecords.records[0].lyrics, "かき[k a]");
    EXPECT_EQ(newRecords.records[1].lyrics, "[k i]");
    EXPECT_EQ(newRecords.records[1].phoneme, "p");
    EXPECT_EQ(typed->lyric(), "かき");
    EXPECT_EQ(next->lyric(), "x");
}

TEST_F(LyricPass, TakesTheFirstRecordOfANoteForWhatItWas) {
    const auto typed = addNote(*addPart(), "か", true);
    EXPECT_EQ(pass({{recordOf(*typed, "か"), recordOf(*typed, "old")}}), 0);
    EXPECT_EQ(pass({{recordOf(*typed, "old"), recordOf(*typed, "か")}}), 1);
    EXPECT_EQ(division.oldLyrics, Lyrics{"old"});
}

TEST_F(LyricPass, TakesAnUnknownNoteForOneThatWasEmpty) {
    const auto part = addPart();
    addNote(*part, "", true);
    EXPECT_EQ(pass(), 0);
    addNote(*part, "か", true);
    EXPECT_EQ(pass(), 1);
    EXPECT_EQ(division.oldLyrics, Lyrics{""});
}

TEST_F(LyricPass, DividesAClearedLyricIntoOneEmptyText) {
    const auto part = addPart();
    const auto typed = addNote(*part, "", true);
    addNote(*part, "x");
    EXPECT_EQ(pass({{recordOf(*typed, "old")}}), 1);
    EXPECT_EQ(division.newLyrics, Lyrics{""});
    EXPECT_EQ(division.oldLyrics, Lyrics{"old"});
}

TEST_F(LyricPass, KnowsTheNotesOfItsListToBeDistinctAfterItSearchedThemAll) {
    const auto part = addPart();
    addNote(*part, "a", true);
    addNote(*part, "b");
    pass();
    EXPECT_FALSE(newRecords.isKnownDistinct);
    pass(NoteList(newRecords));
    EXPECT_TRUE(newRecords.isKnownDistinct);
    addNote(*part, "c");
    pass(NoteList(newRecords));
    EXPECT_FALSE(newRecords.isKnownDistinct);
}

TEST_F(LyricPass, NeverTakesANoteThatIsYieldedTwiceForDistinct) {
    const auto part = addPart();
    part->add(addNote(*part, "a", true));
    for (int i = 0; i < 3; ++i) {
        pass(NoteList(newRecords));
        EXPECT_FALSE(newRecords.isKnownDistinct);
    }
}

TEST_F(LyricPass, ReturnsNothingForATrackWithoutParts) {
    EXPECT_EQ(pass({{NoteRecord()}}), 0);
    track->answerNoIteratorWhenEmpty();
    EXPECT_EQ(pass({{NoteRecord()}}), 0);
    EXPECT_TRUE(newRecords.records.empty());
    EXPECT_TRUE(division.notes.empty());
    EXPECT_EQ(division.firstEvent, nullptr);
}

TEST_F(LyricPass, KeepsWhatItReadWhenAChildThatIsNoPartStopsIt) {
    addNote(*addPart(), "か", true);
    track->add(makeHandle<simulator::TreeNode>(state, "Node", "automation"));
    addNote(*addPart(), "き", true);
    EXPECT_EQ(pass(), 1);
    EXPECT_EQ(newRecords.records.size(), 1u);
    EXPECT_EQ(division.newLyrics, Lyrics{"か[k a]"});
}

} // namespace
} // namespace wybeta::tracks
