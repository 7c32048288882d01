// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/song/ZipArchive.h"

#include "wysim/song/BadInput.h"
#include "wysim/song/Text.h"

#include <contrib/minizip/unzip.h>

#include <algorithm>
#include <array>

namespace wybeta::wysim::song {

namespace {

constexpr int kHeedCase = 1;

bool isStoredOrDeflated(const unz_file_info64& info) {
    const bool isEncrypted = (info.flag & 1) != 0;
    return !isEncrypted && (info.compression_method == 0 || info.compression_method == Z_DEFLATED);
}

// The current file of the archive, but for an error in it as far as it can be read. It is never
// longer than its size, so no memory goes to a text that grows.
std::string readCurrent(unzFile archive, std::size_t unpackedSize) {
    std::string text;
    text.reserve(unpackedSize);
    std::array<char, 65536> piece;
    int size = unzOpenCurrentFile(archive) == UNZ_OK ? 1 : 0;
    while (size > 0) {
        size = unzReadCurrentFile(archive, piece.data(), static_cast<unsigned>(piece.size()));
        text.append(piece.data(), static_cast<std::size_t>(std::max(size, 0)));
    }
    return text;
}

} // namespace

void ZipArchive::Close::operator()(void* archive) const {
    unzClose(archive);
}

std::size_t ZipArchive::Stream::read(char* buffer, std::size_t size) {
    const auto piece = bytes.substr(offset, size);
    std::copy(piece.begin(), piece.end(), buffer);
    offset += piece.size();
    return piece.size();
}

bool ZipArchive::Stream::seek(std::size_t start, std::uint64_t distance) {
    const bool isInside = distance <= bytes.size() - start;
    offset = isInside ? start + static_cast<std::size_t>(distance) : offset;
    return isInside;
}

ZipArchive::ZipArchive(std::string_view bytes) : stream_{bytes, 0} {
    zlib_filefunc64_def functions{};
    functions.opaque = &stream_;
    functions.zopen64_file = [](void* stream, const void*, int) { return stream; };
    functions.zread_file = [](void*, void* stream, void* buffer, uLong size) {
        return static_cast<uLong>(
            static_cast<Stream*>(stream)->read(static_cast<char*>(buffer), size));
    };
    functions.ztell64_file = [](void*, void* stream) -> ZPOS64_T {
        return static_cast<Stream*>(stream)->offset;
    };
    functions.zseek64_file = [](void*, void* opened, ZPOS64_T distance, int origin) {
        auto& stream = *static_cast<Stream*>(opened);
        const auto start = origin == ZLIB_FILEFUNC_SEEK_END   ? stream.bytes.size()
                           : origin == ZLIB_FILEFUNC_SEEK_CUR ? stream.offset
                                                              : 0;
        return stream.seek(start, distance) ? 0L : -1L;
    };
    functions.zclose_file = functions.zerror_file = [](void*, void*) { return 0; };
    archive_.reset(unzOpen2_64("", &functions));
    if (!archive_) {
        throw BadInput::expectedFound("a zip file", "none, or one that is damaged");
    }
}

std::vector<std::string> ZipArchive::names() const {
    std::vector<std::string> names;
    std::array<char, 1024> name{};
    for (int status = unzGoToFirstFile(archive_.get()); status == UNZ_OK;
         status = unzGoToNextFile(archive_.get())) {
        unzGetCurrentFileInfo64(archive_.get(), nullptr, name.data(), name.size() - 1, nullptr, 0,
                                nullptr, 0);
        names.emplace_back(name.data());
    }
    return names;
}

std::string ZipArchive::unpack(const std::string& name, std::size_t limit) const {
    unz_file_info64 info{};
    if (unzLocateFile(archive_.get(), name.c_str(), kHeedCase) != UNZ_OK ||
        unzGetCurrentFileInfo64(archive_.get(), &info, nullptr, 0, nullptr, 0, nullptr, 0) !=
            UNZ_OK) {
        throw BadInput::expectedFound(inQuotes(name) + " in the zip file", "no such file");
    }
    if (!isStoredOrDeflated(info)) {
        throw BadInput::expectedFound(inQuotes(name) + " stored or deflated in the zip file",
                                      "it encrypted or packed otherwise");
    }
    if (info.uncompressed_size > limit) {
        throw BadInput::expectedFound("at most " + std::to_string(limit) + " bytes in " +
                                          inQuotes(name),
                                      std::to_string(info.uncompressed_size));
    }
    auto text = readCurrent(archive_.get(), static_cast<std::size_t>(info.uncompressed_size));
    if (unzCloseCurrentFile(archive_.get()) != UNZ_OK || text.size() != info.uncompressed_size) {
        throw BadInput::expectedFound(inQuotes(name) + " undamaged in the zip file",
                                      "other contents than its header states");
    }
    return text;
}

} // namespace wybeta::wysim::song
