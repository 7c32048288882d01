// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/terminal/TextTable.h"

#include <utf8cpp/utf8.h>

#include <algorithm>
#include <cstddef>
#include <utility>

namespace wybeta::wysim::terminal {

namespace {

// The scripts from Hangul on fill two columns of a terminal.
bool isWide(char32_t character) {
    return character >= 0x1100;
}

std::size_t widthOf(const std::string& utf8) {
    std::size_t width = 0;
    for (auto next = utf8.begin(); next != utf8.end();) {
        width += isWide(utf8::next(next, utf8.end())) ? 2 : 1;
    }
    return width;
}

std::string withoutTrailingSpace(std::string line) {
    line.erase(line.find_last_not_of(' ') + 1);
    return line;
}

} // namespace

void TextTable::add(std::vector<std::string> cells) {
    rows_.push_back(std::move(cells));
}

std::string TextTable::text() const {
    std::vector<std::size_t> widths(rows_.front().size());
    for (const auto& row : rows_) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            widths[i] = std::max(widths[i], widthOf(row[i]));
        }
    }
    std::string text;
    for (const auto& row : rows_) {
        std::string line;
        for (std::size_t i = 0; i < row.size(); ++i) {
            line += "  " + row[i] + std::string(widths[i] - widthOf(row[i]), ' ');
        }
        text += withoutTrailingSpace(line) + "\n";
    }
    return text;
}

} // namespace wybeta::wysim::terminal
