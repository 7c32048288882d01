// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/model/NaiveConversion.h"

#include <string_view>

namespace wybeta::fuzz {

// The words of a dictionary text, read as simply as can be: lines, then fields, then a map.
tests::NaiveWords naiveDictionary(std::string_view text);

} // namespace wybeta::fuzz
