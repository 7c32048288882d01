// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/model/NaiveModel.h"

#include <string>
#include <vector>

namespace wybeta::tests {

// Text for whoever has to find out why a session went wrong.
std::string quoted(const std::string& text);
// An item with all that is in it, such as "part 4 (note 5 "la", note 6 "" flagged)".
std::string described(const NaiveModel& model, Id id);
std::string described(const NaiveModel& model, const std::vector<ModelChange>& changes);
// Steps are told by the notes that they report: a change of the count has none.
std::string described(const std::vector<std::vector<Id>>& steps);

} // namespace wybeta::tests
