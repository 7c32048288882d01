// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/InterfaceId.h"

namespace wybeta::host {

class IProjectDocument;
class IProjectEditContext;

// News of the open documents, in the three generations that the host has had. What the host passes
// to the slots named `ignored` is of no use to the extension.
class IProjectNotification : public Steinberg::FUnknown {
public:
    virtual void PLUGIN_API ignored3(void* hostDefined) = 0;
    virtual void PLUGIN_API ignored4(void* hostDefined) = 0;
    // Slot 5.
    virtual Steinberg::tresult PLUGIN_API documentOpened(IProjectDocument* document) = 0;
    // Slot 6.
    virtual Steinberg::tresult PLUGIN_API documentClosing(IProjectDocument* document) = 0;

    WYBETA_INTERFACE_ID(0x98F69AC5, 0x578D4A22, 0xB8E02781, 0xC06CFF25);
};

class IProjectNotification2 : public IProjectNotification {
public:
    virtual Steinberg::tresult PLUGIN_API ignored7(void* hostDefined) = 0;
    virtual void PLUGIN_API ignored8(void* hostDefined) = 0;

    WYBETA_INTERFACE_ID(0x7A43C28E, 0xBAC248D1, 0xB72D1AA2, 0x20FEBF10);
};

class IProjectNotification3 : public IProjectNotification2 {
public:
    // Slot 9. Something changed under the node that `argument` answers as IProjectNode; by itself
    // it is an IProjectNotificationArgument.
    virtual void PLUGIN_API projectChanged(Steinberg::FUnknown* argument) = 0;

    WYBETA_INTERFACE_ID(0x04A1D438, 0x482A4D8C, 0x8CA76ED5, 0x0640A914);
};

// News of a document being stored or loaded.
class IProjectStorageNotification : public Steinberg::FUnknown {
public:
    // Slot 3.
    virtual void PLUGIN_API storageChanged(void* hostDefined) = 0;

    WYBETA_INTERFACE_ID(0xD361D332, 0x604A4DF7, 0x83B17B91, 0xA35184DB);
};

// Called while the host records an edit, so that steps can be added to it.
class IProjectEditHook : public Steinberg::FUnknown {
public:
    // Slot 3. `argument` is as for projectChanged. Returns 0.
    virtual Steinberg::tresult PLUGIN_API hookEdit(Steinberg::FUnknown* argument,
                                                   IProjectEditContext* context) = 0;

    WYBETA_INTERFACE_ID(0xEDC5AF8F, 0xAABD46E8, 0xB86839CF, 0xE14CAB1F);
};

} // namespace wybeta::host
