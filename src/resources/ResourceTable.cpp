// SPDX-License-Identifier: GPL-3.0-or-later
#include "resources/ResourceTable.h"

// Defined in Resources.S.
extern "C" {
extern const char wybetaDictionaryText[];
extern const std::int32_t wybetaDictionaryTextSize;
}

namespace wybeta::resources {

const Resource* findResource(std::string_view name) {
    static const Resource dictionary = {"cmudict0_7butf8spll", "cmudict-0.7b-utf8-spll",
                                        wybetaDictionaryText, wybetaDictionaryTextSize};
    return name == dictionary.name ? &dictionary : nullptr;
}

} // namespace wybeta::resources
