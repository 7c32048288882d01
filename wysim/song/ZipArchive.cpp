// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/song/ZipArchive.h"

#include "wysim/song/BadInput.h"

#include <zlib.h>

#include <algorithm>

namespace wybeta::wysim::song {

namespace {

constexpr std::uint32_t kStored = 0;
constexpr std::uint32_t kDeflated = 8;
constexpr std::size_t kMaxPacked = 1032; // bytes in one deflated byte
constexpr std::size_t kEndSize = 22;

// Reads a record of little-endian fields in order, and never beyond the end.
class Record {
public:
    Record(std::string_view bytes, std::size_t offset) : bytes_(bytes), offset_(offset) {}

    std::string_view take(std::size_t size) {
        if (offset_ > bytes_.size() || size > bytes_.size() - offset_) {
            throw BadInput::expectedFound("a complete zip file", "its end too early");
        }
        const auto taken = bytes_.substr(offset_, size);
        offset_ += size;
        return taken;
    }
    std::uint32_t number(std::size_t size) {
        std::uint32_t value = 0;
        std::uint32_t shift = 0;
        for (const char byte : take(size)) {
            value |= static_cast<std::uint32_t>(static_cast<unsigned char>(byte)) << shift;
            shift += 8;
        }
        return value;
    }
    std::uint32_t two() { return number(2); }
    std::uint32_t four() { return number(4); }
    void skip(std::size_t size) { take(size); }
    void expectSignature(std::string_view signature) {
        if (take(signature.size()) != signature) {
            throw BadInput::expectedFound("a zip file", "a record that does not belong there");
        }
    }

private:
    std::string_view bytes_;
    std::size_t offset_;
};

// Stands at the end of the file, behind it a comment at most.
Record findEndRecord(std::string_view bytes) {
    constexpr std::string_view kSignature("PK\5\6", 4);
    const auto offset = bytes.size() < kEndSize ? std::string_view::npos
                                                : bytes.rfind(kSignature, bytes.size() - kEndSize);
    if (offset == std::string_view::npos) {
        throw BadInput::expectedFound("a zip file", "none, or one that is cut short");
    }
    return Record(bytes, offset + kSignature.size());
}

[[noreturn]] void refuseDamaged(std::string_view name) {
    throw BadInput::expectedFound("'" + std::string(name) + "' undamaged in the zip file",
                                  "other contents than its header states");
}

// Ends zlib's work whatever happens.
class Inflater {
public:
    explicit Inflater(std::string_view packed) {
        // zlib takes its input as non-const but leaves it alone.
        stream_.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(packed.data()));
        stream_.avail_in = static_cast<uInt>(packed.size());
        isReady_ = inflateInit2(&stream_, -MAX_WBITS) == Z_OK;
    }
    ~Inflater() {
        if (isReady_) {
            inflateEnd(&stream_);
        }
    }
    Inflater(const Inflater&) = delete;
    Inflater& operator=(const Inflater&) = delete;

    // Whether the input, all of it, gives exactly as many bytes as the text has.
    bool fill(std::string& text) {
        stream_.next_out = reinterpret_cast<Bytef*>(text.data());
        stream_.avail_out = static_cast<uInt>(text.size());
        return isReady_ && inflate(&stream_, Z_FINISH) == Z_STREAM_END && stream_.avail_out == 0 &&
               stream_.avail_in == 0;
    }

private:
    z_stream stream_{};
    bool isReady_ = false;
};

std::uint32_t checksumOf(const std::string& text) {
    return static_cast<std::uint32_t>(
        crc32_z(0, reinterpret_cast<const Bytef*>(text.data()), text.size()));
}

} // namespace

ZipArchive::ZipArchive(std::string_view bytes) : bytes_(bytes) {
    auto end = findEndRecord(bytes);
    const bool isOnePiece = end.two() == 0 && end.two() == 0;
    const auto count = end.two();
    if (!isOnePiece || end.two() != count) {
        throw BadInput::expectedFound("a zip file in one piece", "one of several");
    }
    end.skip(4); // the size of the directory, which its entries tell as well
    Record directory(bytes, end.four());
    for (std::uint32_t i = 0; i < count; ++i) {
        directory.expectSignature("PK\1\2");
        directory.skip(4); // versions
        Entry entry{};
        entry.isEncrypted = (directory.two() & 1) != 0;
        entry.method = directory.two();
        directory.skip(4); // time and date
        entry.checksum = directory.four();
        entry.packedSize = directory.four();
        entry.size = directory.four();
        const auto nameSize = directory.two();
        const auto extraSize = directory.two();
        const auto commentSize = directory.two();
        directory.skip(8); // disk and attributes
        entry.headerOffset = directory.four();
        entry.name = directory.take(nameSize);
        directory.skip(extraSize);
        directory.skip(commentSize);
        entries_.push_back(entry);
    }
}

const ZipArchive::Entry* ZipArchive::find(std::string_view name) const {
    const auto found = std::find_if(entries_.begin(), entries_.end(),
                                    [name](const auto& entry) { return entry.name == name; });
    return found == entries_.end() ? nullptr : &*found;
}

std::string_view ZipArchive::packedBytes(const Entry& entry) const {
    Record header(bytes_, entry.headerOffset);
    header.expectSignature("PK\3\4");
    header.skip(22); // what the directory tells as well
    const auto nameSize = header.two();
    const auto extraSize = header.two();
    if (header.take(nameSize) != entry.name) {
        refuseDamaged(entry.name);
    }
    header.skip(extraSize);
    return header.take(entry.packedSize);
}

std::string ZipArchive::unpack(std::string_view name, std::size_t limit) const {
    const auto* const entry = find(name);
    if (entry == nullptr) {
        throw BadInput::expectedFound("'" + std::string(name) + "' in the zip file",
                                      "no such file");
    }
    if (entry->isEncrypted || (entry->method != kStored && entry->method != kDeflated)) {
        throw BadInput::expectedFound("'" + std::string(name) +
                                          "' stored or deflated in the zip file",
                                      "it encrypted or packed otherwise");
    }
    if (entry->size > limit) {
        throw BadInput::expectedFound("at most " + std::to_string(limit) + " bytes in '" +
                                          std::string(name) + "'",
                                      std::to_string(entry->size));
    }
    const auto packed = packedBytes(*entry);
    std::string text;
    if (entry->method == kStored) {
        text = packed;
    } else if (packed.size() < entry->size / kMaxPacked) {
        refuseDamaged(name);
    } else {
        text.resize(entry->size);
        if (!Inflater(packed).fill(text)) {
            refuseDamaged(name);
        }
    }
    if (text.size() != entry->size || checksumOf(text) != entry->checksum) {
        refuseDamaged(name);
    }
    return text;
}

} // namespace wybeta::wysim::song
