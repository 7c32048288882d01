// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/unit/faults/FailingAllocation.h"

#include "tests/unit/faults/HeldHeap.h"

#include <malloc.h>

#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <new>

namespace wybeta::tests {

namespace {

// Of 0, no allocation is to fail.
std::uint64_t numberToFail = 0;
FailingAllocation::Extent extentOfFailure = FailingAllocation::Extent::One;
std::uint64_t allocations = 0;

bool isToFail() {
    if (numberToFail == 0) {
        return false;
    }
    ++allocations;
    return extentOfFailure == FailingAllocation::Extent::One ? allocations == numberToFail
                                                             : allocations >= numberToFail;
}

} // namespace

#ifdef _WIN32
// No more than operator new: GCC's run-time library is in the program there, and takes memory by
// malloc when it throws.
static void* mallocOrFail(std::size_t size) {
    return isToFail() ? nullptr : std::malloc(size);
}
#else
// NOLINTBEGIN(bugprone-reserved-identifier): the linker, which is told to wrap malloc, names them.
extern "C" void* __real_malloc(std::size_t size);

// What all of the program calls for malloc, by which the SDK takes some of its memory.
extern "C" void* __wrap_malloc(std::size_t size) {
    return isToFail() ? nullptr : __real_malloc(size);
}

static void* mallocOrFail(std::size_t size) {
    return __wrap_malloc(size);
}
// NOLINTEND(bugprone-reserved-identifier)
#endif

namespace {

std::atomic<std::int64_t> heldBlocks = 0;
std::atomic<std::int64_t> heldBytes = 0;

// Enters blocks of that memory: one that is new, or one less.
void enter(void* memory, int blocks) {
#ifdef _WIN32
    const std::size_t size = _msize(memory);
#else
    const std::size_t size = malloc_usable_size(memory);
#endif
    heldBlocks.fetch_add(blocks, std::memory_order_relaxed);
    heldBytes.fetch_add(blocks * static_cast<std::int64_t>(size), std::memory_order_relaxed);
}

void* allocate(std::size_t size) noexcept {
    void* const memory = mallocOrFail(size != 0 ? size : 1);
    if (memory != nullptr) {
        enter(memory, 1);
    }
    return memory;
}

void free(void* memory) noexcept {
    if (memory != nullptr) {
        enter(memory, -1);
        std::free(memory);
    }
}

} // namespace

HeldHeap heldHeap() {
    return {heldBlocks, heldBytes};
}

FailingAllocation::FailingAllocation(std::uint64_t number, Extent extent) {
    numberToFail = number;
    extentOfFailure = extent;
    allocations = 0;
}

FailingAllocation::~FailingAllocation() {
    numberToFail = 0;
}

bool FailingAllocation::isReached() {
    return allocations >= numberToFail;
}

} // namespace wybeta::tests

void* operator new(std::size_t size) {
    if (void* const memory = wybeta::tests::allocate(size)) {
        return memory;
    }
    throw std::bad_alloc();
}

void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    return wybeta::tests::allocate(size);
}

void operator delete(void* memory) noexcept {
    wybeta::tests::free(memory);
}

void operator delete(void* memory, std::size_t /*size*/) noexcept {
    wybeta::tests::free(memory);
}

void operator delete(void* memory, const std::nothrow_t& /*tag*/) noexcept {
    wybeta::tests::free(memory);
}
