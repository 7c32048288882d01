// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/Splitting.h"

#include <algorithm>
#include <cstddef>
#include <limits>

namespace wybeta::text {

namespace {

std::string_view withoutLeadingSpace(std::string_view text) {
    const auto first = std::find_if_not(text.begin(), text.end(), isSpace);
    text.remove_prefix(static_cast<std::size_t>(first - text.begin()));
    return text;
}

std::size_t sizeOfSymbol(std::string_view text) {
    const auto end = std::find_if(text.begin(), text.end(), isSpace);
    return static_cast<std::size_t>(end - text.begin());
}

std::vector<std::string_view> splitAtSpace(std::string_view text, std::size_t maxSplits) {
    std::vector<std::string_view> pieces;
    while (!(text = withoutLeadingSpace(text)).empty()) {
        const std::size_t size = pieces.size() < maxSplits ? sizeOfSymbol(text) : text.size();
        pieces.push_back(text.substr(0, size));
        text.remove_prefix(size);
    }
    return pieces;
}

std::vector<std::string_view> splitAtDelimiter(std::string_view text, std::string_view delimiter,
                                               std::size_t maxSplits) {
    std::vector<std::string_view> pieces;
    forEachSplit(
        text, delimiter, [&pieces](std::string_view piece) { pieces.push_back(piece); }, maxSplits);
    return pieces;
}

} // namespace

std::string_view trimmed(std::string_view text) {
    text = withoutLeadingSpace(text);
    while (!text.empty() && isSpace(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

std::vector<std::string_view> splitText(std::string_view text, std::string_view delimiter,
                                        int maxSplits) {
    const std::size_t limit = maxSplits < 0 ? std::numeric_limits<std::size_t>::max()
                                            : static_cast<std::size_t>(maxSplits);
    return delimiter.empty() ? splitAtSpace(text, limit) : splitAtDelimiter(text, delimiter, limit);
}

std::string joinText(const std::vector<std::string_view>& pieces, std::string_view separator) {
    std::string text;
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        if (i != 0) {
            text += separator;
        }
        text += pieces[i];
    }
    return text;
}

} // namespace wybeta::text
