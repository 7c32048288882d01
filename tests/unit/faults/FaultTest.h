// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "simulator/ExtensionInstance.h"
#include "tests/unit/faults/FaultSession.h"
#include "tests/unit/faults/Scenario.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace wybeta::tests {

// Plays a scenario in many sessions of one extension, with something wrong in each of them.
class FaultTest : public testing::TestWithParam<Scenario> {
protected:
    // A session in which the scenario's call comes next.
    struct Play {
        explicit Play(Picture undisturbed);

        FaultSession session;
        Picture before;
        // What the call leaves when nothing goes wrong.
        Picture after;
        std::int64_t references;
    };
    // Plays once, with the fault at a place of that number, counted from 1. Returns false when
    // there was no such place.
    using PlayWithFault = std::function<bool(Play&, std::uint64_t number)>;

    static void SetUpTestSuite();
    static void TearDownTestSuite();

    // Plays with the fault at each place, and in the end without one. Returns how many places there
    // are.
    static std::uint64_t playAtEachPlace(const PlayWithFault& play);

    static void act(Play& play) { GetParam().act(play.session); }

    // The call is over, well or not. Expects that it gave back what it took.
    static void expectReferencesBack(Play& play);
    // Expects that as well and, of a call that failed, that each list of the table is the one from
    // before it or the one that it was to leave, and that the call can be made again.
    static void expectAllOrNothing(Play& play, bool hasFailed);

private:
    static Picture undisturbed();

    static std::optional<simulator::ExtensionInstance> extension_;
};

// The name of a scenario, for the name of a test.
std::string nameOf(const testing::TestParamInfo<Scenario>& info);

} // namespace wybeta::tests
