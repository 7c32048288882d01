// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/IProjectNode.h"
#include "host/InterfaceId.h"

#include "pluginterfaces/base/fvariant.h"

namespace wybeta::host {

// An event as the iterator of a part yields it. It can be asked for IProjectEvent and, if it is a
// note, for IProjectNoteEvent.
class IPartEvent : public IProjectItem {
public:
    virtual void PLUGIN_API unused4() {}
    virtual void PLUGIN_API unused5() {}
    virtual void PLUGIN_API unused6() {}
    virtual void PLUGIN_API unused7() {}
    virtual void PLUGIN_API unused8() {}
    virtual void PLUGIN_API unused9() {}
    virtual void PLUGIN_API unused10() {}
    virtual void PLUGIN_API unused11() {}
    // Slot 12. Whether a lyric typed into this note starts a division. A flagged note also ends the
    // division before it.
    virtual bool PLUGIN_API isFlagged() = 0;
    virtual void PLUGIN_API unused13() {}
    virtual void PLUGIN_API unused14() {}
    virtual void PLUGIN_API unused15() {}
    virtual void PLUGIN_API unused16() {}
    virtual void PLUGIN_API unused17() {}
    virtual void PLUGIN_API unused18() {}
    virtual void PLUGIN_API unused19() {}
    // Slot 20. In the unit of the time context.
    virtual double PLUGIN_API start(Steinberg::FUnknown* timeContext) = 0;
    virtual void PLUGIN_API unused21() {}
    virtual void PLUGIN_API unused22() {}
    virtual void PLUGIN_API unused23() {}
    // Slot 24. In the unit of the time context.
    virtual double PLUGIN_API length(Steinberg::FUnknown* timeContext) = 0;
};

// Any event of a part.
class IProjectEvent : public Steinberg::FUnknown {
public:
    virtual void PLUGIN_API unused3() {}
    virtual void PLUGIN_API unused4() {}
    virtual void PLUGIN_API unused5() {}
    // Slot 6. A number whose meaning is the host's; NoteRecord carries it unchanged.
    virtual Steinberg::int32 PLUGIN_API value() = 0;

    WYBETA_INTERFACE_ID(0x280D584E, 0x88EF43EC, 0x908F7C22, 0xAE6994FB);
};

// An event that is a note.
class IProjectNoteEvent : public Steinberg::FUnknown {
public:
    virtual void PLUGIN_API unused3() {}
    virtual void PLUGIN_API unused4() {}
    // Slot 5. The text of a string value is copied by the host. The two last arguments are passed
    // as 0, in full width so that a host that takes them as pointers sees null.
    virtual Steinberg::tresult PLUGIN_API setAttribute(Steinberg::FIDString key,
                                                       Steinberg::FVariant* value,
                                                       Steinberg::TPtrInt reserved1,
                                                       Steinberg::TPtrInt reserved2) = 0;
    // Slot 6. Returns 0 when found. A string put into `value` stays the host's and must not be
    // freed, even if the variant says that it owns it.
    virtual Steinberg::tresult PLUGIN_API getAttribute(Steinberg::FIDString key,
                                                       Steinberg::FVariant* value) = 0;

    WYBETA_INTERFACE_ID(0xEDB0D1BA, 0x2E3248D9, 0x822B3DC0, 0x696428C9);
};

} // namespace wybeta::host
