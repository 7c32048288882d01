// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <stdexcept>
#include <string>

namespace wybeta::wysim::song {

// What there is to say of a std::bad_alloc.
constexpr auto kOutOfMemory = "expected enough memory, found that the program is out of memory";

// What a user gave cannot be used. The text is one sentence that says what was expected, what was
// found and where, without a full stop.
class BadInput : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;

    static BadInput expectedFound(const std::string& what, const std::string& found) {
        return BadInput("expected " + what + ", found " + found);
    }
};

} // namespace wybeta::wysim::song
