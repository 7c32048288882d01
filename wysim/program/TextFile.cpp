// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/program/TextFile.h"

#include "wysim/song/BadInput.h"
#include "wysim/words/Wording.h"

#include <filesystem>
#include <string_view>
#include <system_error>

namespace wybeta::wysim::program {

namespace {

// Some editors put it in front of a text in UTF-8.
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

std::vector<std::string> readLines(std::istream& text) {
    std::vector<std::string> lines;
    std::size_t size = 0;
    for (std::string line; std::getline(text, line);) {
        size += line.size() + 1;
        if (size > kLargestText) {
            throw song::BadInput::expectedFound("a text of at most 1 MiB", "a larger one");
        }
        if (lines.empty() && line.compare(0, kByteOrderMark.size(), kByteOrderMark) == 0) {
            line.erase(0, kByteOrderMark.size());
        }
        lines.emplace_back(words::withoutReturn(line));
    }
    return lines;
}

} // namespace

std::ifstream openTextFile(const std::string& name, const std::string& expected) {
    const auto path = std::filesystem::u8path(name);
    std::ifstream file(path, std::ios::binary);
    std::error_code ignored;
    if (!file || std::filesystem::is_directory(path, ignored)) {
        throw song::BadInput::expectedFound(expected, "none at " + name);
    }
    return file;
}

std::vector<std::string> readTextLines(const std::string& name, std::istream& standardInput) {
    if (name == "-") {
        return readLines(standardInput);
    }
    auto file = openTextFile(name, "a text that can be read");
    return readLines(file);
}

} // namespace wybeta::wysim::program
