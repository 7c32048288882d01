// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/IProjectNode.h"
#include "host/IProjectTrack.h"

#include "pluginterfaces/base/smartpointer.h"

namespace wybeta::extension {

// Returns the track of a node when it is one whose lyrics are divided: an instrument track with the
// voice synthesizer in its slot. Null for every other node.
Steinberg::IPtr<host::IProjectTrack> findTargetTrack(host::IProjectNode& node);

} // namespace wybeta::extension
