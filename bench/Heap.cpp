// SPDX-License-Identifier: GPL-3.0-or-later
#include "bench/Heap.h"

#include <malloc.h>

#include <algorithm>
#include <cstdlib>
#include <new>

namespace wybeta::bench {

Heap& heap() {
    static Heap counted;
    return counted;
}

} // namespace wybeta::bench

// Not inlined, or the compiler would see blocks of malloc given to operator delete, and warn.
[[gnu::noinline]] void* operator new(std::size_t size) {
    void* const block = std::malloc(size);
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    auto& heap = wybeta::bench::heap();
    heap.used += malloc_usable_size(block);
    heap.peak = std::max(heap.peak, heap.used);
    ++heap.allocations;
    return block;
}

[[gnu::noinline]] void operator delete(void* block) noexcept {
    wybeta::bench::heap().used -= malloc_usable_size(block);
    std::free(block);
}

[[gnu::noinline]] void operator delete(void* block, std::size_t /*size*/) noexcept {
    operator delete(block);
}
