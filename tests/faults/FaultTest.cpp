// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/faults/FaultTest.h"

#include <string>
#include <utility>

namespace wybeta::tests {

namespace {

void expectWholeLists(const NoteLists& lists, const NoteLists& before, const NoteLists& after) {
    const auto isIn = [](const NoteLists& others, const NoteLists::value_type& list) {
        const auto other = others.find(list.first);
        return other != others.end() && *other == list;
    };
    for (const auto& list : lists) {
        EXPECT_TRUE(isIn(before, list) || isIn(after, list)) << testing::PrintToString(list);
    }
    for (const auto& [track, list] : before) {
        EXPECT_TRUE(lists.count(track) != 0 || after.count(track) == 0) << track;
    }
}

} // namespace

std::unique_ptr<Subject> FaultTest::subject_;

FaultTest::Play::Play(const Scenario& scenarioToPlay, Snapshot undisturbed)
    : scenario(scenarioToPlay), session(*subject_), after(std::move(undisturbed)) {
    scenario.prepare(session);
    before = session.snapshot();
    references = session.projectReferences();
}

void FaultTest::SetUpTestSuite() {
    subject_ = makeSubject();
}

void FaultTest::TearDownTestSuite() {
    subject_.reset();
}

std::uint64_t FaultTest::playAtEachPlace(const Scenario& scenario, const PlayWithFault& play) {
    const auto after = undisturbed(scenario);
    std::uint64_t places = 0;
    for (bool isReached = true; isReached && !HasFailure();) {
        SCOPED_TRACE("at place " + std::to_string(places + 1));
        Play next(scenario, after);
        isReached = play(next, places + 1);
        next.session.expectRecovers();
        places += isReached ? 1 : 0;
    }
    return places;
}

void FaultTest::expectReferencesBack(Play& play) {
    auto& session = play.session;
    session.state()->calls.stopIntercepting();
    session.dropNewSteps();
    // The host may have dropped the steps that held some of the project.
    EXPECT_EQ(session.projectReferences(), session.steps().empty() ? 0 : play.references);
    EXPECT_EQ(session.strayReferences(), 0);
    EXPECT_TRUE(session.areHostsHeldOnce());
}

void FaultTest::expectAllOrNothing(Play& play, bool hasFailed) {
    expectReferencesBack(play);
    const auto left = play.session.snapshot();
    expectWholeLists(left.table, play.before.table, play.after.table);
    if (hasFailed) {
        // A hook that wrote some of the lyrics finds these in the table and leaves the others.
        const bool isStep = !play.session.steps().empty();
        if (!isStep && left.project != play.before.project) {
            return;
        }
        play.act();
    }
    const auto done = play.session.snapshot();
    EXPECT_EQ(done.table, play.after.table);
    EXPECT_EQ(done.project, play.after.project);
}

void FaultTest::expectSound(Play& play) {
    for (const auto& [track, list] : play.session.snapshot().table) {
        EXPECT_NE(track, "unknown");
        for (const auto& line : list) {
            // What was no note when its track was met has an empty record.
            EXPECT_TRUE(line.rfind("note ", 0) == 0 || line == "unknown (0) at 0 for 0:  / ")
                << line;
        }
    }
    // An editor tells of what is gone before it goes on in its history.
    play.session.notify();
    play.session.undoAndRedoSteps();
    expectReferencesBack(play);
}

void FaultTest::answerFromEachCall(const Scenario& scenario, const MakeAnswerer& make) {
    const auto calls = playAtEachPlace(scenario, [&make](Play& play, std::uint64_t number) {
        bool isReached = false;
        const auto answer = make();
        play.session.interceptFrom(number, [&](const simulator::HostCall& call) {
            isReached = true;
            return answer(play.session, call);
        });
        play.act();
        play.session.state()->calls.stopIntercepting();
        expectSound(play);
        return isReached;
    });
    EXPECT_GT(calls, 0u);
}

void FaultTest::actInEachCall(const Scenario& scenario,
                              const std::function<void(FaultSession&)>& act) {
    answerFromEachCall(scenario, [&act]() -> Answerer {
        return [&act, hasActed = false](FaultSession& session, const simulator::HostCall&) mutable {
            if (!std::exchange(hasActed, true)) {
                act(session);
            }
            return simulator::Answer::Normal;
        };
    });
}

Snapshot FaultTest::undisturbed(const Scenario& scenario) {
    Play play(scenario, Snapshot());
    play.act();
    return play.session.snapshot();
}

} // namespace wybeta::tests
