// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pluginterfaces/base/ipluginbase.h"

// The entry points that a host finds by name, beside GetPluginFactory, which the SDK declares.
extern "C" {

// Called once by each user of the module before anything else. Returns whether the module is ready.
SMTG_EXPORT_SYMBOL bool InitDll();

// The counterpart of InitDll. Returns false for a call that has no InitDll to match.
SMTG_EXPORT_SYMBOL bool ExitDll();
}
