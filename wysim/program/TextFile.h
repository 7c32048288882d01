// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <fstream>
#include <istream>
#include <string>
#include <vector>

namespace wybeta::wysim::program {

constexpr std::size_t kLargestText = std::size_t{1024} * 1024;

// Throws BadInput, which says what was expected there, when there is no such file.
std::ifstream openTextFile(const std::string& name, const std::string& expected);

// The text of a file, or of standard input when the name is "-". Throws BadInput when there is no
// such file or its text is larger than allowed.
std::string readText(const std::string& name, std::istream& standardInput);

// The lines of a text file, or of standard input when the name is "-". Throws BadInput when there
// is no such file or its text is larger than allowed. The lines by themselves are not looked at.
std::vector<std::string> readTextLines(const std::string& name, std::istream& standardInput);

} // namespace wybeta::wysim::program
