// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "dictionary/PronunciationDictionary.h"
#include "resources/ResourceTable.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace wybeta::tests {

// Loads from bytes that end exactly where the text does and are gone afterwards.
inline dictionary::PronunciationDictionary loadDictionary(std::string_view text) {
    const std::vector<char> bytes(text.begin(), text.end());
    return dictionary::loadPronunciationDictionary(bytes.data(),
                                                   static_cast<std::int32_t>(bytes.size()));
}

// The dictionary text that is in the library.
inline std::string_view realDictionaryText() {
    const auto& text = *resources::findResource("cmudict0_7butf8spll");
    return {text.data, static_cast<std::size_t>(text.size)};
}

// The dictionary of that text, loaded once for the whole program.
inline const dictionary::PronunciationDictionary& realDictionary() {
    static const auto dictionary = loadDictionary(realDictionaryText());
    return dictionary;
}

} // namespace wybeta::tests
