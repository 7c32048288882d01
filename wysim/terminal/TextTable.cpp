// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/terminal/TextTable.h"

#include "wysim/terminal/CharacterWidth.h"

#include <utf8cpp/utf8.h>

#include <algorithm>
#include <cstddef>

namespace wybeta::wysim::terminal {

namespace {

std::size_t columnsOf(const std::string& utf8) {
    std::size_t columns = 0;
    for (auto next = utf8.begin(); next != utf8.end();) {
        columns += isWide(utf8::next(next, utf8.end())) ? 2 : 1;
    }
    return columns;
}

} // namespace

std::string TextTable::text() const {
    std::vector<std::size_t> widths(rows_.front().size());
    for (const auto& row : rows_) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            widths[i] = std::max(widths[i], columnsOf(row[i]));
        }
    }
    std::string text;
    for (const auto& row : rows_) {
        std::string line;
        for (std::size_t i = 0; i < row.size(); ++i) {
            line += "  " + row[i] + std::string(widths[i] - columnsOf(row[i]), ' ');
        }
        line.erase(line.find_last_not_of(' ') + 1);
        text += line + "\n";
    }
    return text;
}

} // namespace wybeta::wysim::terminal
