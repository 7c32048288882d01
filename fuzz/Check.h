// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// What libFuzzer calls with each input. Always returns 0.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace wybeta::fuzz {

inline std::string_view textOf(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

// Ends the process, so that the fuzzer keeps the input.
[[noreturn]] void fail(const std::string& sentence);

inline void check(bool isRight, const char* sentence) {
    if (!isRight) {
        fail(sentence);
    }
}

void checkEqual(const std::vector<std::string>& found, const std::vector<std::string>& expected);
void checkEqual(const std::string& found, const std::string& expected);

} // namespace wybeta::fuzz
