// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/unit/faults/FaultSession.h"

#include <ostream>
#include <vector>

namespace wybeta::tests {

// One call of the extension in which something is to go wrong, and what has to come before it.
struct Scenario {
    const char* name;
    void (*prepare)(FaultSession&);
    void (*act)(FaultSession&);
};

void PrintTo(const Scenario& scenario, std::ostream* out);

// Each call in which the extension calls the host or needs memory, but for its construction.
const std::vector<Scenario>& scenarios();

} // namespace wybeta::tests
