// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <pugixml.hpp>

#include <cstddef>
#include <string>

namespace wybeta::wysim::song {

// An XML document, read as leniently as pugixml does: what it does not know it takes as text.
class XmlDocument {
public:
    // Takes the bytes of a file in UTF-8, or in UTF-16, UTF-32 or Latin-1 when the file says so;
    // they have to outlive this. Throws BadInput.
    explicit XmlDocument(const std::string& bytes);

    pugi::xml_node root() const { return document_.document_element(); }
    // " at line 3, column 7": where a node begins in the file; empty when the file is not in UTF-8.
    std::string place(pugi::xml_node node) const { return placeAt(node.offset_debug()); }

private:
    std::string placeAt(std::ptrdiff_t offset) const;

    const std::string& bytes_;
    bool isUtf8_ = true;
    pugi::xml_document document_;
};

} // namespace wybeta::wysim::song
