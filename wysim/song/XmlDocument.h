// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <pugixml.hpp>

#include <cstddef>
#include <string>
#include <string_view>

namespace wybeta::wysim::song {

// An XML text out of a compressed score. Nobody sees its lines, and nothing needs it afterwards.
struct UnpackedXml {
    std::string text;
};

// An XML document, read as leniently as pugixml does: what it does not know it takes as text. An
// element holds the text that it begins with as its value, which saves a node for it.
class XmlDocument {
public:
    // Takes the bytes of a file in UTF-8, or in UTF-16, UTF-32 or Latin-1 when the file says so;
    // they have to outlive this. Throws BadInput, and std::bad_alloc when there is no memory left.
    explicit XmlDocument(const std::string& bytes);
    // The same of an unpacked text, in whose place the document is: that needs no second one.
    explicit XmlDocument(UnpackedXml&& unpacked);
    XmlDocument(const XmlDocument&) = delete;
    XmlDocument& operator=(const XmlDocument&) = delete;

    pugi::xml_node root() const { return document_.document_element(); }
    // " at line 3, column 7": where a node begins in the file; empty when the file is not in UTF-8
    // or was unpacked.
    std::string place(pugi::xml_node node) const { return placeAt(node.offset_debug()); }

private:
    void expectRead(const pugi::xml_parse_result& result, std::ptrdiff_t invalid);
    std::string placeAt(std::ptrdiff_t offset) const;

    std::string unpacked_;   // the document is made of it
    std::string_view bytes_; // of a file, to find lines in
    bool hasPlaces_ = false;
    pugi::xml_document document_;
};

} // namespace wybeta::wysim::song
