// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/IProjectNode.h"

#include "pluginterfaces/base/smartpointer.h"

namespace wybeta::host {

// Goes through the children of a node once, skipping the places where the host has nothing to show.
class Children {
public:
    // The node is held as long as its children are gone through. A null node has none.
    explicit Children(Steinberg::IPtr<IProjectNode> node);

    // Whether the host offered an iterator at all, be it an empty one.
    bool exist() const { return iterator_.get() != nullptr; }

    // The next child, null at the end. The child is held: the host may drop it while it is looked
    // at.
    Steinberg::IPtr<IProjectItem> next();

private:
    Steinberg::IPtr<IProjectNode> node_;
    Steinberg::IPtr<IProjectNodeIterator> iterator_;
};

} // namespace wybeta::host
