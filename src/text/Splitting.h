// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace wybeta::text {

// White space as the C locale has it: space, TAB, LF, VT, FF and CR.
inline bool isSpace(char byte) {
    return byte == ' ' || (byte >= '\t' && byte <= '\r');
}

// The text without the white space at both of its ends.
std::string_view trimmed(std::string_view text);

// Calls `callback` for each piece that splitText would give, without building a list; the delimiter
// must not be empty. After `maxSplits` cuts the rest is one piece.
template <class Callback>
void forEachSplit(std::string_view text, std::string_view delimiter, Callback callback,
                  std::size_t maxSplits = std::numeric_limits<std::size_t>::max()) {
    auto cut = text.find(delimiter);
    for (; cut != std::string_view::npos && maxSplits != 0; --maxSplits) {
        callback(text.substr(0, cut));
        text.remove_prefix(cut + delimiter.size());
        cut = text.find(delimiter);
    }
    callback(text);
}

// Cuts a text at every occurrence of the delimiter, from the left, keeping empty pieces; so there
// is always one piece at least. With an empty delimiter it cuts at runs of white space and keeps no
// empty pieces. After `maxSplits` cuts the rest is one piece; a negative number sets no limit. The
// pieces are views into the text.
std::vector<std::string_view> splitText(std::string_view text, std::string_view delimiter,
                                        int maxSplits = -1);

// The pieces in order, with the separator between each two of them.
std::string joinText(const std::vector<std::string_view>& pieces, std::string_view separator);

} // namespace wybeta::text
