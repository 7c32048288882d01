// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace wybeta::tests {

// A text as the name of a parameterised test, which may have ASCII letters, digits and underscores.
inline std::string testNameOf(std::string_view text) {
    std::string name;
    for (const char c : text) {
        const bool isNamePart =
            (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
        name += isNamePart ? c : '_';
    }
    return name;
}

} // namespace wybeta::tests
