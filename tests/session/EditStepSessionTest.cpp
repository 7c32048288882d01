// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the host can rely on in every step: when one is made, who owns it, what it answers.
#include "host/IEditStep.h"
#include "host/IProjectNode.h"
#include "host/IProjectTrack.h"
#include "simulator/CallInterceptor.h"
#include "simulator/EditContext.h"
#include "simulator/HostObject.h"
#include "tests/TrackNotes.h"
#include "tests/session/SessionTest.h"

#include "pluginterfaces/base/smartpointer.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>

namespace wybeta::tests {
namespace {

using host::IEditStep;
using Steinberg::IPtr;

class EditStepSession : public SessionTest {
protected:
    // Changes a known track so that the next hook makes a step: a division, or a count step.
    void change(Track& track, bool isDivided) {
        if (isDivided) {
            typeInto(noteAt(track, 0), noteAt(track, 0).lyric() + "か");
        } else {
            track.add(makePart({""}));
        }
    }

    // A division and a count step.
    EditSteps makeBothKinds() {
        auto& first = addKnownTrack({"", ""});
        auto& second = addKnownTrack({"", ""});
        change(first, true);
        change(second, false);
        auto steps = hook();
        EXPECT_EQ(steps.size(), 2u);
        return steps;
    }
};

TEST_F(EditStepSession, IsNotMadeForATrackThatIsMetForTheFirstTime) {
    auto& track = addTrack({"la", "さくら"});
    noteAt(track, 0).flagged = true;
    EXPECT_TRUE(hook().empty());
}

TEST_F(EditStepSession, IsNotMadeForATrackThatDidNotChange) {
    auto& track = addKnownTrack({"la", "さくら"});
    noteAt(track, 0).flagged = true;
    EXPECT_TRUE(hook().empty());
}

TEST_F(EditStepSession, IsNotMadeByANotification) {
    auto& divided = addKnownTrack({"", ""});
    auto& grown = addKnownTrack({"", ""});
    change(divided, true);
    change(grown, false);
    state()->calls.intercept([](const HostCall& call) {
        EXPECT_NE(call.name, "IProjectEditContext.addEditStep");
        EXPECT_NE(call.name, "IProjectNoteEvent.setAttribute");
        return simulator::Answer::Normal;
    });
    editor().notify();
    EXPECT_EQ(lyricsOf(divided), (Lyrics{"か", ""}));
}

TEST_F(EditStepSession, IsADivisionAloneWhenTheCountChangedAsWell) {
    auto& track = addKnownTrack({"", ""});
    change(track, true);
    change(track, false);
    expectOneStep(StepKind::Division);
}

TEST_F(EditStepSession, ComesWithOneReferenceAndIsReleasedByItsMaker) {
    for (const bool isDivided : {true, false}) {
        change(addKnownTrack({"", ""}), isDivided);
        IPtr<IEditStep> kept;
        hook([&kept](IEditStep& step) {
            EXPECT_EQ(step.addRef(), 2u);
            EXPECT_EQ(step.release(), 1u);
            step.execute();
            kept = Steinberg::shared(&step);
        });
        ASSERT_TRUE(kept);
        EXPECT_EQ(kept->addRef(), 2u);
        EXPECT_EQ(kept->release(), 1u);
    }
}

TEST_F(EditStepSession, DiesWithItsLastReference) {
    auto& track = addKnownTrack({"", ""});
    typeInto(noteAt(track, 0), "かき");
    auto steps = hook();
    EXPECT_EQ(noteAt(track, 1).moduleReferences(), 1);
    auto* const last = steps.at(0).take();
    EXPECT_EQ(last->release(), 0u);
    EXPECT_EQ(noteAt(track, 1).moduleReferences(), 0);
}

TEST_F(EditStepSession, DiesAtOnceWhenTheHostTakesNoReference) {
    auto& divided = addKnownTrack({"", ""});
    auto& grown = addKnownTrack({"", ""});
    change(divided, true);
    change(grown, false);
    const auto before = state()->ledger.outstanding();
    int count = 0;
    hook([&count](IEditStep&) { ++count; });
    EXPECT_EQ(count, 2);
    EXPECT_EQ(state()->ledger.outstanding(), before);
}

TEST_F(EditStepSession, IsHandedOverAfterTheTableHasTheNewNotes) {
    for (const bool isDivided : {true, false}) {
        change(addKnownTrack({"", ""}), isDivided);
        std::size_t inner = 99;
        hook([&](IEditStep& step) {
            step.execute();
            inner = hook().size();
        });
        EXPECT_EQ(inner, 0u);
    }
}

TEST_F(EditStepSession, AnswersTheSamePointerToBothOfItsInterfaces) {
    for (const auto& step : makeBothKinds()) {
        for (const auto& id : {&Steinberg::FUnknown_iid, &IEditStep::iid}) {
            void* found = nullptr;
            EXPECT_EQ(step->queryInterface(*id, &found), 0);
            EXPECT_EQ(found, step.get());
            EXPECT_EQ(step->release(), 1u);
        }
    }
}

TEST_F(EditStepSession, AnswersNoOtherInterface) {
    for (const auto& step : makeBothKinds()) {
        for (const auto& id : {&host::IProjectNode::iid, &host::IProjectTrack::iid}) {
            void* found = this;
            EXPECT_EQ(step->queryInterface(*id, &found),
                      static_cast<Steinberg::tresult>(0x80004002));
            EXPECT_EQ(found, nullptr);
        }
        EXPECT_EQ(step->addRef(), 2u);
        EXPECT_EQ(step->release(), 1u);
    }
}

TEST_F(EditStepSession, ReturnsZeroFromExecuteAndReport) {
    const auto collector = makeHandle<simulator::ObjectCollector>(state());
    for (const auto& step : makeBothKinds()) {
        EXPECT_EQ(step->execute(), 0);
        EXPECT_EQ(step->reportChangedObjects(collector.get()), 0);
    }
}

TEST_F(EditStepSession, ToleratesAMissingCollector) {
    for (const auto& step : makeBothKinds()) {
        EXPECT_EQ(step->reportChangedObjects(nullptr), 0);
    }
}

TEST_F(EditStepSession, OutlivesTheExtension) {
    auto& divided = addKnownTrack({"a", "b"});
    auto& grown = addKnownTrack({"", ""});
    typeInto(noteAt(divided, 0), "かき");
    change(grown, false);
    const auto steps = hook();
    ASSERT_EQ(steps.size(), 2u);
    editor().terminate();

    for (const auto& step : steps) {
        step->undo();
    }
    EXPECT_EQ(lyricsOf(divided), (Lyrics{"a", "b"}));
    for (const auto& step : steps) {
        step->redo();
    }
    EXPECT_EQ(lyricsOf(divided), (Lyrics{"かき[k a]", "[k i]"}));
}

TEST_F(EditStepSession, LeavesTheTableAloneOnceTheExtensionIsTerminated) {
    auto& divided = addKnownTrack({"a", "b"});
    auto& grown = addKnownTrack({"", ""});
    typeInto(noteAt(divided, 0), "かき");
    change(grown, false);
    const auto steps = hook();
    ASSERT_EQ(steps.size(), 2u);
    editor().extension().base().terminate();

    // The walk goes on working, so it tells what the table holds.
    steps[1]->undo();
    EXPECT_TRUE(hook().empty());
    steps[0]->undo();
    EXPECT_EQ(recordedLyrics(divided), (Lyrics{"かき[k a]", "[k i]"}));
}

TEST_F(EditStepSession, ReachesTheTableOfTheExtensionThatWasInitialisedLast) {
    auto& track = addKnownTrack({"a", "b"});
    typeInto(noteAt(track, 0), "かき");
    const auto steps = hook();
    Editor other(factory());
    steps.at(0)->undo();
    EXPECT_EQ(recordedLyrics(track), (Lyrics{"かき[k a]", "[k i]"}));
}

TEST_F(EditStepSession, WritesNothingButLyrics) {
    auto& track = addKnownTrack({"a", "b"});
    for (std::size_t i = 0; i < 2; ++i) {
        noteAt(track, i).setText("phoneme", "p" + std::to_string(i));
        noteAt(track, i).setText("other", "o");
    }
    typeInto(noteAt(track, 0), "かき");
    const auto steps = hook();
    steps.at(0)->undo();
    steps.at(0)->redo();
    for (std::size_t i = 0; i < 2; ++i) {
        EXPECT_EQ(noteAt(track, i).text("phoneme"), "p" + std::to_string(i));
        EXPECT_EQ(noteAt(track, i).text("other"), "o");
    }
}

} // namespace
} // namespace wybeta::tests
