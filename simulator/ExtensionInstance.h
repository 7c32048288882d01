// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/IProjectNotification.h"

#include "pluginterfaces/base/ipluginbase.h"
#include "pluginterfaces/base/smartpointer.h"

namespace wybeta::simulator {

// An extension made by a module's factory, with the faces that an editor uses. Given back when the
// object goes.
class ExtensionInstance {
public:
    // Throws std::runtime_error when the factory does not make the extension or a face is missing.
    explicit ExtensionInstance(Steinberg::IPluginFactory& factory);

    Steinberg::IPluginBase& base() const { return *base_; }
    host::IProjectNotification3& notification() const { return *notification_; }
    host::IProjectStorageNotification& storageNotification() const { return *storage_; }
    host::IProjectEditHook& editHook() const { return *editHook_; }

private:
    Steinberg::IPtr<Steinberg::IPluginBase> base_;
    Steinberg::IPtr<host::IProjectNotification3> notification_;
    Steinberg::IPtr<host::IProjectStorageNotification> storage_;
    Steinberg::IPtr<host::IProjectEditHook> editHook_;
};

} // namespace wybeta::simulator
