// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/InterfaceId.h"

namespace wybeta::host {

// The editor itself; answered by the context that a service is initialised with.
class IProjectHost : public Steinberg::FUnknown {
public:
    // Slot 3. Hands over a reference to the host interface `id` through `object`.
    virtual Steinberg::tresult PLUGIN_API getInterface(const Steinberg::TUID id, void** object) = 0;

    WYBETA_INTERFACE_ID(0xEEC89683, 0x80DB4336, 0x9177273E, 0x138A763B);
};

} // namespace wybeta::host
