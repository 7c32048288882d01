// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/song/XmlDocument.h"

#include "wysim/song/BadInput.h"
#include "wysim/song/Text.h"

#include <utf8cpp/utf8.h>

#include <cctype>

namespace wybeta::wysim::song {

namespace {

std::string described(const pugi::xml_parse_result& result) {
    if (result.status == pugi::status_no_document_element) {
        return "no element";
    }
    std::string text = result.description();
    text.front() = static_cast<char>(std::tolower(static_cast<unsigned char>(text.front())));
    return text;
}

} // namespace

XmlDocument::XmlDocument(const std::string& bytes) : bytes_(bytes) {
    const auto result = document_.load_buffer(bytes.data(), bytes.size());
    isUtf8_ = result.encoding == pugi::encoding_utf8;
    const auto invalid = utf8::find_invalid(bytes.begin(), bytes.end());
    if (isUtf8_ && invalid != bytes.end()) {
        throw BadInput::expectedFound("a text in UTF-8",
                                      "other bytes" + placeAt(invalid - bytes.begin()));
    }
    if (!result) {
        throw BadInput::expectedFound("well-formed XML",
                                      described(result) + placeAt(result.offset));
    }
}

std::string XmlDocument::placeAt(std::ptrdiff_t offset) const {
    // Offsets into a text that the parser had to convert tell nothing about the file.
    return isUtf8_ && offset >= 0 ? " " + song::placeAt(bytes_, static_cast<std::size_t>(offset))
                                  : std::string();
}

} // namespace wybeta::wysim::song
