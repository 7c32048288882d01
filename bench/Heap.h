// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>

namespace wybeta::bench {

// What this program, with the libraries it loaded, has from operator new.
struct Heap {
    std::size_t used = 0; // bytes of all blocks, as large as they really are
    std::size_t peak = 0; // most of them at once
    std::size_t allocations = 0;
};

Heap& heap();

} // namespace wybeta::bench
