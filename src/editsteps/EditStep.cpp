// SPDX-License-Identifier: GPL-3.0-or-later
#include "editsteps/EditStep.h"

#include "host/InterfaceId.h"

namespace wybeta::editsteps {

namespace {

// While a step is destroyed, what it releases may take and give back references to it.
constexpr Steinberg::int32 kBeingDestroyed = -1'000'000;

} // namespace

Steinberg::tresult PLUGIN_API EditStep::queryInterface(const Steinberg::TUID id, void** object) {
    if (!host::sameId(id, Steinberg::FUnknown_iid) && !host::sameId(id, host::IEditStep::iid)) {
        *object = nullptr;
        return Steinberg::kNoInterface;
    }
    addRef();
    *object = static_cast<host::IEditStep*>(this);
    return Steinberg::kResultOk;
}

Steinberg::uint32 PLUGIN_API EditStep::addRef() {
    return static_cast<Steinberg::uint32>(++references_);
}

Steinberg::uint32 PLUGIN_API EditStep::release() {
    const auto left = --references_;
    if (left == 0) {
        references_ = kBeingDestroyed;
        delete this;
    }
    return static_cast<Steinberg::uint32>(left);
}

} // namespace wybeta::editsteps
