// SPDX-License-Identifier: GPL-3.0-or-later
//
// The host does something unexpected at every call that the built module makes in turn, in one
// scenario after the other.
#include "simulator/CallInterceptor.h"
#include "tests/TrackNotes.h"
#include "tests/faults/FaultSession.h"
#include "tests/faults/FaultTest.h"
#include "tests/faults/Scenario.h"

#include <gtest/gtest.h>

#include <functional>
#include <utility>

namespace wybeta::tests {
namespace {

using simulator::Answer;
using simulator::HostCall;

struct HostGivesUp {};

class CallSweep : public FaultTest {
protected:
    static void actInEachCall(const std::function<void(FaultSession&)>& act) {
        inEachScenario(
            [&act](const Scenario& scenario) { FaultTest::actInEachCall(scenario, act); });
        SCOPED_TRACE(stepsOfManyChanges().name);
        FaultTest::actInEachCall(stepsOfManyChanges(), act);
    }

    static void inEachScenario(const std::function<void(const Scenario&)>& play) {
        for (const auto& scenario : scenarios()) {
            SCOPED_TRACE(scenario.name);
            play(scenario);
        }
    }
};

TEST_F(CallSweep, RefusesACall) {
    inEachScenario([](const Scenario& scenario) {
        answerFromEachCall(scenario, [] {
            return [isFirst = true](FaultSession&, const HostCall&) mutable {
                return std::exchange(isFirst, false) ? Answer::Refuse : Answer::Normal;
            };
        });
    });
}

TEST_F(CallSweep, ThrowsFromACall) {
    inEachScenario([](const Scenario& scenario) { throwAtEachCall(scenario, HostGivesUp()); });
}

TEST_F(CallSweep, NotifiesInACall) {
    actInEachCall([](FaultSession& session) { session.notify(); });
}

TEST_F(CallSweep, HooksAnotherEditInACall) {
    actInEachCall([](FaultSession& session) { session.hook(); });
}

TEST_F(CallSweep, HooksAnotherEditAndUndoesItInACall) {
    actInEachCall([](FaultSession& session) {
        for (const auto& step : session.hookAnotherEdit()) {
            step->undo();
        }
    });
}

TEST_F(CallSweep, RemovesAllTracksInACall) {
    actInEachCall([](FaultSession& session) { session.removeAll(session.project()); });
}

TEST_F(CallSweep, RemovesAllTracksAndNotifiesInACall) {
    actInEachCall([](FaultSession& session) {
        session.removeAll(session.project());
        session.notify();
    });
}

TEST_F(CallSweep, RemovesAllPartsInACall) {
    actInEachCall([](FaultSession& session) { session.removeAll(session.melody()); });
}

TEST_F(CallSweep, RemovesAllNotesOfAPartAndNotifiesInACall) {
    actInEachCall([](FaultSession& session) {
        session.removeAll(partOf(session.melody()));
        session.notify();
    });
}

TEST_F(CallSweep, DropsAllStepsInACall) {
    actInEachCall([](FaultSession& session) { session.forgetSteps(); });
}

TEST_F(CallSweep, TerminatesAndInitialisesTheExtensionInACall) {
    actInEachCall([](FaultSession& session) {
        session.terminate();
        session.changeHost();
        session.initialize();
    });
}

TEST_F(CallSweep, TerminatesTheExtensionInACall) {
    actInEachCall([](FaultSession& session) { session.terminate(); });
}

} // namespace
} // namespace wybeta::tests
