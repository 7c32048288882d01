// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace wybeta::wysim::song {

// A zip file in memory, as far as compressed scores use it: stored and deflated files, in one
// piece, without encryption. Every offset and size that the file states is checked before use.
class ZipArchive {
public:
    // The bytes have to outlive this. Throws BadInput.
    explicit ZipArchive(std::string_view bytes);

    bool holds(std::string_view name) const { return find(name) != nullptr; }
    // The unpacked file. Throws BadInput when it is missing, damaged or larger than 'limit' bytes.
    std::string unpack(std::string_view name, std::size_t limit) const;

private:
    struct Entry {
        std::string_view name;
        std::uint32_t method;
        std::uint32_t checksum;
        std::uint32_t packedSize;
        std::uint32_t size;
        std::uint32_t headerOffset;
        bool isEncrypted;
    };

    const Entry* find(std::string_view name) const;
    std::string_view packedBytes(const Entry& entry) const;

    std::string_view bytes_;
    std::vector<Entry> entries_;
};

} // namespace wybeta::wysim::song
