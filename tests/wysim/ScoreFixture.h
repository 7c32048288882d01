// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace wybeta::tests {

// A score in MusicXML with a note for each piece between the blanks of the text: "Glo-" begins a
// word that "ri-" and "a" go on with, "of" is a word of its own, and "_" has no syllable.
std::string scoreOfSyllables(const std::string& syllables);

} // namespace wybeta::tests
