// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pluginterfaces/base/ipluginbase.h"

namespace wybeta::simulator {

// What an editor knows a module by, wherever its code is.
struct ModuleExports {
    Steinberg::IPluginFactory*(PLUGIN_API* getPluginFactory)(); // with a reference
    bool (*initDll)();
    bool (*exitDll)();
};

} // namespace wybeta::simulator
