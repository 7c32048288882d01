// SPDX-License-Identifier: GPL-3.0-or-later
//
// The host calls the extension, or lets go of something, in the middle of a call that the extension
// makes.
#include "host/IEditStep.h"
#include "simulator/CallInterceptor.h"
#include "simulator/EditContext.h"
#include "simulator/HostObject.h"
#include "simulator/Track.h"
#include "tests/TrackNotes.h"
#include "tests/session/SessionTest.h"

#include "pluginterfaces/base/smartpointer.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string_view>
#include <vector>

namespace wybeta::tests {
namespace {

using simulator::Answer;

constexpr std::string_view kAddEditStep = "IProjectEditContext.addEditStep";
constexpr std::string_view kSetAttribute = "IProjectNoteEvent.setAttribute";
constexpr std::string_view kGetAttribute = "IProjectNoteEvent.getAttribute";
constexpr std::string_view kIsFlagged = "IPartEvent.isFlagged";

class HostCallsBack : public SessionTest {
protected:
    // Acts at every call of that name, but not at the calls that the action itself leads to.
    void onEvery(std::string_view name, const std::function<void()>& action) {
        const auto isActing = std::make_shared<bool>(false);
        state()->calls.intercept([name, isActing, action](const HostCall& call) {
            if (call.name == name && !*isActing) {
                *isActing = true;
                action();
                *isActing = false;
            }
            return Answer::Normal;
        });
    }

    void expectDivides(Track& track) {
        state()->calls.stopIntercepting();
        editor().notify();
        typeInto(noteAt(track, 0), noteAt(track, 0).lyric() + "ん");
        expectOneStep(StepKind::Division);
    }
};

TEST_F(HostCallsBack, WithANotificationForEveryTextThatIsWritten) {
    auto& track = addKnownTrack({"la", "li", "lu", "le"});
    onEvery(kSetAttribute, [this] { editor().notify(); });
    const Lyrics after{"さくら[s a]", "[k u]", "[r a]", "le"};

    editor().type(noteAt(track, 0), "さくら");
    EXPECT_EQ(lyricsOf(track), after);
    editor().undo();
    EXPECT_EQ(lyricsOf(track), (Lyrics{"la", "li", "lu", "le"}));
    EXPECT_EQ(recordedLyrics(track), (Lyrics{"la", "li", "lu", "le"}));
    editor().redo();
    EXPECT_EQ(lyricsOf(track), after);
    state()->calls.stopIntercepting();
    EXPECT_EQ(recordedLyrics(track), after);
}

TEST_F(HostCallsBack, WithAHookForEveryTextThatIsWritten) {
    auto& track = addKnownTrack({"la", "li", "lu"});
    std::vector<EditSteps> inner;
    onEvery(kSetAttribute, [&] { inner.push_back(hook()); });
    editor().type(noteAt(track, 0), "さくら");
    editor().undo();
    EXPECT_EQ(lyricsOf(track), (Lyrics{"la", "li", "lu"}));
    editor().redo();
    EXPECT_EQ(lyricsOf(track), (Lyrics{"さくら[s a]", "[k u]", "[r a]"}));
    EXPECT_FALSE(inner.empty());
    expectDivides(track);
}

TEST_F(HostCallsBack, WithANotificationForEveryAttributeThatIsRead) {
    auto& track = addKnownTrack({"la", "li", "lu"});
    onEvery(kGetAttribute, [this] { editor().notify(); });
    typeInto(noteAt(track, 0), "さくら");
    EXPECT_EQ(hook().size(), 1u);
    EXPECT_EQ(lyricsOf(track), (Lyrics{"さくら[s a]", "[k u]", "[r a]"}));
    EXPECT_EQ(recordedLyrics(track), lyricsOf(track));
}

TEST_F(HostCallsBack, WithANotificationWhileATrackIsReadForTheFirstTime) {
    auto& track = addTrack({"la", "li"});
    onFirst(kGetAttribute, [this] { editor().notify(); });
    editor().notify();
    EXPECT_EQ(recordedLyrics(track), (Lyrics{"la", "li"}));
}

TEST_F(HostCallsBack, WithAHookWhileAStepIsHandedOver) {
    auto& track = addKnownTrack({"la", "li", "lu"});
    typeInto(noteAt(track, 0), "さくら");
    EditSteps inner;
    onFirst(kAddEditStep, [&] { inner = hook(); });
    const auto steps = hook();

    // The inner hook met the typed text, which the outer step had not replaced yet.
    ASSERT_EQ(steps.size(), 1u);
    ASSERT_EQ(inner.size(), 1u);
    EXPECT_EQ(lyricsOf(track), (Lyrics{"さくら[s a]", "[k u]", "[r a]"}));
    inner[0]->undo();
    EXPECT_EQ(lyricsOf(track), (Lyrics{"さくら[s a]", "li", "lu"}));
    steps[0]->undo();
    EXPECT_EQ(lyricsOf(track), (Lyrics{"la", "li", "lu"}));
    EXPECT_EQ(recordedLyrics(track), (Lyrics{"la", "li", "lu"}));
}

TEST_F(HostCallsBack, WithAnEditOfAnotherTrackOnceAStepIsExecuted) {
    auto& first = addKnownTrack({"a", "b"});
    auto& second = addKnownTrack({"c", "d"});
    typeInto(noteAt(first, 0), "かき");
    EditSteps steps;
    hook([&](host::IEditStep& step) {
        step.execute();
        steps.push_back(Steinberg::shared(&step));
        editor().type(noteAt(second, 0), "さし");
    });
    ASSERT_EQ(steps.size(), 1u);
    EXPECT_EQ(editor().lastSteps().size(), 1u);
    EXPECT_EQ(lyricsOf(first), (Lyrics{"かき[k a]", "[k i]"}));
    EXPECT_EQ(lyricsOf(second), (Lyrics{"さし[s a]", "[sh i]"}));
    EXPECT_TRUE(hook().empty());
    editor().undo();
    steps[0]->undo();
    EXPECT_EQ(lyricsOf(first), (Lyrics{"a", "b"}));
    EXPECT_EQ(lyricsOf(second), (Lyrics{"c", "d"}));
}

TEST_F(HostCallsBack, ByRemovingTheTrackWhoseStepIsHandedOver) {
    auto& track = addKnownTrack({"a", "b"});
    typeInto(noteAt(track, 0), "かき");
    onFirst(kAddEditStep, [&] {
        project().remove(track);
        editor().notify();
    });
    const auto steps = hook();
    ASSERT_EQ(steps.size(), 1u);
    steps[0]->undo();
    steps[0]->redo();
}

TEST_F(HostCallsBack, ByRemovingATrackThatTheWalkHasStillToMeet) {
    auto& first = addKnownTrack({"a", "b"});
    auto& second = addKnownTrack({"c", "d"});
    typeInto(noteAt(first, 0), "かき");
    onFirst(kAddEditStep, [&] {
        project().remove(second);
        editor().notify();
    });
    EXPECT_EQ(hook().size(), 1u);
    expectDivides(first);
}

TEST_F(HostCallsBack, ByRemovingTheTrackThatIsBeingRead) {
    for (const auto call : {kGetAttribute, kIsFlagged}) {
        auto& track = addKnownTrack({"a", "b"});
        auto& other = addTrack({"c", "d"});
        typeInto(noteAt(track, 0), "かき");
        onFirst(call, [&] {
            project().remove(track);
            editor().notify();
        });
        hook();
        expectDivides(other);
        project().remove(other);
    }
}

TEST_F(HostCallsBack, ByRemovingTheNoteThatIsBeingRead) {
    for (const auto call : {kGetAttribute, kIsFlagged}) {
        auto& track = addKnownTrack({"a", "b", "c"});
        typeInto(noteAt(track, 0), "かき");
        onFirst(call, [&] { partOf(track).remove(noteAt(track, 0)); });
        hook();
        EXPECT_EQ(lyricsOf(track).size(), 2u);
        expectDivides(track);
        project().remove(track);
    }
}

TEST_F(HostCallsBack, ByRemovingThePartThatIsBeingRead) {
    for (const auto name : {"IProjectNodeIterator.atEnd", "IProjectNodeIterator.next"}) {
        auto& track = addKnownTrackOf({{"a", "b"}, {"c", "d"}});
        int count = 0;
        state()->calls.intercept([&](const HostCall& call) {
            // The third call is made to the iterator of the first part.
            if (call.name == name && ++count == 3) {
                track.remove(*track.items()[0]);
            }
            return Answer::Normal;
        });
        hook();
        EXPECT_EQ(track.items().size(), 1u) << name;
        expectDivides(track);
        project().remove(track);
    }
}

TEST_F(HostCallsBack, ByTerminatingTheExtensionWhileAStepIsHandedOver) {
    auto& first = addKnownTrack({"a", "b"});
    auto& second = addKnownTrack({"c", "d"});
    typeInto(noteAt(first, 0), "かき");
    typeInto(noteAt(second, 0), "さし");
    onFirst(kAddEditStep, [this] { editor().extension().base().terminate(); });
    const auto steps = hook();
    ASSERT_EQ(steps.size(), 2u);
    for (const auto& step : steps) {
        step->undo();
    }
    EXPECT_EQ(lyricsOf(first), (Lyrics{"a", "b"}));
    EXPECT_EQ(lyricsOf(second), (Lyrics{"c", "d"}));
}

TEST_F(HostCallsBack, ByDroppingTheExtensionInTheMiddleOfAWalk) {
    for (const auto call : {kAddEditStep, kGetAttribute, kIsFlagged}) {
        Editor other(factory());
        const auto track = makeTrack({{"a", "b"}});
        other.project().add(track);
        other.notify();
        typeInto(noteAt(*track, 0), "かき");
        onFirst(call, [&other] { other.terminate(); });
        const auto context = makeHandle<EditContext>(state());
        other.extension().editHook().hookEdit(other.project().argument(), context.get());
        EXPECT_EQ(context->steps().size(), 1u) << call;
        EXPECT_EQ(lyricsOf(*track), (Lyrics{"かき[k a]", "[k i]"})) << call;
    }
}

TEST_F(HostCallsBack, ByTerminatingTheExtensionWhileAStepIsUndone) {
    auto& track = addKnownTrack({"a", "b"});
    typeInto(noteAt(track, 0), "かき");
    const auto steps = hook();
    onFirst(kSetAttribute, [this] { editor().terminate(); });
    steps.at(0)->undo();
    EXPECT_EQ(lyricsOf(track), (Lyrics{"a", "b"}));
}

TEST_F(HostCallsBack, ByDroppingTheStepThatWritesATextOrReports) {
    auto& track = addKnownTrack({"a", "b"});
    const auto collector = makeHandle<simulator::ObjectCollector>(state());
    struct Use {
        const char* call;
        std::function<void(host::IEditStep&)> make;
    };
    const std::vector<Use> uses = {
        {"queryInterface", [](auto& step) { step.execute(); }},
        {"queryInterface", [](auto& step) { step.undo(); }},
        {"queryInterface", [](auto& step) { step.redo(); }},
        {"IEditObjectCollector.addObject",
         [&](auto& step) { step.reportChangedObjects(collector.get()); }},
    };
    for (const auto& use : uses) {
        typeInto(noteAt(track, 0), noteAt(track, 0).lyric() + "かき");
        auto steps = hook();
        ASSERT_EQ(steps.size(), 1u);
        auto& step = *steps[0];
        onFirst(use.call, [&steps] { steps.clear(); });
        use.make(step);
        EXPECT_TRUE(steps.empty());
        EXPECT_EQ(noteAt(track, 0).moduleReferences(), 0);
    }
}

TEST_F(HostCallsBack, ByDroppingTheCountStepThatAsksForTheTrack) {
    auto& track = addKnownTrack({"a", "b"});
    for (const bool isUndo : {true, false}) {
        track.add(makePart({"c"}));
        auto steps = hook();
        ASSERT_EQ(steps.size(), 1u);
        auto& step = *steps[0];
        onFirst("queryInterface", [&steps] { steps.clear(); });
        if (isUndo) {
            step.undo();
        } else {
            step.redo();
        }
        EXPECT_TRUE(steps.empty());
        editor().notify();
    }
    expectDivides(track);
}

TEST_F(HostCallsBack, ByForgettingTheTrackThatACountStepAsksFor) {
    auto& track = addKnownTrack({"a", "b"});
    const Handle<Track> kept(&track);
    track.add(makePart({"c"}));
    const auto steps = hook();
    onFirst("queryInterface", [&] {
        project().remove(track);
        editor().notify();
    });
    steps.at(0)->undo();
    project().add(kept);
    EXPECT_TRUE(hook().empty());
    expectDivides(track);
}

TEST_F(HostCallsBack, ByUndoingAStepWhileItIsExecuted) {
    auto& track = addKnownTrack({"a", "b", "c"});
    typeInto(noteAt(track, 0), "かきく");
    const auto steps = hook();
    steps.at(0)->undo();
    onFirst(kSetAttribute, [&] { steps[0]->undo(); });
    steps[0]->redo();
    EXPECT_EQ(lyricsOf(track), (Lyrics{"かきく[k a]", "[k i]", "[k u]"}));
    EXPECT_EQ(recordedLyrics(track), lyricsOf(track));
}

} // namespace
} // namespace wybeta::tests
