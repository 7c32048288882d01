// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/InterfaceId.h"

namespace wybeta::host {

// What a node iterator yields: a track, folder, part or event, before it is asked for anything.
class IProjectItem : public Steinberg::FUnknown {
public:
    // Slot 3. Whether the item is of the kind, a zero-terminated byte string such as "folder".
    virtual bool PLUGIN_API isKind(Steinberg::FIDString kind) = 0;
};

// Yields the children of a node in order, once.
class IProjectNodeIterator : public Steinberg::FUnknown {
public:
    // Slot 3. Not owned by the caller; null where the host has nothing to show.
    virtual IProjectItem* PLUGIN_API next() = 0;
    // Slot 4. Asked before the first `next` and after each.
    virtual bool PLUGIN_API atEnd() = 0;
};

// A place in the project tree.
class IProjectNode : public Steinberg::FUnknown {
public:
    // Slot 3. As IProjectItem::isKind; the kinds asked for are "folder", "instrument" and "part".
    virtual bool PLUGIN_API isKind(Steinberg::FIDString kind) = 0;
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
    virtual void PLUGIN_API unused19() {}
    virtual void PLUGIN_API unused20() {}
    virtual void PLUGIN_API unused21() {}
    virtual void PLUGIN_API unused22() {}
    virtual void PLUGIN_API unused23() {}
    virtual void PLUGIN_API unused24() {}
    virtual void PLUGIN_API unused25() {}
    virtual void PLUGIN_API unused26() {}
    virtual void PLUGIN_API unused27() {}
    // Slot 28. Owned by the caller; null means that there are no children.
    virtual IProjectNodeIterator* PLUGIN_API children() = 0;

    WYBETA_INTERFACE_ID(0x7A6F999F, 0xBDBC4BCC, 0xAC403DAB, 0xACE8A171);
};

// The object that a notification or the edit hook passes, before it is asked for IProjectNode.
class IProjectNotificationArgument : public Steinberg::FUnknown {
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
    // Slot 16. The time context in which the events of a part are read; owned by the caller. The
    // part is passed as the iterator yielded it.
    virtual Steinberg::FUnknown* PLUGIN_API timeContext(IProjectItem* part) = 0;
};

} // namespace wybeta::host
