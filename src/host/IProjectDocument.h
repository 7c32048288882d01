// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pluginterfaces/base/funknown.h"

namespace wybeta::host {

class IProjectStorageNotification;

// One open document. Never asked for by ID; used as the host hands it over.
class IProjectDocument : public Steinberg::FUnknown {
public:
    virtual void PLUGIN_API unused3() {}
    virtual void PLUGIN_API unused4() {}
    virtual void PLUGIN_API unused5() {}
    virtual void PLUGIN_API unused6() {}
    virtual void PLUGIN_API unused7() {}
    virtual void PLUGIN_API unused8() {}
    virtual void PLUGIN_API unused9() {}
    virtual void PLUGIN_API unused10() {}
    virtual void PLUGIN_API unused11() {}
    virtual void PLUGIN_API unused12() {}
    virtual void PLUGIN_API unused13() {}
    virtual void PLUGIN_API unused14() {}
    virtual void PLUGIN_API unused15() {}
    virtual void PLUGIN_API unused16() {}
    virtual void PLUGIN_API unused17() {}
    virtual void PLUGIN_API unused18() {}
    // Slots 19 and 20.
    virtual Steinberg::tresult PLUGIN_API
    addStorageNotification(IProjectStorageNotification* sink) = 0;
    virtual Steinberg::tresult PLUGIN_API
    removeStorageNotification(IProjectStorageNotification* sink) = 0;
};

} // namespace wybeta::host
