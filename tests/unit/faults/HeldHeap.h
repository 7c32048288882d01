// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

namespace wybeta::tests {

// What the program has from operator new and has not given back.
struct HeldHeap {
    std::int64_t blocks;
    std::int64_t bytes; // as large as the blocks really are
};

// Of now. Kept by the operators that FailingAllocation makes fail.
HeldHeap heldHeap();

} // namespace wybeta::tests
