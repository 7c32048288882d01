// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/Options.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <exception>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace wybeta::tests {

namespace {

std::vector<std::string>& arguments() {
    static std::vector<std::string> list;
    return list;
}

} // namespace

std::optional<std::string> option(std::string_view name) {
    const std::string prefix = "--" + std::string(name) + "=";
    for (const auto& argument : arguments()) {
        if (argument.compare(0, prefix.size(), prefix) == 0) {
            return argument.substr(prefix.size());
        }
    }
    return std::nullopt;
}

std::filesystem::path modulePath() {
    return std::filesystem::u8path(option("module").value_or(WYBETA_MODULE_FILE));
}

std::filesystem::path sourceFile(const std::string& name) {
    return std::filesystem::u8path(WYBETA_SOURCE_FOLDER) / std::filesystem::u8path(name);
}

} // namespace wybeta::tests

namespace {

std::terminate_handler handlerBefore = nullptr;

// With --gtest_brief, a test is named only once it has ended.
void nameTestAndTerminate() {
    const auto* const test = testing::UnitTest::GetInstance()->current_test_info();
    if (test != nullptr) {
        std::fprintf(stderr, "terminated in %s.%s\n", test->test_suite_name(), test->name());
    }
    handlerBefore();
}

} // namespace

int main(int argc, char** argv) {
    handlerBefore = std::set_terminate(nameTestAndTerminate);
    testing::InitGoogleTest(&argc, argv);
    wybeta::tests::arguments().assign(argv + 1, argv + argc);
    return RUN_ALL_TESTS();
}
