// SPDX-License-Identifier: GPL-3.0-or-later
//
// Plays a session over and over; each time the host does something unexpected at another one of the
// calls that the extension makes.
#include "simulator/CallInterceptor.h"
#include "simulator/EditContext.h"
#include "simulator/HostObject.h"
#include "simulator/ProjectTree.h"
#include "simulator/Track.h"
#include "tests/SimulatedHost.h"
#include "tests/session/SessionTest.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace wybeta::tests {
namespace {

using simulator::Answer;

struct HostGivesUp {};

class CallSweep : public SessionTest {
protected:
    using Act = std::function<Answer()>;

    // Plays three sessions, each as often as the extension makes calls in it, and acts at another
    // call each time. Afterwards all references have to be back and the extension has to work on.
    void actAtEachCall(const Act& act) {
        for (const auto play :
             {&CallSweep::seeTracks, &CallSweep::hookEdit, &CallSweep::useSteps}) {
            number_ = 0;
            do {
                ++number_;
                isReached_ = false;
                act_ = act;
                SCOPED_TRACE("at call " + std::to_string(number_));
                playSession(play);
            } while (isReached_ && !HasFailure());
            // More calls than there are steps in the session: it was played to its end.
            EXPECT_GT(number_, 10u);
        }
    }

    EditSteps& steps() { return steps_; }
    EditSteps& innerSteps() { return innerSteps_; }

    // The track that is being divided, as long as it is in the project.
    Track* dividedTrack() {
        return project().items().empty() ? nullptr
                                         : dynamic_cast<Track*>(project().items()[0].get());
    }

    void removeTracks() {
        while (!project().items().empty()) {
            project().remove(*project().items()[0]);
        }
    }

    void terminate() {
        editor().extension().base().terminate();
        isTerminated_ = true;
    }

    void initialize() {
        isTerminated_ = false;
        host_.emplace(state());
        editor().extension().base().initialize(host_->context());
    }

private:
    void seeTracks() {
        begin();
        editor().notify();
    }

    void hookEdit() {
        editor().notify();
        changeTracks();
        begin();
        steps_ = hook();
    }

    void useSteps() {
        editor().notify();
        changeTracks();
        steps_ = hook();
        // The history holds what is removed while a step is at work.
        const std::vector<Handle<TreeItem>> kept = project().items();
        begin();
        // A call may drop all steps, the one at work among them.
        std::size_t next = 0;
        while (next < steps_.size()) {
            const auto step = steps_[next++];
            step->undo();
            step->redo();
            reported(*step);
        }
    }

    // A track to divide, and one in a folder to grow.
    void buildProject() {
        addTrackOf({{"a", "b"}, {"c"}});
        const auto folder = makeHandle<Folder>(state());
        folder->add(makeTrack({{"d"}}));
        project().add(folder);
    }

    void changeTracks() {
        typeInto(noteAt(*dividedTrack(), 0), "かきく");
        auto& folder = dynamic_cast<TreeNode&>(*project().items()[1]);
        dynamic_cast<TreeNode&>(*folder.items()[0]).add(makePart({"e"}));
    }

    void begin() {
        const auto first = state()->calls.count();
        state()->calls.intercept([this, first](const HostCall&) {
            if (state()->calls.count() - first != number_ || isReached_) {
                return Answer::Normal;
            }
            isReached_ = true;
            return act_();
        });
    }

    void playSession(void (CallSweep::*play)()) {
        const auto before = state()->ledger.outstanding();
        buildProject();
        try {
            (this->*play)();
        } catch (const HostGivesUp&) {
        }
        state()->calls.stopIntercepting();
        editor().notify();
        for (const auto& step : steps_) {
            step->undo();
            step->redo();
        }
        steps_.clear();
        innerSteps_.clear();
        removeTracks();
        if (isTerminated_) {
            initialize();
        }
        EXPECT_EQ(state()->ledger.outstanding(), before);
        expectDivides();
    }

    void expectDivides() {
        auto& track = addKnownTrack({"", ""});
        typeInto(noteAt(track, 0), "かき");
        EXPECT_EQ(hook().size(), 1u);
        EXPECT_EQ(lyricsOf(track), (Lyrics{"かき[k a]", "[k i]"}));
        project().remove(track);
    }

    void TearDown() override {
        host_.reset();
        SessionTest::TearDown();
    }

    std::uint64_t number_ = 0;
    bool isReached_ = false;
    bool isTerminated_ = false;
    Act act_;
    EditSteps steps_;
    EditSteps innerSteps_;
    std::optional<SimulatedHost> host_;
};

TEST_F(CallSweep, RefusesACall) {
    actAtEachCall([] { return Answer::Refuse; });
}

TEST_F(CallSweep, ThrowsFromACall) {
    actAtEachCall([]() -> Answer { throw HostGivesUp(); });
}

TEST_F(CallSweep, NotifiesInACall) {
    actAtEachCall([this] {
        editor().notify();
        return Answer::Normal;
    });
}

TEST_F(CallSweep, HooksAnotherEditInACall) {
    actAtEachCall([this] {
        innerSteps() = hook();
        return Answer::Normal;
    });
}

TEST_F(CallSweep, HooksAnotherEditAndUndoesItInACall) {
    actAtEachCall([this] {
        for (const auto& step : hook()) {
            step->undo();
        }
        return Answer::Normal;
    });
}

TEST_F(CallSweep, RemovesAllTracksInACall) {
    actAtEachCall([this] {
        removeTracks();
        return Answer::Normal;
    });
}

TEST_F(CallSweep, RemovesAllTracksAndNotifiesInACall) {
    actAtEachCall([this] {
        removeTracks();
        editor().notify();
        return Answer::Normal;
    });
}

TEST_F(CallSweep, RemovesAllPartsInACall) {
    actAtEachCall([this] {
        auto& track = *dividedTrack();
        while (!track.items().empty()) {
            track.remove(*track.items()[0]);
        }
        return Answer::Normal;
    });
}

TEST_F(CallSweep, RemovesAllNotesOfAPartAndNotifiesInACall) {
    actAtEachCall([this] {
        auto& part = dynamic_cast<Part&>(*dividedTrack()->items()[0]);
        while (!part.items().empty()) {
            part.remove(*part.items()[0]);
        }
        editor().notify();
        return Answer::Normal;
    });
}

TEST_F(CallSweep, DropsAllStepsInACall) {
    actAtEachCall([this] {
        steps().clear();
        return Answer::Normal;
    });
}

TEST_F(CallSweep, TerminatesAndInitialisesTheExtensionInACall) {
    actAtEachCall([this] {
        terminate();
        initialize();
        return Answer::Normal;
    });
}

TEST_F(CallSweep, TerminatesTheExtensionInACall) {
    actAtEachCall([this] {
        terminate();
        return Answer::Normal;
    });
}

} // namespace
} // namespace wybeta::tests
