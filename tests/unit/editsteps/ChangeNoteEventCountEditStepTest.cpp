// SPDX-License-Identifier: GPL-3.0-or-later
#include "editsteps/ChangeNoteEventCountEditStep.h"
#include "host/IEditStep.h"
#include "host/IProjectNode.h"
#include "simulator/EditContext.h"
#include "simulator/HostObject.h"
#include "simulator/ProjectTree.h"
#include "simulator/Track.h"
#include "tests/unit/tracks/CurrentTable.h"
#include "tests/unit/tracks/NamedNotes.h"
#include "tracks/NoteListDiff.h"
#include "tracks/TrackTable.h"

#include "pluginterfaces/base/smartpointer.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace wybeta::tests {
namespace {

using simulator::makeHandle;
using simulator::Track;
using Steinberg::IPtr;
using tracks::CountChange;

class ChangeNoteEventCountEditStep : public CurrentTable {
protected:
    IPtr<host::IEditStep> makeStep(tracks::NoteChanges changes, CountChange kind) {
        return makeStep(track.get(), std::move(changes), kind);
    }

    IPtr<host::IEditStep> makeStep(host::IProjectNode* node, tracks::NoteChanges changes,
                                   CountChange kind) {
        return Steinberg::owned(new editsteps::ChangeNoteEventCountEditStep(
            node, track.get(), std::move(changes), kind));
    }

    std::string names() const { return namesOf(*table().at(track.get()).notes); }

    const simulator::Handle<Track> track = makeHandle<Track>(state);
    const tracks::NoteChanges twoChanges{{1, noteNamed('b')}, {2, noteNamed('c')}};
};

TEST_F(ChangeNoteEventCountEditStep, PutsDeletedNotesBackAndTakesThemOutAgain) {
    put(track.get(), notesNamed("ad"));
    const auto step = makeStep(twoChanges, CountChange::Remove);
    EXPECT_EQ(step->execute(), 0);
    EXPECT_EQ(names(), "ad");
    step->undo();
    EXPECT_EQ(names(), "abcd");
    step->redo();
    EXPECT_EQ(names(), "ad");
}

TEST_F(ChangeNoteEventCountEditStep, TakesAddedNotesOutAndPutsThemBackAgain) {
    put(track.get(), notesNamed("aeb"));
    const auto step = makeStep({{1, noteNamed('e')}}, CountChange::Insert);
    EXPECT_EQ(step->execute(), 0);
    EXPECT_EQ(names(), "aeb");
    step->undo();
    EXPECT_EQ(names(), "ab");
    step->redo();
    EXPECT_EQ(names(), "aeb");
}

TEST_F(ChangeNoteEventCountEditStep, AsksNothingWithoutAChange) {
    put(track.get(), notesNamed("ab")).records[0].value = -1;
    for (const auto kind : {CountChange::Insert, CountChange::Remove}) {
        const auto step = makeStep({}, kind);
        const auto calls = state->calls.count();
        step->undo();
        step->redo();
        EXPECT_EQ(state->calls.count(), calls);
        EXPECT_EQ(names(), "ab");
    }
}

TEST_F(ChangeNoteEventCountEditStep, DoesNothingWithoutATrackNode) {
    put(track.get(), notesNamed("abcd"));
    const auto step = makeStep(nullptr, twoChanges, CountChange::Insert);
    step->undo();
    EXPECT_EQ(names(), "abcd");
    step->redo();
    EXPECT_EQ(names(), "abcd");
}

TEST_F(ChangeNoteEventCountEditStep, DoesNothingWhenTheNodeIsNoTrackAnyMore) {
    put(track.get(), notesNamed("abcd"));
    const auto folder = makeHandle<simulator::Folder>(state);
    const auto step = makeStep(folder.get(), twoChanges, CountChange::Insert);
    step->undo();
    EXPECT_EQ(names(), "abcd");
    step->redo();
    EXPECT_EQ(names(), "abcd");
}

TEST_F(ChangeNoteEventCountEditStep, ChangesTheEntryOfItsTrackAlone) {
    const auto other = makeHandle<Track>(state);
    put(other.get(), notesNamed("abcd"));
    put(track.get(), notesNamed("abcd"));
    makeStep(twoChanges, CountChange::Insert)->undo();
    EXPECT_EQ(names(), "ad");
    EXPECT_EQ(namesOf(*table().at(other.get()).notes), "abcd");
}

TEST_F(ChangeNoteEventCountEditStep, DoesNothingForATrackThatTheTableDoesNotKnow) {
    const auto other = makeHandle<Track>(state);
    put(other.get(), notesNamed("abcd"));
    const auto step = makeStep(twoChanges, CountChange::Insert);
    step->undo();
    EXPECT_EQ(namesOf(*table().at(other.get()).notes), "abcd");
    step->redo();
    EXPECT_EQ(namesOf(*table().at(other.get()).notes), "abcd");
    EXPECT_EQ(table().size(), 1u);
}

TEST_F(ChangeNoteEventCountEditStep, AsksNothingWithoutAnExtension) {
    put(track.get(), notesNamed("abcd"));
    const auto records = table().at(track.get()).notes;
    const auto step = makeStep(twoChanges, CountChange::Insert);
    terminate();
    const auto calls = state->calls.count();
    step->undo();
    EXPECT_EQ(namesOf(*records), "abcd");
    step->redo();
    EXPECT_EQ(namesOf(*records), "abcd");
    EXPECT_EQ(state->calls.count(), calls);
}

TEST_F(ChangeNoteEventCountEditStep, LeavesAListAsItIsForAWalkThatReadsIt) {
    put(track.get(), notesNamed("abcd"));
    const auto read = table().at(track.get()).notes;
    const auto step = makeStep(twoChanges, CountChange::Insert);
    step->undo();
    EXPECT_EQ(namesOf(*read), "abcd");
    const auto readLater = table().at(track.get()).notes;
    step->redo();
    EXPECT_EQ(namesOf(*readLater), "ad");
    EXPECT_EQ(names(), "abcd");
}

TEST_F(ChangeNoteEventCountEditStep, SurvivesPositionsThatItsListDoesNotHave) {
    put(track.get(), notesNamed("ab"));
    const tracks::NoteChanges changes{{0, noteNamed('x')}, {0xFFFFFFFF, noteNamed('y')}};
    const auto step = makeStep(changes, CountChange::Insert);
    step->undo();
    EXPECT_EQ(names(), "b");
    step->redo();
    EXPECT_EQ(names(), "xb");
}

TEST_F(ChangeNoteEventCountEditStep, HoldsNothingAndReportsNothing) {
    const auto step = makeStep(twoChanges, CountChange::Insert);
    const auto collector = makeHandle<simulator::ObjectCollector>(state);
    EXPECT_EQ(step->reportChangedObjects(collector.get()), 0);
    EXPECT_TRUE(collector->objects().empty());
    EXPECT_EQ(track->moduleReferences(), 0);
}

} // namespace
} // namespace wybeta::tests
