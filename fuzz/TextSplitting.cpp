// SPDX-License-Identifier: GPL-3.0-or-later
//
// The first byte of the input is the greatest number of cuts less one, the second the length of the
// delimiter; the delimiter and the text follow. The text has to be cut as a naive reader cuts it,
// byte by byte, and joining the pieces has to give it back.
#include "fuzz/Check.h"
#include "text/Splitting.h"

#include <cctype>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace wybeta::fuzz {

namespace {

using Texts = std::vector<std::string>;

bool isBlank(char c) {
    return std::isspace(static_cast<unsigned char>(c)) != 0;
}

Texts naivelyCutAtSpace(const std::string& text, int maxSplits) {
    Texts pieces;
    bool isInPiece = false;
    for (const char c : text) {
        const bool isRest = maxSplits >= 0 && static_cast<int>(pieces.size()) > maxSplits;
        if (isBlank(c) && !isRest) {
            isInPiece = false;
            continue;
        }
        if (!isInPiece && !isRest) {
            pieces.emplace_back();
        }
        isInPiece = true;
        pieces.back() += c;
    }
    return pieces;
}

Texts naivelyCut(const std::string& text, const std::string& delimiter, int maxSplits) {
    Texts pieces(1);
    for (std::size_t i = 0; i < text.size();) {
        const bool mayCut = maxSplits < 0 || static_cast<int>(pieces.size()) <= maxSplits;
        if (mayCut && text.compare(i, delimiter.size(), delimiter) == 0) {
            pieces.emplace_back();
            i += delimiter.size();
        } else {
            pieces.back() += text[i++];
        }
    }
    return pieces;
}

std::string naivelyTrimmed(std::string text) {
    while (!text.empty() && isBlank(text.front())) {
        text.erase(0, 1);
    }
    while (!text.empty() && isBlank(text.back())) {
        text.pop_back();
    }
    return text;
}

void checkCuts(const std::string& text, const std::string& delimiter, int maxSplits) {
    const auto pieces = text::splitText(text, delimiter, maxSplits);
    checkEqual(Texts(pieces.begin(), pieces.end()), delimiter.empty()
                                                        ? naivelyCutAtSpace(text, maxSplits)
                                                        : naivelyCut(text, delimiter, maxSplits));
    if (!delimiter.empty()) {
        checkEqual(text::joinText(pieces, delimiter), text);
    }
    checkEqual(std::string(text::trimmed(text)), naivelyTrimmed(text));
}

} // namespace

} // namespace wybeta::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace wybeta::fuzz;
    if (size < 2) {
        return 0;
    }
    const int maxSplits = data[0] % 8 - 1;
    const std::size_t delimiterSize = data[1] % 4;
    const std::string rest(textOf(data + 2, size - 2));
    const auto delimiter = rest.substr(0, delimiterSize);
    checkCuts(rest.substr(delimiter.size()), delimiter, maxSplits);
    return 0;
}
