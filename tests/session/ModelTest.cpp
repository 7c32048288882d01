// SPDX-License-Identifier: GPL-3.0-or-later
//
// Takes the options --sessions=N, how many sessions to run, and --seed=S, the seed of the first.
#include "tests/ModuleFixture.h"
#include "tests/Options.h"
#include "tests/model/RandomLyrics.h"
#include "tests/model/RandomSession.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace wybeta::tests {

namespace {

std::uint32_t numericOption(std::string_view name, std::uint32_t byDefault) {
    const auto text = option(name);
    return text ? static_cast<std::uint32_t>(std::stoul(*text)) : byDefault;
}

class RandomSessions : public ExtensionFixture {};

// Loading the dictionary takes longer than a whole session, so one extension serves them all.
TEST_F(RandomSessions, GoAsTheNaiveModelHasThem) {
    const std::uint32_t first = numericOption("seed", 1);
    const std::uint32_t count = numericOption("sessions", 6000);
    for (std::uint32_t i = 0; i < count; ++i) {
        const std::string difference = RandomSession(*extension, Random(first + i)).run();
        ASSERT_TRUE(difference.empty())
            << difference << "\nRepeat with --seed=" << first + i << " --sessions=1";
    }
}

} // namespace

} // namespace wybeta::tests
