// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/Check.h"

#include <cstdio>
#include <cstdlib>

namespace wybeta::fuzz {

namespace {

std::string described(const std::vector<std::string>& texts) {
    std::string lines;
    for (const auto& text : texts) {
        lines += "\n  '" + text + "'";
    }
    return lines.empty() ? " nothing" : lines;
}

} // namespace

void fail(const std::string& sentence) {
    const auto line = "fuzz: " + sentence + "\n";
    std::fwrite(line.data(), 1, line.size(), stderr);
    std::abort();
}

void checkEqual(const std::vector<std::string>& found, const std::vector<std::string>& expected) {
    if (found != expected) {
        fail("expected" + described(expected) + "\nfound" + described(found));
    }
}

void checkEqual(const std::string& found, const std::string& expected) {
    checkEqual(std::vector{found}, std::vector{expected});
}

} // namespace wybeta::fuzz
