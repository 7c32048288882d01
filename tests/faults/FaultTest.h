// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "simulator/CallInterceptor.h"
#include "tests/faults/FaultSession.h"
#include "tests/faults/Scenario.h"
#include "tests/faults/Subject.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <memory>

namespace wybeta::tests {

// Plays a scenario in many sessions of one extension, with something wrong in each of them.
class FaultTest : public testing::Test {
protected:
    // A session in which the scenario's call comes next.
    struct Play {
        Play(const Scenario& scenario, Snapshot undisturbed);

        void act() { scenario.act(session); }

        const Scenario& scenario;
        FaultSession session;
        Snapshot before;
        // What the call leaves when nothing goes wrong.
        Snapshot after;
        std::int64_t references;
    };
    // Plays once, with the fault at a place of that number, counted from 1. Returns false when
    // there was no such place.
    using PlayWithFault = std::function<bool(Play&, std::uint64_t number)>;

    static void SetUpTestSuite();
    static void TearDownTestSuite();

    // Plays with the fault at each place, and in the end without one. Returns how many places there
    // are.
    static std::uint64_t playAtEachPlace(const Scenario& scenario, const PlayWithFault& play);

    // The call is over, well or not. Expects that it gave back what it took.
    static void expectReferencesBack(Play& play);
    // Expects that as well and, of a call that failed, that each list of the table is the one from
    // before it or the one that it was to leave, and that the call can be made again.
    static void expectAllOrNothing(Play& play, bool hasFailed);
    // Expects that what the table lists are notes that are or were in the project, that all steps
    // can be undone and redone, and that all was given back.
    static void expectSound(Play& play);

    // Answers a call of the extension.
    using Answerer = std::function<simulator::Answer(FaultSession&, const simulator::HostCall&)>;
    // Returns the answerer of one play.
    using MakeAnswerer = std::function<Answerer()>;

    // Has the host answer so from each call on, in one play after the other. What becomes of the
    // lyrics is the host's own affair then; the extension is to stay sound.
    static void answerFromEachCall(const Scenario& scenario, const MakeAnswerer& make);
    // Has the host act in each call, once in each play.
    static void actInEachCall(const Scenario& scenario,
                              const std::function<void(FaultSession&)>& act);
    // Has the host throw from each call, once in each play. Expects all or nothing.
    template <class Exception>
    static void throwAtEachCall(const Scenario& scenario, const Exception& exception);

private:
    static Snapshot undisturbed(const Scenario& scenario);

    static std::unique_ptr<Subject> subject_;
};

template <class Exception>
void FaultTest::throwAtEachCall(const Scenario& scenario, const Exception& exception) {
    const auto calls = playAtEachPlace(scenario, [&exception](Play& play, std::uint64_t number) {
        bool isReached = false;
        bool isThrown = false;
        play.session.interceptFrom(number, [&](const simulator::HostCall&) -> simulator::Answer {
            EXPECT_FALSE(isReached) << "the host is called while the exception is under way";
            isReached = true;
            throw exception;
        });
        try {
            play.act();
        } catch (const Exception&) {
            isThrown = true;
        }
        EXPECT_EQ(isThrown, isReached);
        expectAllOrNothing(play, isReached);
        return isReached;
    });
    EXPECT_GT(calls, 0u);
}

} // namespace wybeta::tests
