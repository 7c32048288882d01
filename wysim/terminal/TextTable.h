// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace wybeta::wysim::terminal {

// A table for a terminal: columns as wide as their widest cell, kana and kanji counted as two.
class TextTable {
public:
    explicit TextTable(std::vector<std::string> headings) { add(std::move(headings)); }

    // As many UTF-8 cells as there are headings.
    void add(std::vector<std::string> cells) { rows_.push_back(std::move(cells)); }
    std::string text() const;

private:
    std::vector<std::vector<std::string>> rows_;
};

} // namespace wybeta::wysim::terminal
