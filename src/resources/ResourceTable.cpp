// SPDX-License-Identifier: GPL-3.0-or-later
#include "resources/ResourceTable.h"

#include <algorithm>
#include <iterator>

// Defined in Resources.S.
extern "C" {
extern const char wybetaDictionaryText[];
extern const std::int32_t wybetaDictionaryTextSize;
}

namespace wybeta::resources {

const Resource* findResource(std::string_view name) {
    static const Resource table[] = {
        {"cmudict0_7butf8spll", "cmudict-0.7b-utf8-spll", wybetaDictionaryText,
         wybetaDictionaryTextSize},
    };
    const auto found =
        std::find_if(std::begin(table), std::end(table),
                     [name](const Resource& resource) { return resource.name == name; });
    return found != std::end(table) ? found : nullptr;
}

} // namespace wybeta::resources
