// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/song/XmlDocument.h"

#include "wysim/song/BadInput.h"
#include "wysim/song/Text.h"

#include <utf8cpp/utf8.h>

#include <cctype>
#include <new>
#include <utility>

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

// Where a text is no longer UTF-8; -1 when it is.
std::ptrdiff_t findInvalid(std::string_view text) {
    const auto* const end = text.data() + text.size();
    const auto* const invalid = utf8::find_invalid(text.data(), end);
    return invalid == end ? -1 : invalid - text.data();
}

// An element takes 64 bytes of memory however short it is. In scores, one stands in about 30 bytes
// of text; in the shortest that can be thought of, in 14.
void expectFewElements(std::string_view text) {
    constexpr std::ptrdiff_t kMost = 6'000'000;
    std::ptrdiff_t count = 0;
    for (auto place = text.find('<'); place < text.size(); place = text.find('<', place + 1)) {
        count += text.substr(place + 1, 1) == "/" ? 0 : 1;
    }
    if (count > kMost) {
        throw BadInput::expectedFound("a score of at most 6000000 elements", std::to_string(count));
    }
}

constexpr unsigned kOptions = pugi::parse_default | pugi::parse_embed_pcdata;

} // namespace

XmlDocument::XmlDocument(const std::string& bytes) : bytes_(bytes), hasPlaces_(true) {
    expectFewElements(bytes);
    expectRead(document_.load_buffer(bytes.data(), bytes.size(), kOptions), findInvalid(bytes));
}

XmlDocument::XmlDocument(UnpackedXml&& unpacked) : unpacked_(std::move(unpacked.text)) {
    expectFewElements(unpacked_);
    const auto invalid = findInvalid(unpacked_);
    expectRead(document_.load_buffer_inplace(unpacked_.data(), unpacked_.size(), kOptions),
               invalid);
}

void XmlDocument::expectRead(const pugi::xml_parse_result& result, std::ptrdiff_t invalid) {
    if (result.status == pugi::status_out_of_memory) {
        throw std::bad_alloc();
    }
    const bool isUtf8 = result.encoding == pugi::encoding_utf8;
    // Offsets into a text that the parser had to convert tell nothing about the file.
    hasPlaces_ = hasPlaces_ && isUtf8;
    if (isUtf8 && invalid >= 0) {
        throw BadInput::expectedFound("a text in UTF-8", "other bytes" + placeAt(invalid));
    }
    if (!result) {
        throw BadInput::expectedFound("well-formed XML",
                                      described(result) + placeAt(result.offset));
    }
}

std::string XmlDocument::placeAt(std::ptrdiff_t offset) const {
    return hasPlaces_ && offset >= 0 ? " " + song::placeAt(bytes_, static_cast<std::size_t>(offset))
                                     : std::string();
}

} // namespace wybeta::wysim::song
