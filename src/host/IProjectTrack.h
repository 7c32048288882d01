// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/InterfaceId.h"

namespace wybeta::host {

// An object in the device tree of a track. Never asked for by ID.
class IProjectElement : public Steinberg::FUnknown {
public:
    // Slot 3. A zero-terminated byte string that belongs to the host.
    virtual Steinberg::FIDString PLUGIN_API typeName() = 0;
    virtual void PLUGIN_API unused4() {}
    virtual void PLUGIN_API unused5() {}
    virtual void PLUGIN_API unused6() {}
    virtual void PLUGIN_API unused7() {}
    virtual void PLUGIN_API unused8() {}
    virtual void PLUGIN_API unused9() {}
    // Slot 10.
    virtual Steinberg::int32 PLUGIN_API countElements() = 0;
    // Slot 11. Owned by the caller; may be null.
    virtual IProjectElement* PLUGIN_API element(Steinberg::int32 index) = 0;
};

// A track of the project. Its address is what tells one track from another.
class IProjectTrack : public Steinberg::FUnknown {
public:
    virtual void PLUGIN_API unused3() {}
    virtual void PLUGIN_API unused4() {}
    virtual void PLUGIN_API unused5() {}
    virtual void PLUGIN_API unused6() {}
    // Slot 7. The root of the device tree; owned by the caller; may be null.
    virtual IProjectElement* PLUGIN_API deviceElement() = 0;

    WYBETA_INTERFACE_ID(0x7849F17E, 0x121249B2, 0x82F62425, 0xBACC5E5A);
};

// Answered by the one element under a track's "Slot" element.
class IProjectPluginSlot : public Steinberg::FUnknown {
public:
    // Slot 3. The plug-in in the slot; not owned by the caller; may be null.
    virtual Steinberg::FUnknown* PLUGIN_API plugin() = 0;

    WYBETA_INTERFACE_ID(0x0742C1BD, 0xA6B44FFA, 0xAB838ED1, 0x20A7D895);
};

// Marks a plug-in as the voice synthesizer whose lyrics are divided; none of its methods is called.
class IVoiceSynthesizer : public Steinberg::FUnknown {
public:
    WYBETA_INTERFACE_ID(0x8EF21080, 0x67A8DE15, 0x7687EC5F, 0x126671EA);
};

} // namespace wybeta::host
