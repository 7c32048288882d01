// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

namespace wybeta::tests {

// Takes the memory away. While one is alive, the n-th allocation that anything in the program makes
// through operator new fails, counted from 1; on Linux those through malloc count as well. There
// may be one at a time.
class FailingAllocation {
public:
    enum class Extent { One, AllFromThere };

    FailingAllocation(std::uint64_t number, Extent extent);
    ~FailingAllocation();
    FailingAllocation(const FailingAllocation&) = delete;
    FailingAllocation& operator=(const FailingAllocation&) = delete;

    // Whether an allocation has failed.
    static bool isReached();
};

} // namespace wybeta::tests
