// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pluginterfaces/base/funknown.h"

namespace wybeta::host {

// While an object is destroyed, what it releases may take and give back references to it.
constexpr Steinberg::int32 kBeingDestroyed = -1'000'000;

// Gives back one of the references that `count` counts, on any thread, and deletes the object with
// the last one. Returns how many are left.
template <class Object>
Steinberg::uint32 releaseReference(Object* object, Steinberg::int32& count) {
    const auto left = Steinberg::FUnknownPrivate::atomicAdd(count, -1);
    if (left == 0) {
        count = kBeingDestroyed;
        delete object;
    }
    return static_cast<Steinberg::uint32>(left);
}

} // namespace wybeta::host
