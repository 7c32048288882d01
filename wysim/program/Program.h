// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <istream>
#include <ostream>
#include <string>
#include <vector>

namespace wybeta::wysim::program {

// Where a run reads and writes, and what of it is a terminal.
struct Streams {
    std::istream& in;
    std::ostream& out;
    std::ostream& err;
    bool isInputTerminal = false;
    bool isErrorTerminal = false;
    // Whether the terminal is a window that goes with the program: then the end waits for Enter.
    bool closesAtEnd = false;
};

// Runs wysim with the arguments behind its name and returns its exit status: 0 done, 3 done but
// with words left that are not sung as they should be, 2 bad input, 1 trouble with the module.
int runWysim(const std::vector<std::string>& arguments, const Streams& streams);

} // namespace wybeta::wysim::program
