// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/program/TextFile.h"

#include "wysim/song/BadInput.h"
#include "wysim/words/Wording.h"

#include <filesystem>
#include <sstream>
#include <string_view>
#include <system_error>

namespace wybeta::wysim::program {

namespace {

// Some editors put it in front of a text in UTF-8.
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

std::string readAll(std::istream& stream) {
    std::string text(kLargestText + 1, '\0');
    stream.read(text.data(), static_cast<std::streamsize>(text.size()));
    text.resize(static_cast<std::size_t>(stream.gcount()));
    if (text.size() > kLargestText) {
        throw song::BadInput::expectedFound("a text of at most 1 MiB", "a larger one");
    }
    if (text.compare(0, kByteOrderMark.size(), kByteOrderMark) == 0) {
        text.erase(0, kByteOrderMark.size());
    }
    return text;
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

std::string readText(const std::string& name, std::istream& standardInput) {
    if (name == "-") {
        return readAll(standardInput);
    }
    auto file = openTextFile(name, "a text that can be read");
    return readAll(file);
}

std::vector<std::string> readTextLines(const std::string& name, std::istream& standardInput) {
    std::istringstream text(readText(name, standardInput));
    std::vector<std::string> lines;
    for (std::string line; std::getline(text, line);) {
        lines.emplace_back(words::withoutReturn(line));
    }
    return lines;
}

} // namespace wybeta::wysim::program
