// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/InterfaceId.h"

namespace wybeta::host {

class IProjectNode;

// Collects the project objects that an edit step changes.
class IEditObjectCollector : public Steinberg::FUnknown {
public:
    virtual void PLUGIN_API unused3() {}
    virtual void PLUGIN_API unused4() {}
    // Slot 5.
    virtual void PLUGIN_API addObject(IProjectNode* object) = 0;
};

// One undoable change, implemented by the extension and owned by the host's history.
class IEditStep : public Steinberg::FUnknown {
public:
    // Slot 3. Performs the step the first time.
    virtual Steinberg::tresult PLUGIN_API execute() = 0;
    // Slot 4.
    virtual void PLUGIN_API undo() = 0;
    // Slot 5.
    virtual void PLUGIN_API redo() = 0;
    // Slot 6. Passes every project object that the step changes to the collector.
    virtual Steinberg::tresult PLUGIN_API reportChangedObjects(IEditObjectCollector* collector) = 0;

    WYBETA_INTERFACE_ID(0xAC4023C3, 0x75754B3C, 0xBF817013, 0x8CBD8C05);
};

// The edit that the host is recording while it calls the edit hook.
class IProjectEditContext : public Steinberg::FUnknown {
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
    // Slot 13. The host takes its own reference to the step.
    virtual Steinberg::tresult PLUGIN_API addEditStep(IEditStep* step) = 0;
};

} // namespace wybeta::host
