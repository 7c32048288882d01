// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/program/Program.h"
#include "wysim/terminal/Console.h"

#include <iostream>

int main(int argc, char** argv) {
    using namespace wybeta::wysim;
    terminal::useUtf8Terminal();
    return program::runWysim(terminal::utf8Arguments(argc, argv),
                             {std::cin, std::cout, std::cerr, terminal::isInputTerminal(),
                              terminal::isErrorTerminal(), terminal::ownsTerminal()});
}
