// SPDX-License-Identifier: GPL-3.0-or-later
//
// Included ahead of everything else in the Linux build. The SDK's own choice there orders the bytes
// of interface IDs differently and gives other result codes than on Windows; the host's interfaces
// have one ABI, so the Linux build takes the COM one as well.
#pragma once

#include "pluginterfaces/base/fplatform.h"
#include "pluginterfaces/base/ftypes.h"
#include "pluginterfaces/base/smartpointer.h"

#undef COM_COMPATIBLE
#define COM_COMPATIBLE 1

// funknown.h picks its result codes by operating system too, so it has to see Windows meanwhile.
#undef SMTG_OS_WINDOWS
#define SMTG_OS_WINDOWS 1
#include "pluginterfaces/base/funknown.h"
#undef SMTG_OS_WINDOWS
#define SMTG_OS_WINDOWS 0
