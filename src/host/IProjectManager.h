// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/InterfaceId.h"

namespace wybeta::host {

class IProjectDocument;
class IProjectNotification3;

// The list of open documents, and the place to register for news of them.
class IProjectManager : public Steinberg::FUnknown {
public:
    // Slot 3.
    virtual Steinberg::int32 PLUGIN_API countDocuments() = 0;
    // Slot 4. Not owned by the caller; null where the list has a gap.
    virtual IProjectDocument* PLUGIN_API getDocument(Steinberg::int32 index) = 0;
    virtual void PLUGIN_API unused5() {}
    // Slots 6 and 7.
    virtual Steinberg::tresult PLUGIN_API addNotification(IProjectNotification3* sink) = 0;
    virtual Steinberg::tresult PLUGIN_API removeNotification(IProjectNotification3* sink) = 0;

    WYBETA_INTERFACE_ID(0x3D7C2813, 0x8ABF4AAE, 0xA23A11BF, 0x37214C36);
};

} // namespace wybeta::host
