// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/program/Program.h"
#include "wysim/terminal/Console.h"

#include <iostream>

int main(int argc, char** argv) {
    using namespace wybeta::simulator;
    useUtf8Terminal();
    return runWysim(utf8Arguments(argc, argv),
                    {std::cin, std::cout, std::cerr, isInputTerminal(), isErrorTerminal()});
}
