// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace wybeta::wysim::terminal {

// A terminal, and the command line, in UTF-8 on every system.
void useUtf8Terminal();
// The arguments behind the name of the program.
std::vector<std::string> utf8Arguments(int argc, char** argv);

bool isInputTerminal();
bool isErrorTerminal();
// Whether a person looks at a window that was opened for this program alone and closes with it, as
// a double click on the program does.
bool ownsTerminal();

// Reads a line that a person types at the terminal. False at the end.
bool readTerminalLine(std::string& line);

} // namespace wybeta::wysim::terminal
