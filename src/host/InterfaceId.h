// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pluginterfaces/base/funknown.h"

#include <cstring>

// Declares the ID under which a host interface is asked for, as the constant `iid` of the
// interface. Aligned, since the SDK compares IDs as two 64-bit words.
#define WYBETA_INTERFACE_ID(l1, l2, l3, l4)                                                        \
    alignas(8) static constexpr Steinberg::TUID iid = INLINE_UID(l1, l2, l3, l4)

namespace wybeta::host {

// Compares two interface IDs of 16 bytes each; neither needs to be aligned.
inline bool sameId(const Steinberg::TUID left, const Steinberg::TUID right) {
    return std::memcmp(left, right, sizeof(Steinberg::TUID)) == 0;
}

} // namespace wybeta::host
