// SPDX-License-Identifier: GPL-3.0-or-later
#include "extension/TargetTrack.h"

#include "host/Query.h"

#include <algorithm>
#include <string_view>

namespace wybeta::extension {

namespace {

using host::IProjectElement;
using Steinberg::IPtr;

// A device that claims endless elements must not hang the editor.
constexpr Steinberg::int32 kMaxElements = 65'536;

bool hasType(IProjectElement& element, std::string_view type) {
    const Steinberg::FIDString name = element.typeName();
    return name != nullptr && name == type;
}

// A slot that is empty or holds more than one element does not count, whatever is in it.
bool holdsVoiceSynthesizer(IProjectElement& slot) {
    if (slot.countElements() != 1) {
        return false;
    }
    const auto element = Steinberg::owned(slot.element(0));
    const auto pluginSlot = host::query<host::IProjectPluginSlot>(element);
    return pluginSlot.get() != nullptr &&
           host::query<host::IVoiceSynthesizer>(pluginSlot->plugin()).get() != nullptr;
}

bool hasVoiceSynthesizerSlot(IProjectElement& device) {
    const auto count = std::min(device.countElements(), kMaxElements);
    for (Steinberg::int32 i = 0; i < count; ++i) {
        const auto element = Steinberg::owned(device.element(i));
        if (element && hasType(*element, "Slot") && holdsVoiceSynthesizer(*element)) {
            return true;
        }
    }
    return false;
}

} // namespace

IPtr<host::IProjectTrack> findTargetTrack(host::IProjectNode& node) {
    if (!node.isKind("instrument")) {
        return {};
    }
    auto track = host::query<host::IProjectTrack>(&node);
    const auto device = Steinberg::owned(track ? track->deviceElement() : nullptr);
    return device && hasVoiceSynthesizerSlot(*device) ? track : IPtr<host::IProjectTrack>();
}

} // namespace wybeta::extension
