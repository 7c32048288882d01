// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/faults/FaultSession.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

namespace wybeta::tests {

// Who allocates memory in a call. The host's own is what its answers take.
enum class Memory { OfNobody, OfTheHost, OfTheExtension };

// One call of the extension in which something is to go wrong, and what has to come before it.
struct Scenario {
    const char* name;
    void (*prepare)(FaultSession&);
    void (*act)(FaultSession&);
    Memory memory;
};

// The name, which is also that of the test with the scenario.
void PrintTo(const Scenario& scenario, std::ostream* out);
std::string nameOf(const testing::TestParamInfo<Scenario>& info);

// Each call in which the extension calls the host or needs memory, but for its construction.
const std::vector<Scenario>& scenarios();

// All steps of one edit, one after the other: more than one call, so that what a fault leaves is
// neither what was there before nor what the calls were to leave.
const Scenario& stepsOfManyChanges();

} // namespace wybeta::tests
