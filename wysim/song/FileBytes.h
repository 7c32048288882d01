// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

namespace wybeta::wysim::song {

// The bytes of an ordinary file. Throws BadInput when it cannot be read, is another kind of file,
// such as a pipe, or holds more than 'limit' bytes.
std::string readFile(const std::filesystem::path& path, std::size_t limit);

// Replaces the file by the text, or leaves it as it was and throws BadInput. Where the path is a
// symbolic link, the file is the one that it leads to. Only ordinary files are replaced, and none
// that is read-only, even where the folder would allow it.
void writeFile(const std::filesystem::path& path, std::string_view text);

// Throws BadInput, which names the limit in MiB, when there are more bytes than it allows.
void expectSize(std::size_t bytes, std::size_t limit);

} // namespace wybeta::wysim::song
