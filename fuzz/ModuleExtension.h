// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "simulator/ExtensionInstance.h"

namespace wybeta::fuzz {

// One extension for all inputs of a process: loading its dictionary takes longer than a session.
const simulator::ExtensionInstance& moduleExtension();

} // namespace wybeta::fuzz
