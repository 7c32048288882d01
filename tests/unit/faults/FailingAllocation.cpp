// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/unit/faults/FailingAllocation.h"

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

void* allocate(std::size_t size) noexcept {
    return isToFail() ? nullptr : std::malloc(size != 0 ? size : 1);
}

} // namespace

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
    std::free(memory);
}

void operator delete(void* memory, std::size_t /*size*/) noexcept {
    std::free(memory);
}

void operator delete(void* memory, const std::nothrow_t& /*tag*/) noexcept {
    std::free(memory);
}
