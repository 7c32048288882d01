// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <pugixml.hpp>

#include <cstddef>
#include <string>

namespace wybeta::wysim::song {

// An XML document that has been found well-formed in all that matters to reading it: one root,
// matching tags, no attribute twice, no unknown entities, and only characters that XML allows.
class XmlDocument {
public:
    // Takes the bytes of a file, in any encoding that the file declares; they have to outlive this.
    // Throws BadInput.
    explicit XmlDocument(const std::string& bytes);

    pugi::xml_node root() const { return document_.document_element(); }
    // " at line 3, column 7": where a node begins in the file; empty when that is not known.
    std::string place(pugi::xml_node node) const;

private:
    std::string placeAt(std::ptrdiff_t offset) const;
    [[noreturn]] void refuse(const std::string& found, std::ptrdiff_t offset) const;
    void checkBytes() const;
    void checkUtf16(bool isBigEndian) const;
    void checkCharacters(const char* text, pugi::xml_node node) const;
    void checkTree();
    void checkElement(pugi::xml_node element) const;
    void checkMarks(pugi::xml_node node) const;
    void decodeTexts(pugi::xml_node node);
    std::string decoded(const char* text, pugi::xml_node node) const;

    const std::string& bytes_;
    bool hasPlaces_ = true;
    pugi::xml_document document_;
};

} // namespace wybeta::wysim::song
