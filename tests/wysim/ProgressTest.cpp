// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/terminal/Progress.h"

#include <gtest/gtest.h>

#include <chrono>
#include <sstream>

namespace wybeta::tests {

namespace {

using namespace std::chrono_literals;

TEST(Progress, ShowsItselfOnlyAfterASecond) {
    std::ostringstream terminal;
    std::chrono::steady_clock::time_point now;
    wysim::terminal::Progress progress(terminal, [&now] { return now; });
    progress.start("reading", 4);
    now += 900ms;
    progress.step();
    EXPECT_EQ(terminal.str(), "");
    now += 200ms;
    progress.step();
    EXPECT_EQ(terminal.str(), "\rreading 50 %");
    progress.step();
    EXPECT_EQ(terminal.str(), "\rreading 50 %");
    now += 100ms;
    progress.step();
    EXPECT_EQ(terminal.str(), "\rreading 50 %\rreading 100 %");
    progress.finish();
    EXPECT_EQ(terminal.str(), "\rreading 50 %\rreading 100 %\r             \r");
}

TEST(Progress, LeavesNothingToTakeOffAfterQuickWork) {
    std::ostringstream terminal;
    {
        wysim::terminal::Progress progress(terminal);
        progress.start("reading", 2);
        progress.step();
    }
    EXPECT_EQ(terminal.str(), "");
}

} // namespace

} // namespace wybeta::tests
