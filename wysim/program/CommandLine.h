// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wysim/words/WordFitter.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace wybeta::wysim::program {

enum class Command { Open, Compare, Fit, Check, Lay };

// Stands for standard output instead of a file to write.
constexpr std::string_view kStandardOutput = "-";

// What wysim is asked to do. A file to write may be kStandardOutput.
struct CommandLine {
    Command command = Command::Open;
    std::string module; // empty: the one that was built with the program
    // The song, or the text for Check, where "-" is standard input; empty: the built-in example.
    std::string file;
    std::string text;                  // to lay; "-" is standard input
    std::optional<std::string> track;  // to lay the text under, by name or number; none: the first
    std::optional<std::string> json;   // none: what was laid is not written as JSON
    std::optional<int> verse;          // none: the first one that has words
    std::optional<std::string> script; // none: commands are typed; "-": from standard input
    std::optional<std::string> svg;    // none: no picture
    std::optional<std::string> save;   // none: the fitted song is not written
    words::WaysToFit ways;             // to fit
    bool writesJson = false;
    // When not empty, there is nothing to do but show this.
    std::string help;
};

// Throws BadInput.
CommandLine parseCommandLine(std::vector<std::string> arguments);

// The file to load for a module that the user named: inside a module folder, the library for this
// system. With an empty name, the module beside the program or one folder up.
std::filesystem::path moduleFile(const std::string& named);

} // namespace wybeta::wysim::program
