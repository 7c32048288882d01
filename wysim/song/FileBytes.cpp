// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/song/FileBytes.h"

#include "wysim/song/BadInput.h"

#include <fstream>
#include <system_error>

namespace wybeta::wysim::song {

namespace {

namespace fs = std::filesystem;

// The file that a symbolic link leads to; any other path as it is.
fs::path targetOf(const fs::path& path, std::error_code& error) {
    std::error_code ignored;
    return fs::is_symlink(path, ignored) ? fs::canonical(path, error) : path;
}

// A name beside the file that nothing has yet.
fs::path unusedDraft(const fs::path& path) {
    auto draft = path;
    draft += ".part";
    std::error_code ignored;
    for (int number = 2; fs::exists(fs::symlink_status(draft, ignored)); ++number) {
        draft = path;
        draft += ".part" + std::to_string(number);
    }
    return draft;
}

const char* nameOf(fs::file_type kind) {
    switch (kind) {
    case fs::file_type::directory:
        return "a folder";
    case fs::file_type::character:
    case fs::file_type::block:
        return "a device";
    case fs::file_type::fifo:
        return "a pipe";
    case fs::file_type::socket:
        return "a socket";
    default:
        return "something else";
    }
}

void expectReplaceable(const fs::path& path) {
    std::error_code ignored;
    const auto status = fs::status(path, ignored);
    if (!fs::exists(status)) {
        return;
    }
    if (!fs::is_regular_file(status)) {
        throw BadInput::expectedFound("an ordinary file to write",
                                      nameOf(status.type()) + (" at " + path.u8string()));
    }
    // The administrator can open any file for writing, so the owner's permission counts as well.
    const bool isReadOnly = (status.permissions() & fs::perms::owner_write) == fs::perms::none ||
                            !std::fstream(path, std::ios::binary | std::ios::in | std::ios::out);
    if (isReadOnly) {
        throw BadInput::expectedFound("a file that may be written",
                                      "one that is read-only at " + path.u8string());
    }
}

// A file that nobody else may read stays one.
void keepPermissions(const fs::path& replaced, const fs::path& draft) {
    std::error_code ignored;
    const auto status = fs::status(replaced, ignored);
    if (fs::exists(status)) {
        fs::permissions(draft, status.permissions(), ignored);
    }
}

} // namespace

void expectSize(std::size_t bytes, std::size_t limit) {
    constexpr std::size_t kMebibyte = std::size_t{1024} * 1024;
    if (bytes > limit) {
        throw BadInput::expectedFound("a file of at most " + std::to_string(limit / kMebibyte) +
                                          " MiB",
                                      std::to_string(bytes) + " bytes");
    }
}

std::string readFile(const fs::path& path, std::size_t limit) {
    std::error_code ignored;
    const auto status = fs::status(path, ignored);
    if (fs::exists(status) && !fs::is_regular_file(status)) {
        throw BadInput::expectedFound("a file", nameOf(status.type()));
    }
    std::ifstream file(path, std::ios::binary | std::ios::ate);
    const auto size = static_cast<std::streamoff>(file.tellg());
    if (!file || size < 0) {
        throw BadInput::expectedFound("a file that can be read", "none");
    }
    expectSize(static_cast<std::size_t>(size), limit);
    std::string bytes(static_cast<std::size_t>(size), '\0');
    file.seekg(0);
    if (!file.read(bytes.data(), static_cast<std::streamsize>(size))) {
        throw BadInput::expectedFound("a file that can be read", "an error while reading it");
    }
    return bytes;
}

void writeFile(const fs::path& path, std::string_view text) {
    expectReplaceable(path);
    std::error_code error;
    const auto target = targetOf(path, error);
    const auto draft = unusedDraft(target);
    if (!error) {
        std::ofstream file(draft, std::ios::binary);
        keepPermissions(target, draft);
        file.write(text.data(), static_cast<std::streamsize>(text.size()));
        if (!file.flush()) {
            error = std::make_error_code(std::errc::io_error);
        }
    }
    if (!error) {
        fs::rename(draft, target, error);
    }
    if (error) {
        std::error_code ignored;
        fs::remove(draft, ignored);
        throw BadInput::expectedFound("to write " + path.u8string(), "that it cannot be written");
    }
}

} // namespace wybeta::wysim::song
