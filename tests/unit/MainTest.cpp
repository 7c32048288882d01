// SPDX-License-Identifier: GPL-3.0-or-later
//
// How every test program ends that is terminated. Not on Windows, where such a test starts the
// program a second time.
#ifndef _WIN32
#include <gtest/gtest.h>

#include <exception>

namespace wybeta::tests {
namespace {

TEST(TerminationDeathTest, NamesTheTestThatRan) {
    EXPECT_DEATH(std::terminate(), "terminated in TerminationDeathTest.NamesTheTestThatRan");
}

} // namespace
} // namespace wybeta::tests
#endif
