// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <filesystem>

namespace wybeta::tests {

// Stands between a loaded module and the system's malloc, for all that the module allocates, and
// lets it fail. There may be one at a time.
class FailingMalloc {
public:
    // Throws std::runtime_error when no such module is loaded or it does not import malloc.
    explicit FailingMalloc(const std::filesystem::path& module);
    ~FailingMalloc();
    FailingMalloc(const FailingMalloc&) = delete;
    FailingMalloc& operator=(const FailingMalloc&) = delete;

    // The allocation of that number fails, counted from 1 and from now on.
    void failAt(std::uint64_t number);
    // No other fails from here on. Returns whether that one has.
    bool stop();

private:
    void** import_;
};

} // namespace wybeta::tests
