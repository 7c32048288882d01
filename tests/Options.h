// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace wybeta::tests {

// The value of --name=VALUE on the command line of the test program, if it was given.
std::optional<std::string> option(std::string_view name);

// The module file that black-box tests load: the one of this build, or that of --module=FILE.
std::filesystem::path modulePath();

// A file of the source tree, named from its root.
std::filesystem::path sourceFile(const std::string& name);

} // namespace wybeta::tests
