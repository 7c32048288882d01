// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/ModuleExtension.h"

#include "pluginterfaces/base/ipluginbase.h"
#include "pluginterfaces/base/smartpointer.h"

namespace wybeta::fuzz {

const simulator::ExtensionInstance& moduleExtension() {
    static const auto factory = Steinberg::owned(GetPluginFactory());
    static const simulator::ExtensionInstance extension(*factory);
    return extension;
}

} // namespace wybeta::fuzz
