// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string_view>

namespace wybeta::resources {

// A file that is built into the library. All of it lives as long as the library is loaded.
struct Resource {
    std::string_view name;     // the key for findResource
    std::string_view fileName; // of the source file
    const char* data;          // `size` bytes, and a zero byte behind them
    std::int32_t size;
};

// The resource of this name, null if there is none.
const Resource* findResource(std::string_view name);

} // namespace wybeta::resources
