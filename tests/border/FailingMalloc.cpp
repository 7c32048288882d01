// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/border/FailingMalloc.h"

#include <cstddef>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

#include <windows.h>

namespace wybeta::tests {

namespace {

// Of 0, no allocation is to fail.
std::uint64_t numberToFail = 0;
std::uint64_t allocations = 0;

void* allocate(std::size_t size) {
    const bool isToFail = numberToFail != 0 && ++allocations == numberToFail;
    return isToFail ? nullptr : std::malloc(size);
}

// A table of the module file, as it lies in memory.
template <class Entry>
Entry* tableAt(std::byte* module, DWORD offset) {
    return reinterpret_cast<Entry*>(module + offset);
}

// Where the module keeps the address of a function of another DLL. Null when it imports none of
// that name.
void** findImport(std::byte* module, std::string_view name) {
    const auto start = static_cast<DWORD>(tableAt<IMAGE_DOS_HEADER>(module, 0)->e_lfanew);
    const auto& directory = tableAt<IMAGE_NT_HEADERS>(module, start)
                                ->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    const auto* dll = tableAt<IMAGE_IMPORT_DESCRIPTOR>(module, directory.VirtualAddress);
    for (; dll->Name != 0; ++dll) {
        const auto* function = tableAt<IMAGE_THUNK_DATA>(module, dll->OriginalFirstThunk);
        auto* address = tableAt<void*>(module, dll->FirstThunk);
        for (; function->u1.AddressOfData != 0; ++function, ++address) {
            const auto offset = static_cast<DWORD>(function->u1.AddressOfData);
            if (name == tableAt<IMAGE_IMPORT_BY_NAME>(module, offset)->Name) {
                return address;
            }
        }
    }
    return nullptr;
}

// The table of addresses may be read-only once the module is loaded.
void* replace(void** import, void* function) {
    DWORD protection = 0;
    VirtualProtect(import, sizeof(*import), PAGE_READWRITE, &protection);
    void* const replaced = std::exchange(*import, function);
    VirtualProtect(import, sizeof(*import), protection, &protection);
    return replaced;
}

} // namespace

FailingMalloc::FailingMalloc(const std::filesystem::path& module) : import_(nullptr) {
    const HMODULE loaded = GetModuleHandleW(module.filename().c_str());
    if (loaded != nullptr) {
        import_ = findImport(reinterpret_cast<std::byte*>(loaded), "malloc");
    }
    if (import_ == nullptr) {
        throw std::runtime_error("expected a loaded module that imports malloc, found none named " +
                                 module.filename().string());
    }
    replace(import_, reinterpret_cast<void*>(&allocate));
}

FailingMalloc::~FailingMalloc() {
    numberToFail = 0;
    replace(import_, reinterpret_cast<void*>(&std::malloc));
}

void FailingMalloc::failAt(std::uint64_t number) {
    allocations = 0;
    numberToFail = number;
}

bool FailingMalloc::stop() {
    return allocations >= std::exchange(numberToFail, 0);
}

} // namespace wybeta::tests
