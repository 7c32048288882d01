// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pluginterfaces/base/funknown.h"
#include "pluginterfaces/base/smartpointer.h"

#include <type_traits>

namespace wybeta::host {

// Asks `object` for the interface `I`. Returns an owned reference, or null when the object is null
// or does not answer. An object that reports success without handing anything over does not answer.
template <class I>
Steinberg::IPtr<I> query(Steinberg::FUnknown* object) {
    static_assert(std::is_same_v<decltype(I::iid), const Steinberg::TUID>,
                  "the interface has no ID of its own to be asked for by");
    void* found = nullptr;
    if (object == nullptr || object->queryInterface(I::iid, &found) != Steinberg::kResultOk) {
        return {};
    }
    return Steinberg::owned(static_cast<I*>(found));
}

} // namespace wybeta::host
