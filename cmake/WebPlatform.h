// SPDX-License-Identifier: GPL-3.0-or-later
//
// Included ahead of everything else in the WebAssembly build. The SDK does not know that platform;
// its choices for Linux suit it.
#pragma once

#include <utility> // which the SDK's headers take for included

#define __linux__ 1
#include "pluginterfaces/base/fplatform.h"
#undef __linux__
