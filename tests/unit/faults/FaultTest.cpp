// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/unit/faults/FaultTest.h"

#include "pluginterfaces/base/ipluginbase.h"
#include "pluginterfaces/base/smartpointer.h"

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

std::optional<simulator::ExtensionInstance> FaultTest::extension_;

FaultTest::Play::Play(Picture undisturbed) : session(*extension_), after(std::move(undisturbed)) {
    GetParam().prepare(session);
    before = session.picture();
    references = session.projectReferences();
}

void FaultTest::SetUpTestSuite() {
    extension_.emplace(*Steinberg::owned(GetPluginFactory()));
}

void FaultTest::TearDownTestSuite() {
    extension_.reset();
}

std::uint64_t FaultTest::playAtEachPlace(const PlayWithFault& play) {
    const auto after = undisturbed();
    std::uint64_t places = 0;
    for (bool isReached = true; isReached && !HasFailure();) {
        SCOPED_TRACE("at place " + std::to_string(places + 1));
        Play next(after);
        isReached = play(next, places + 1);
        next.session.expectRecovers();
        places += isReached ? 1 : 0;
    }
    return places;
}

void FaultTest::expectReferencesBack(Play& play) {
    play.session.state()->calls.stopIntercepting();
    play.session.dropNewSteps();
    EXPECT_EQ(play.session.projectReferences(), play.references);
    EXPECT_EQ(play.session.strayReferences(), 0);
    EXPECT_TRUE(play.session.isHostHeldOnce());
}

void FaultTest::expectAllOrNothing(Play& play, bool hasFailed) {
    expectReferencesBack(play);
    const auto left = play.session.picture();
    expectWholeLists(left.table, play.before.table, play.after.table);
    if (hasFailed) {
        // A hook that wrote some of the lyrics finds these in the table and leaves the others.
        const bool isStep = !play.session.steps().empty();
        if (!isStep && left.project != play.before.project) {
            return;
        }
        act(play);
    }
    const auto done = play.session.picture();
    EXPECT_EQ(done.table, play.after.table);
    EXPECT_EQ(done.project, play.after.project);
}

Picture FaultTest::undisturbed() {
    Play play{Picture()};
    act(play);
    return play.session.picture();
}

std::string nameOf(const testing::TestParamInfo<Scenario>& info) {
    return info.param.name;
}

} // namespace wybeta::tests
