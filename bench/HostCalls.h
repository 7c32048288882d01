// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "simulator/ProjectTree.h"

#include <cstddef>

namespace wybeta::bench {

// Makes the calls into the host that reading every note of the tracks takes, and nothing else. The
// yardstick of a walk. Returns the number of notes.
std::size_t makeHostCalls(simulator::TreeNode& project);

} // namespace wybeta::bench
