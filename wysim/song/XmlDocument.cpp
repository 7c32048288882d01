// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/song/XmlDocument.h"

#include "wysim/song/BadInput.h"

#include <utf8cpp/utf8.h>

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cstdint>
#include <optional>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

namespace wybeta::wysim::song {

namespace {

// Entities are decoded here, because the parser would let unknown ones pass. What stands outside
// the root is kept to be looked at, and so is what holds no text of the score.
constexpr unsigned int kOptions = (pugi::parse_default & ~pugi::parse_escapes) |
                                  pugi::parse_fragment | pugi::parse_comments |
                                  pugi::parse_declaration | pugi::parse_doctype;

bool isXmlCharacter(char32_t character) {
    const bool isControl =
        character < 0x20 && character != '\t' && character != '\n' && character != '\r';
    return !isControl && !(character >= 0xD800 && character <= 0xDFFF) && character != 0xFFFE &&
           character != 0xFFFF && character <= 0x10FFFF;
}

// "#x3042" or "#12354".
std::optional<char32_t> numberedCharacter(std::string_view name) {
    const bool isHexadecimal = name.size() > 1 && name[1] == 'x';
    name.remove_prefix(isHexadecimal ? 2 : 1);
    std::uint32_t value = 0;
    const char* const end = name.data() + name.size();
    const auto [stop, error] = std::from_chars(name.data(), end, value, isHexadecimal ? 16 : 10);
    const bool isCharacter = error == std::errc() && stop == end && isXmlCharacter(value);
    return isCharacter ? std::optional<char32_t>(value) : std::nullopt;
}

// The character that "&name;" stands for.
std::optional<char32_t> characterOf(std::string_view name) {
    if (!name.empty() && name.front() == '#') {
        return numberedCharacter(name);
    }
    constexpr std::pair<std::string_view, char32_t> kKnown[] = {
        {"amp", '&'}, {"lt", '<'}, {"gt", '>'}, {"quot", '"'}, {"apos", '\''}};
    for (const auto& [known, character] : kKnown) {
        if (name == known) {
            return character;
        }
    }
    return std::nullopt;
}

std::string inSentence(const char* description) {
    std::string text = description;
    text.front() = static_cast<char>(std::tolower(static_cast<unsigned char>(text.front())));
    return text;
}

bool isBlank(std::string_view text) {
    return text.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

bool holds(std::string_view text, std::string_view mark) {
    return text.find(mark) != std::string_view::npos;
}

// Whether the node is within an element or comes after one.
bool isBehindElement(pugi::xml_node node) {
    for (auto other = node.previous_sibling(); other; other = other.previous_sibling()) {
        if (other.type() == pugi::node_element) {
            return true;
        }
    }
    return node.parent().type() == pugi::node_element;
}

bool hasText(pugi::xml_node node) {
    return node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata;
}

// The node that follows in the order of the file; null after the last one.
pugi::xml_node following(pugi::xml_node node) {
    if (!node.first_child().empty()) {
        return node.first_child();
    }
    while (!node.empty() && node.next_sibling().empty()) {
        node = node.parent();
    }
    return node.next_sibling();
}

} // namespace

XmlDocument::XmlDocument(const std::string& bytes) : bytes_(bytes) {
    const auto result = document_.load_buffer(bytes.data(), bytes.size(), kOptions);
    // Offsets into a text that the parser had to convert tell nothing about the file.
    hasPlaces_ = result.encoding == pugi::encoding_utf8;
    if (hasPlaces_) {
        checkBytes();
    }
    if (result.encoding == pugi::encoding_utf16_le || result.encoding == pugi::encoding_utf16_be) {
        checkUtf16(result.encoding == pugi::encoding_utf16_be);
    }
    if (!result) {
        refuse(inSentence(result.description()), result.offset);
    }
    checkTree();
}

std::string XmlDocument::place(pugi::xml_node node) const {
    return placeAt(node.offset_debug());
}

std::string XmlDocument::placeAt(std::ptrdiff_t offset) const {
    if (!hasPlaces_ || offset < 0) {
        return {};
    }
    const auto end = std::min(static_cast<std::size_t>(offset), bytes_.size());
    const auto line =
        1 + std::count(bytes_.begin(), bytes_.begin() + static_cast<std::ptrdiff_t>(end), '\n');
    const auto lineBreak = end == 0 ? std::string::npos : bytes_.rfind('\n', end - 1);
    const auto column = lineBreak == std::string::npos ? end + 1 : end - lineBreak;
    return " at line " + std::to_string(line) + ", column " + std::to_string(column);
}

void XmlDocument::refuse(const std::string& found, std::ptrdiff_t offset) const {
    throw BadInput::expectedFound("well-formed XML", found + placeAt(offset));
}

void XmlDocument::checkBytes() const {
    const auto invalid = utf8::find_invalid(bytes_.begin(), bytes_.end());
    if (invalid != bytes_.end()) {
        refuse("bytes that are not UTF-8", invalid - bytes_.begin());
    }
    const auto control = std::find_if(bytes_.begin(), bytes_.end(), [](char byte) {
        return !isXmlCharacter(static_cast<unsigned char>(byte));
    });
    if (control != bytes_.end()) {
        refuse("a control character", control - bytes_.begin());
    }
}

// The parser passes over halves of surrogate pairs.
void XmlDocument::checkUtf16(bool isBigEndian) const {
    bool isPairOpen = false;
    for (std::size_t i = 0; i + 1 < bytes_.size(); i += 2) {
        const auto kind = static_cast<unsigned char>(bytes_[isBigEndian ? i : i + 1]) & 0xFC;
        if (isPairOpen != (kind == 0xDC)) {
            refuse("half of a surrogate pair", -1);
        }
        isPairOpen = kind == 0xD8;
    }
    if (isPairOpen || bytes_.size() % 2 != 0) {
        refuse("half of a character at the end", -1);
    }
}

void XmlDocument::checkCharacters(const char* text, pugi::xml_node node) const {
    const std::string_view utf8 = text;
    bool isRight = utf8::is_valid(utf8.begin(), utf8.end());
    for (auto next = utf8.begin(); isRight && next != utf8.end();) {
        isRight = isXmlCharacter(utf8::next(next, utf8.end()));
    }
    if (!isRight) {
        refuse("a character that XML does not allow", node.offset_debug());
    }
}

void XmlDocument::checkTree() {
    bool hasRoot = false;
    for (auto node = document_.first_child(); node; node = node.next_sibling()) {
        if (hasText(node) && !isBlank(node.value())) {
            refuse("text outside the root element", node.offset_debug());
        }
        if (node.type() == pugi::node_element && std::exchange(hasRoot, true)) {
            refuse("a second root element", node.offset_debug());
        }
    }
    if (!hasRoot) {
        refuse("no root element", -1);
    }
    for (auto node = document_.first_child(); node; node = following(node)) {
        checkElement(node);
        checkMarks(node);
        decodeTexts(node);
    }
}

// The parser passes over marks that may not stand where they do. Entities are not decoded yet.
void XmlDocument::checkMarks(pugi::xml_node node) const {
    const std::string_view text = node.value();
    const auto offset = node.offset_debug();
    if (node.type() == pugi::node_comment && holds(std::string(text) + "-", "--")) {
        refuse("'--' in a comment", offset);
    }
    if (node.type() == pugi::node_pcdata && holds(text, "]]>")) {
        refuse("']]>' in a text", offset);
    }
    if (node.type() == pugi::node_declaration && node != document_.first_child()) {
        refuse("an XML declaration that is not at the beginning", offset);
    }
    if (node.type() == pugi::node_doctype && isBehindElement(node)) {
        refuse("a document type behind the beginning of the root element", offset);
    }
    for (const auto attribute : node.attributes()) {
        if (holds(attribute.value(), "<")) {
            refuse("'<' in the attribute '" + std::string(attribute.name()) + "'", offset);
        }
    }
}

void XmlDocument::checkElement(pugi::xml_node element) const {
    std::vector<std::string_view> names;
    for (const auto attribute : element.attributes()) {
        names.emplace_back(attribute.name());
    }
    std::sort(names.begin(), names.end());
    const auto twice = std::adjacent_find(names.begin(), names.end());
    if (twice != names.end()) {
        refuse("the attribute '" + std::string(*twice) + "' twice", element.offset_debug());
    }
}

void XmlDocument::decodeTexts(pugi::xml_node node) {
    for (auto attribute : node.attributes()) {
        checkCharacters(attribute.value(), node);
        if (std::string_view(attribute.value()).find('&') != std::string_view::npos) {
            attribute.set_value(decoded(attribute.value(), node).c_str());
        }
    }
    checkCharacters(node.value(), node);
    if (node.type() == pugi::node_pcdata &&
        std::string_view(node.value()).find('&') != std::string_view::npos) {
        node.set_value(decoded(node.value(), node).c_str());
    }
}

std::string XmlDocument::decoded(const char* text, pugi::xml_node node) const {
    std::string result;
    std::string_view rest = text;
    for (auto start = rest.find('&'); start != std::string_view::npos; start = rest.find('&')) {
        const auto end = rest.find(';', start);
        const auto name =
            rest.substr(start + 1, end == std::string_view::npos ? 0 : end - start - 1);
        const auto character = characterOf(name);
        if (!character) {
            refuse(name.empty() ? "a bare '&'" : "the unknown entity '" + std::string(name) + "'",
                   node.offset_debug());
        }
        result.append(rest.substr(0, start));
        utf8::append(*character, result);
        rest.remove_prefix(end + 1);
    }
    return result.append(rest);
}

} // namespace wybeta::wysim::song
