// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulator/wysim/Console.h"
#include "simulator/wysim/Program.h"

#include <iostream>

int main(int argc, char** argv) {
    using namespace wybeta::simulator;
    useUtf8Terminal();
    return runWysim(utf8Arguments(argc, argv),
                    {std::cin, std::cout, std::cerr, isInputTerminal(), isErrorTerminal()});
}
