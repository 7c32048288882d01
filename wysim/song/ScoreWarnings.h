// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wysim/song/XmlDocument.h"

#include <pugixml.hpp>

#include <cstddef>
#include <string>
#include <vector>

namespace wybeta::wysim::song {

// What of a score the song does not hold as it is written.
class ScoreWarnings {
public:
    // The document has to outlive this.
    explicit ScoreWarnings(const XmlDocument& document) : document_(document) {}

    // The part in which the elements to come stand.
    void enterPart(const std::string& name) { part_ = name; }

    // Warns of an element. A sentence is told once, with the place of the first element and the
    // number of the others.
    void add(const std::string& sentence, pugi::xml_node element);
    // Warns of something that has no place of its own.
    void add(const std::string& sentence) { kinds_.push_back({sentence, 0}); }

    std::vector<std::string> sentences() const;

    // ", in measure 3 of 'Voice'", and the line in a file in which a person can look at it.
    std::string placeOf(pugi::xml_node element) const;

private:
    struct Kind {
        std::string sentence;
        std::size_t others;
        std::string place = {};
    };

    const XmlDocument& document_;
    std::string part_;
    std::vector<Kind> kinds_;
};

} // namespace wybeta::wysim::song
