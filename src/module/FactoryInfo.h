// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pluginterfaces/base/ipluginbase.h"

namespace wybeta::module {

// Who made the module.
const Steinberg::PFactoryInfo& factoryInfo();

// The one class that the module offers. Built on the first call, once per process.
const Steinberg::PClassInfo2& classRecord();

} // namespace wybeta::module
