// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace wybeta::wysim::song {

// A zip file in memory, as far as compressed scores use it: stored and deflated files without
// encryption.
class ZipArchive {
public:
    // The bytes have to outlive this. Throws BadInput.
    explicit ZipArchive(std::string_view bytes);
    ZipArchive(const ZipArchive&) = delete;
    ZipArchive& operator=(const ZipArchive&) = delete;

    // The names of its files, in their order.
    std::vector<std::string> names() const;
    // The unpacked file. Throws BadInput when it is missing, damaged or larger than 'limit' bytes.
    std::string unpack(const std::string& name, std::size_t limit) const;

private:
    struct Stream {
        std::string_view bytes;
        std::size_t offset;

        std::size_t read(char* buffer, std::size_t size);
        bool seek(std::size_t start, std::uint64_t distance);
    };
    struct Close {
        void operator()(void* archive) const;
    };

    Stream stream_;
    std::unique_ptr<void, Close> archive_; // reads from the stream
};

} // namespace wybeta::wysim::song
