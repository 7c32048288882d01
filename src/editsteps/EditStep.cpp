// SPDX-License-Identifier: GPL-3.0-or-later
#include "editsteps/EditStep.h"

#include "host/InterfaceId.h"

namespace wybeta::editsteps {

Steinberg::tresult PLUGIN_API EditStep::queryInterface(const Steinberg::TUID id, void** object) {
    if (!host::sameId(id, Steinberg::FUnknown_iid) && !host::sameId(id, host::IEditStep::iid)) {
        *object = nullptr;
        return Steinberg::kNoInterface;
    }
    addRef();
    *object = static_cast<host::IEditStep*>(this);
    return Steinberg::kResultOk;
}

} // namespace wybeta::editsteps
