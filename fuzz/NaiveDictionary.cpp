// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/NaiveDictionary.h"

#include <cctype>
#include <cstddef>
#include <string>
#include <vector>

namespace wybeta::fuzz {

namespace {

using Texts = std::vector<std::string>;

Texts linesOf(std::string_view text) {
    Texts lines;
    std::size_t position = 0;
    while (position < text.size()) {
        std::string line;
        while (position < text.size() && text[position] != '\n' && text[position] != '\r') {
            line += text[position++];
        }
        const bool isCrLf = text.substr(position, 2) == "\r\n";
        position += isCrLf ? 2 : 1;
        lines.push_back(line);
    }
    return lines;
}

bool isBlank(char c) {
    return std::isspace(static_cast<unsigned char>(c)) != 0;
}

std::string trimmed(std::string line) {
    while (!line.empty() && isBlank(line.back())) {
        line.pop_back();
    }
    while (!line.empty() && isBlank(line.front())) {
        line.erase(0, 1);
    }
    return line;
}

Texts fieldsOf(const std::string& line) {
    Texts fields(1);
    for (const char c : line) {
        if (c == '\t') {
            fields.emplace_back();
        } else {
            fields.back() += c;
        }
    }
    return fields;
}

std::string withoutStress(const std::string& phonemes) {
    std::string text;
    for (const char c : phonemes) {
        if (c != '0' && c != '1' && c != '2') {
            text += c;
        }
    }
    return text;
}

} // namespace

tests::NaiveWords naiveDictionary(std::string_view text) {
    tests::NaiveWords words;
    for (const auto& line : linesOf(text)) {
        const auto fields = fieldsOf(trimmed(line));
        if (fields.size() == 3) {
            words[fields[0]] = {withoutStress(fields[1]), fields[2]};
        }
    }
    return words;
}

} // namespace wybeta::fuzz
