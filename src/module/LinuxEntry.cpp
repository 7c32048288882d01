// SPDX-License-Identifier: GPL-3.0-or-later
//
// The two entry points that the module format asks for on Linux, beside those of Windows.
#include "module/ModuleEntry.h"

extern "C" {

SMTG_EXPORT_SYMBOL bool ModuleEntry(void* /*sharedLibraryHandle*/) {
    return InitDll();
}

SMTG_EXPORT_SYMBOL bool ModuleExit() {
    return ExitDll();
}
}
