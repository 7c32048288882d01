// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pluginterfaces/base/funknown.h"

#include <functional>
#include <utility>

namespace wybeta::tests {

// An object of the simulated host that acts when the module gives a reference to it back, before
// the reference is gone. Acts once for each time that `onRelease` is set.
template <class Object>
class CallsOnRelease : public Object {
public:
    using Object::Object;

    std::function<void()> onRelease;

    Steinberg::uint32 PLUGIN_API release() override {
        if (const auto act = std::exchange(onRelease, nullptr)) {
            act();
        }
        return Object::release();
    }
};

} // namespace wybeta::tests
